// Preloaded into `kelo serve` by a test: counts the calls of one kind of operation that can fail,
// and lets one of them fail. KELO_FAULT is "KIND NUMBER FOLDER FILE": the kind, which call of it,
// below which folder files count, and the file that is made when the call has failed.
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sstream>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
struct Plan
{
    Plan()
    {
        const char* text = std::getenv("KELO_FAULT");
        std::istringstream(text ? text : "") >> kind >> number >> folder >> mark;
    }
    std::string kind, folder, mark;
    int number = 0;
    std::atomic<int> calls{0};
};

Plan& plan()
{
    static Plan instance;
    return instance;
}

/// What the libraries do before the program begins does not count.
bool hasBegun = false;

/// Whether this call is the one that fails; then `error` is its errno.
bool fails(const char* kind, int error)
{
    Plan& here = plan();
    if (!hasBegun || here.kind != kind || ++here.calls != here.number)
        return false;
    ::close(int(::syscall(SYS_openat, AT_FDCWD, here.mark.c_str(), O_CREAT | O_WRONLY, 0600)));
    errno = error;
    return true;
}

template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool isBelowFolder(const char* path)
{
    const std::string& folder = plan().folder;
    return !folder.empty() && path && std::strncmp(path, folder.c_str(), folder.size()) == 0;
}

bool isOpenBelowFolder(int fd)
{
    char target[512] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(fd);
    return ::readlink(link.c_str(), target, sizeof target - 1) > 0 && isBelowFolder(target);
}

bool isInternet(int fd)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    return ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
           address.ss_family == AF_INET;
}

bool isWriting(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY;
}

/// Whether the code that calls is in a library whose name contains a text.
bool isCalledFrom(void* address, const char* library)
{
    Dl_info info{};
    return ::dladdr(address, &info) && info.dli_fname && std::strstr(info.dli_fname, library);
}
} // namespace

// What the C library calls the program through, when every library has been initialized.
using Main = int(int, char**, char**);
using Hook = void();
extern "C" int __libc_start_main(Main* main, int argc, char** argv, Hook* init, Hook* fini,
                                 Hook* end, void* stack)
{
    hasBegun = true;
    return next(&__libc_start_main, "__libc_start_main")(main, argc, argv, init, fini, end, stack);
}

// Socket calls.
#define SOCKET_CALL(name, parameters, arguments)                                                   \
    extern "C" ssize_t name parameters                                                             \
    {                                                                                              \
        static const auto real = next(&name, #name);                                               \
        return isInternet(fd) && fails("socket", ECONNRESET) ? -1 : real arguments;                \
    }
SOCKET_CALL(send, (int fd, const void* data, size_t size, int flags), (fd, data, size, flags))
SOCKET_CALL(recv, (int fd, void* data, size_t size, int flags), (fd, data, size, flags))
SOCKET_CALL(sendmsg, (int fd, const msghdr* message, int flags), (fd, message, flags))

extern "C" int connect(int fd, const sockaddr* address, socklen_t size)
{
    static const auto real = next(&connect, "connect");
    const bool isCounted = address->sa_family == AF_INET;
    return isCounted && fails("socket", ENETUNREACH) ? -1 : real(fd, address, size);
}

extern "C" int accept4(int fd, sockaddr* address, socklen_t* size, int flags)
{
    static const auto real = next(&accept4, "accept4");
    return isInternet(fd) && fails("socket", EMFILE) ? -1 : real(fd, address, size, flags);
}

// Files below the folder.
extern "C" int open(const char* path, int flags, ...)
{
    static const auto real = next(&open, "open");
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & (O_CREAT | __O_TMPFILE) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool isCounted = isWriting(flags) && isBelowFolder(path);
    return isCounted && fails("file", ENOSPC) ? -1 : real(path, flags, mode);
}

extern "C" int open64(const char* path, int flags, ...) __attribute__((alias("open")));

extern "C" ssize_t write(int fd, const void* data, size_t size)
{
    static const auto real = next(&write, "write");
    const bool isCounted = plan().kind == "file" && isOpenBelowFolder(fd);
    return isCounted && fails("file", ENOSPC) ? -1 : real(fd, data, size);
}

extern "C" int fsync(int fd)
{
    static const auto real = next(&fsync, "fsync");
    return fails("file", EIO) ? -1 : real(fd);
}

extern "C" int rename(const char* from, const char* to)
{
    static const auto real = next(&rename, "rename");
    return isBelowFolder(from) && fails("rename", EACCES) ? -1 : real(from, to);
}

// Threads that the program itself starts; what glib does without one is its own affair.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*function)(void*), void* argument)
{
    static const auto real = next(&pthread_create, "pthread_create");
    const bool isCounted = isCalledFrom(__builtin_return_address(0), "libstdc++") ||
                           isCalledFrom(__builtin_return_address(0), "libQt5Core");
    return isCounted && fails("thread", EAGAIN) ? EAGAIN
                                                : real(thread, attributes, function, argument);
}
