#include "ServiceManager.h"
#include "LogSetup.h"
#include "Watchdog.h"

#include <cstddef>
#include <fcntl.h>
#include <future>
#include <gtest/gtest.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloLoopThread.h>
#include <QEventLoop>
#include <QTemporaryDir>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// The service manager's end. Names itself to the process while it lives.
class Manager
{
public:
    explicit Manager(const QByteArray& name) : m_fd(::socket(AF_UNIX, SOCK_DGRAM, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::copy(name.begin(), name.end(), address.sun_path);
        if (name.startsWith('@'))
            address.sun_path[0] = '\0';
        EXPECT_EQ(::bind(m_fd, reinterpret_cast<const sockaddr*>(&address),
                         socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()))),
                  0);
        qputenv("NOTIFY_SOCKET", name);
    }
    ~Manager()
    {
        qunsetenv("NOTIFY_SOCKET");
        ::close(m_fd);
    }

    /// What it was told and has not read; empty when there is nothing.
    std::string heard(int flags = MSG_DONTWAIT) const
    {
        char text[32];
        const ssize_t size = ::recv(m_fd, text, sizeof text, flags);
        return {text, size_t(std::max<ssize_t>(0, size))};
    }
    std::string hear() const { return heard(0); }

private:
    int m_fd;
};

} // namespace

TEST(ServiceManagerTest, TellsTheSocketThatIsNamedAndNobodyElse)
{
    const QTemporaryDir folder;
    const QByteArray file = folder.filePath("notify").toLocal8Bit();
    for (const QByteArray& name : {file, '@' + file}) {
        SCOPED_TRACE(name.toStdString());
        const Manager manager(name);
        tellServiceManager("READY=1");
        EXPECT_EQ(manager.heard(), "READY=1");
    }
    for (const QByteArray& name : {QByteArray("here"), '/' + QByteArray(200, 'x'), file}) {
        qputenv("NOTIFY_SOCKET", name); // none that listens; it goes on all the same
        tellServiceManager("READY=1");
    }
    qunsetenv("NOTIFY_SOCKET");
}

TEST(ServiceManagerTest, ALoopThatHangsEndsTheSignsUntilItAnswersOrEnds)
{
    const QTemporaryDir folder;
    const Manager manager(folder.filePath("notify").toLocal8Bit());
    KeloLoopThread threads[2];
    for (KeloLoopThread& thread : threads)
        thread.start([] {});
    const auto loop = [](KeloLoopThread& thread) {
        return [&thread](std::function<void()> function) { thread.post(std::move(function)); };
    };
    Watchdog watchdog([&] {
        return std::vector<Watchdog::Loop>{loop(threads[0]), loop(threads[1])};
    });
    const auto pass = [](KeloLoopThread& thread) {
        std::promise<void> passed;
        thread.post([&] { passed.set_value(); });
        passed.get_future().wait();
    };
    watchdog.ask();
    EXPECT_EQ(manager.hear(), "WATCHDOG=1");

    for (KeloLoopThread& hanging : threads) {
        std::promise<void> wake;
        hanging.post([&] { wake.get_future().wait(); });
        for (int round = 0; round < 3; ++round) {
            watchdog.ask();
            pass(threads[&hanging == threads]); // the other one has answered
            EXPECT_EQ(manager.heard(), "");
        }
        wake.set_value();
        EXPECT_EQ(manager.hear(), "WATCHDOG=1");
        pass(hanging);
        EXPECT_EQ(manager.heard(), "") << "for rounds that were none";
    }

    // As the manager asks for it, of this process alone.
    qputenv("WATCHDOG_USEC", "3000");
    qputenv("WATCHDOG_PID", "1");
    Watchdog ofAnother([] { return std::vector<Watchdog::Loop>{}; });
    ofAnother.start();
    qputenv("WATCHDOG_PID", QByteArray::number(::getpid()));
    QEventLoop signs;
    int count = 0;
    Watchdog ofThis([&] {
        if (++count == 3)
            signs.quit();
        return std::vector<Watchdog::Loop>{};
    });
    ofThis.start();
    signs.exec();
    qunsetenv("WATCHDOG_USEC");
    for (int sign = 0; sign < 3; ++sign)
        EXPECT_EQ(manager.heard(), "WATCHDOG=1");
    EXPECT_EQ(manager.heard(), "");
    for (KeloLoopThread& thread : threads)
        thread.stop([] {});
}

TEST(ServiceManagerTest, TheJournalGetsPrioritiesAndOthersGetTimes)
{
    const QTemporaryDir folder;
    const QByteArray name = folder.filePath("stderr").toLocal8Bit();
    const int before = ::dup(STDERR_FILENO);
    const int file = ::open(name.constData(), O_RDWR | O_CREAT, 0600);
    struct stat status = {};
    ::fstat(file, &status);
    ::dup2(file, STDERR_FILENO);
    for (const int isJournal : {1, 0}) {
        qputenv("JOURNAL_STREAM",
                QString("%1:%2").arg(status.st_dev).arg(status.st_ino + isJournal - 1).toUtf8());
        QString error;
        EXPECT_TRUE(setUpLog(LogSettings(), &error)) << error.toStdString();
        KELO_LOG("Test", WARN) << "low";
        KELO_LOG("Test", ERROR) << "out";
    }
    qunsetenv("JOURNAL_STREAM");
    ::dup2(before, STDERR_FILENO);
    ::close(before);
    std::string text(200, '\0');
    text.resize(size_t(::pread(file, text.data(), text.size(), 0)));
    ::close(file);
    EXPECT_EQ(text.find("<4>Test: low\n<3>Test: out\n20"), 0U) << text;
    EXPECT_NE(text.find(" ERROR Test: out\n"), std::string::npos) << text;
}
