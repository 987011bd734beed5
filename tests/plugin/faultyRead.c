// Preloaded into a host: VX_FAULTY_FILE reads one byte at a time, every other try interrupted, and fails for good from
// byte VX_FAULT_AT on, when that is a number.
#include <errno.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

__attribute__((visibility("default"))) ssize_t read(int file, void* bytes, size_t most);

static int isFaulty(int file) {
    const char* const path = getenv("VX_FAULTY_FILE");
    struct stat wanted, given;
    return path != NULL && stat(path, &wanted) == 0 && fstat(file, &given) == 0 && wanted.st_ino == given.st_ino &&
           wanted.st_dev == given.st_dev;
}

static ssize_t failed(int reason) {
    errno = reason;
    return -1;
}

ssize_t read(int file, void* bytes, size_t most) {
    static int tries = 0;
    if (!isFaulty(file)) return syscall(SYS_read, file, bytes, most);
    char* end;
    const long fault = strtol(getenv("VX_FAULT_AT"), &end, 10);
    if (*end == '\0' && lseek(file, 0, SEEK_CUR) >= fault) return failed(EIO);
    return ++tries % 2 == 0 ? failed(EINTR) : syscall(SYS_read, file, bytes, most > 0);
}
