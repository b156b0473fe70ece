// SPDX-License-Identifier: MIT
// Loaded with LD_PRELOAD, makes one system call fail with EIO, as a failing
// disk would, for files below one directory only:
//   EXCITERSETTINGS_FAIL      write, fsync, fchmod, close or rename
//   EXCITERSETTINGS_FAIL_DIR  the directory (a path prefix)
// Everything else goes to the real call.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int Chosen(const char* call) {
    const char* chosen = getenv("EXCITERSETTINGS_FAIL");
    return chosen && strcmp(chosen, call) == 0;
}

int InDirectory(const char* path) {
    const char* directory = getenv("EXCITERSETTINGS_FAIL_DIR");
    if (!directory || !path)
        return 0;
    char absolute[4096];
    if (path[0] != '/' && getcwd(absolute, sizeof absolute)) { // relative to the working directory
        strncat(absolute, "/", sizeof absolute - strlen(absolute) - 1);
        strncat(absolute, path, sizeof absolute - strlen(absolute) - 1);
        path = absolute;
    }
    return strncmp(path, directory, strlen(directory)) == 0;
}

// An unnamed temporary file shows as "<directory>/#<inode> (deleted)".
int OpenInDirectory(int fd) {
    char link[64];
    char path[4096];
    snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0)
        return 0;
    path[length] = '\0';
    return InDirectory(path);
}

template <typename Function> Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define REAL(name) Real(&(name), #name)

int Failing(const char* call, int fd) {
    if (!Chosen(call) || !OpenInDirectory(fd))
        return 0;
    errno = EIO;
    return 1;
}

} // namespace

extern "C" {

ssize_t write(int fd, const void* data, size_t size) {
    return Failing("write", fd) ? -1 : REAL(write)(fd, data, size);
}

int fsync(int fd) {
    return Failing("fsync", fd) ? -1 : REAL(fsync)(fd);
}

int fchmod(int fd, mode_t mode) {
    return Failing("fchmod", fd) ? -1 : REAL(fchmod)(fd, mode);
}

// A close that reports a write the disk failed late: the descriptor is
// closed all the same.
int close(int fd) {
    const int failing = Chosen("close") && OpenInDirectory(fd);
    const int result = REAL(close)(fd);
    if (!failing)
        return result;
    errno = EIO;
    return -1;
}

int rename(const char* from, const char* to) {
    if (Chosen("rename") && InDirectory(to)) {
        errno = EIO;
        return -1;
    }
    return REAL(rename)(from, to);
}

} // extern "C"
