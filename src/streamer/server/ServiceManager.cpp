#include "ServiceManager.h"
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <kelo/KeloLog.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

void tellServiceManager(const QByteArray& state)
{
    const QByteArray name = qgetenv("NOTIFY_SOCKET");
    if (name.isEmpty())
        return;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const bool isAbstract = name.startsWith('@');
    if ((!isAbstract && !name.startsWith('/')) || size_t(name.size()) >= sizeof address.sun_path) {
        KELO_LOG("Serve", WARN) << "NOTIFY_SOCKET names no socket: " << name;
        return;
    }
    std::copy(name.begin(), name.end(), address.sun_path);
    if (isAbstract)
        address.sun_path[0] = '\0'; // and no zero at the end (unix(7))
    const auto length = socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()));
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const ssize_t sent = fd < 0
                             ? -1
                             : ::sendto(fd, state.constData(), size_t(state.size()), MSG_NOSIGNAL,
                                        reinterpret_cast<const sockaddr*>(&address), length);
    if (sent != state.size())
        KELO_LOG("Serve", WARN) << "cannot tell the service manager: " << std::strerror(errno);
    if (fd >= 0)
        ::close(fd);
}
