#include "ServiceManager.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <QTemporaryDir>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

TEST(ServiceManagerTest, TellsTheSocketThatIsNamedAndNobodyElse)
{
    const QTemporaryDir folder;
    const QByteArray file = folder.filePath("notify").toLocal8Bit();
    for (const QByteArray& name : {file, '@' + file}) {
        SCOPED_TRACE(name.toStdString());
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::copy(name.begin(), name.end(), address.sun_path);
        if (name.startsWith('@'))
            address.sun_path[0] = '\0';
        const int fd = ::socket(AF_UNIX, SOCK_DGRAM, 0);
        ASSERT_EQ(::bind(fd, reinterpret_cast<const sockaddr*>(&address),
                         socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()))),
                  0);
        qputenv("NOTIFY_SOCKET", name);
        tellServiceManager("READY=1");
        char text[32] = {};
        EXPECT_EQ(::recv(fd, text, sizeof text, MSG_DONTWAIT), 7);
        EXPECT_STREQ(text, "READY=1");
        ::close(fd);
    }
    for (const QByteArray& name : {QByteArray("here"), '/' + QByteArray(200, 'x'), file}) {
        qputenv("NOTIFY_SOCKET", name); // none that listens; it goes on all the same
        tellServiceManager("READY=1");
    }
    qunsetenv("NOTIFY_SOCKET");
}
