// Preloaded into a program, lets one of its calls of the system fail from main() on:
//
//     FAILING_CALLS="write 7"       the seventh write to a file fails
//     FAILING_CALLS="write 7 on"    and every later one
//     KILLED_AT=7                   at the seventh change of a file the program is killed
//     STOPPED_AT=7                  or stopped, until it is told to go on
//     CALL_COUNTS=FILE              how often each kind was called, written at the end
//     CALL_RECORD=FILE              every change of files and names, as recorded_disk.h reads it

#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

enum Kind { Open, Lock, Read, Write, Flush, Rename, Unlink, Truncate, Map, Thread, Allocation, kinds };
static const char* const names[kinds] = {"open",   "lock",     "read", "write",  "flush",     "rename",
                                         "unlink", "truncate", "map",  "thread", "allocation"};
static atomic_long calls[kinds];
static atomic_bool active;
static atomic_bool works;  // has opened a catalogue: what ICU and Qt load before bears no failing allocation
static long failing_call;
static int failing_kind = kinds;
static bool failing_on;
static atomic_long changes;
static long killed_at = -1, stopped_at = -1;
static int record = -1;

static bool fails(enum Kind kind, int error) {
    if (!active || (kind == Allocation && !works)) return false;
    const long n = ++calls[kind];
    if (kind >= Write && kind <= Truncate) {
        const long change = ++changes;
        if (change == killed_at) raise(SIGKILL);
        if (change == stopped_at) raise(SIGSTOP);
    }
    if ((int)kind != failing_kind || (failing_on ? n < failing_call : n != failing_call)) return false;
    errno = error;
    return true;
}

static void begin(void) {
    const char* wanted = getenv("FAILING_CALLS");
    char kind[16] = "", on[3] = "";
    if (wanted && sscanf(wanted, "%15s %ld %2s", kind, &failing_call, on) >= 2) {
        failing_on = on[0] != '\0';
        for (failing_kind = 0; failing_kind < kinds && strcmp(names[failing_kind], kind) != 0;)
            ++failing_kind;
    }
    const char* killed = getenv("KILLED_AT");
    if (killed) killed_at = atol(killed);
    const char* stopped = getenv("STOPPED_AT");
    if (stopped) stopped_at = atol(stopped);
    const char* kept = getenv("CALL_RECORD");
    if (kept)
        record = (int)syscall(SYS_openat, AT_FDCWD, kept, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    active = true;
}

__attribute__((destructor)) static void end(void) {
    active = false;
    const char* path = getenv("CALL_COUNTS");
    FILE* counts = path ? fopen(path, "w") : NULL;
    if (!counts) return;
    for (int kind = 0; kind < kinds; ++kind) fprintf(counts, "%s %ld\n", names[kind], calls[kind]);
    fclose(counts);
}

typedef int (*Main)(int, char**, char**);
static Main program;
static int main_that_counts(int argc, char** argv, char** environment) {
    begin();
    return program(argc, argv, environment);
}
int __libc_start_main(Main main, int argc, char** argv, void (*init)(void), void (*fini)(void),
                      void (*finish)(void), void* stack) {
    int (*real)(Main, int, char**, void (*)(void), void (*)(void), void (*)(void), void*) =
        dlsym(RTLD_NEXT, "__libc_start_main");
    program = main;
    return real(main_that_counts, argc, argv, init, fini, finish, stack);
}

// One line of numbers, one for each name, and the bytes, in one piece whatever other threads do.
static void note(const char* what, int file, const char* name, const char* other, off_t at, const void* bytes,
                 size_t size) {
    if (record < 0) return;
    const int error = errno;
    struct stat status = {0};
    if (file >= 0) fstat(file, &status);
    char text[9000];
    const int length = snprintf(text, sizeof text, "%s %lu %ld %zu\n%s\n%s\n", what,
                                (unsigned long)status.st_ino, (long)at, size, name, other);
    const struct iovec parts[] = {{text, (size_t)length}, {(void*)bytes, size}};
    if (syscall(SYS_writev, record, parts, 2) != length + (long)size) abort();
    errno = error;
}
static void note_write(int file, const void* bytes, ssize_t size, off_t at) {
    if (size > 0) note("write", file, "", "", at, bytes, (size_t)size);
}
static off_t start(int file, ssize_t written) {
    return record < 0 ? 0 : lseek(file, 0, SEEK_CUR) - written;
}

// The system's function of the same name, behind the question whether it fails this time; `seen` when it did
// not.
#define FAILING_SEEN(result, name, parameters, arguments, failed, failure, seen) \
    result name parameters {                                                     \
        static result(*_Atomic real) parameters;                                 \
        if (!real) real = dlsym(RTLD_NEXT, #name);                               \
        if (failed) return failure;                                              \
        result done = real arguments;                                            \
        if (done != (failure)) seen;                                             \
        return done;                                                             \
    }
#define FAILING(result, name, parameters, arguments, failed, failure) \
    FAILING_SEEN(result, name, parameters, arguments, failed, failure, (void)0)
// The same of one that takes the mode of a new file where it makes one.
#define FAILING_OPEN(name, parameters, arguments, error)                 \
    int name parameters {                                                \
        static int(*_Atomic real) parameters;                            \
        if (!real) real = dlsym(RTLD_NEXT, #name);                       \
        va_list more;                                                    \
        va_start(more, flags);                                           \
        const mode_t mode = flags & O_CREAT ? va_arg(more, mode_t) : 0;  \
        va_end(more);                                                    \
        if (strstr(path, ".zrq")) works = true;                          \
        const bool made = flags & O_CREAT && access(path, F_OK) != 0;    \
        const int file = fails(Open, error) ? -1 : real arguments;       \
        if (made && file >= 0) note("create", file, path, "", 0, "", 0); \
        return file;                                                     \
    }

FAILING_OPEN(open, (const char* path, int flags, ...), (path, flags, mode), EMFILE)
FAILING_OPEN(open64, (const char* path, int flags, ...), (path, flags, mode), EMFILE)
FAILING_OPEN(openat, (int at, const char* path, int flags, ...), (at, path, flags, mode), EACCES)
FAILING_OPEN(openat64, (int at, const char* path, int flags, ...), (at, path, flags, mode), EACCES)
FAILING_SEEN(int, mkostemp, (char* path, int flags), (path, flags), fails(Open, EMFILE), -1,
             note("create", done, path, "", 0, "", 0))
FAILING_SEEN(int, mkostemp64, (char* path, int flags), (path, flags), fails(Open, EMFILE), -1,
             note("create", done, path, "", 0, "", 0))

int fcntl64(int file, int command, ...) {
    static int (*_Atomic real)(int, int, ...);
    if (!real) real = dlsym(RTLD_NEXT, "fcntl64");
    va_list more;
    va_start(more, command);
    void* const argument = va_arg(more, void*);
    va_end(more);
    return command == F_SETLK && fails(Lock, ENOLCK) ? -1 : real(file, command, argument);
}

#define isFile(file) ((file) > STDERR_FILENO)
FAILING(ssize_t, read, (int file, void* bytes, size_t size), (file, bytes, size),
        isFile(file) && fails(Read, EIO), -1)
FAILING(ssize_t, pread, (int file, void* bytes, size_t size, off_t at), (file, bytes, size, at),
        fails(Read, EIO), -1)
FAILING(ssize_t, pread64, (int file, void* bytes, size_t size, off64_t at), (file, bytes, size, at),
        fails(Read, EIO), -1)
FAILING_SEEN(ssize_t, write, (int file, const void* bytes, size_t size), (file, bytes, size),
             isFile(file) && fails(Write, ENOSPC), -1, note_write(file, bytes, done, start(file, done)))
FAILING_SEEN(ssize_t, pwrite, (int file, const void* bytes, size_t size, off_t at), (file, bytes, size, at),
             fails(Write, ENOSPC), -1, note_write(file, bytes, done, at))
FAILING_SEEN(ssize_t, pwrite64, (int file, const void* bytes, size_t size, off64_t at),
             (file, bytes, size, at), fails(Write, EIO), -1, note_write(file, bytes, done, at))
ssize_t copy_file_range(int from, off64_t* at, int to, off64_t* there, size_t size, unsigned flags) {
    (void)from, (void)at, (void)to, (void)there, (void)size, (void)flags;
    errno = ENOSYS;  // so that what is written is seen
    return -1;
}

FAILING_SEEN(int, fsync, (int file), (file), fails(Flush, EIO), -1, note("flush", file, "", "", 0, "", 0))
FAILING_SEEN(int, fdatasync, (int file), (file), fails(Flush, EIO), -1, note("flush", file, "", "", 0, "", 0))
FAILING_SEEN(int, ftruncate, (int file, off_t size), (file, size), fails(Truncate, EIO), -1,
             note("truncate", file, "", "", size, "", 0))
FAILING_SEEN(int, ftruncate64, (int file, off64_t size), (file, size), fails(Truncate, EIO), -1,
             note("truncate", file, "", "", size, "", 0))
FAILING_SEEN(int, rename, (const char* from, const char* to), (from, to), fails(Rename, EACCES), -1,
             note("rename", -1, from, to, 0, "", 0))
FAILING_SEEN(int, link, (const char* from, const char* to), (from, to), fails(Rename, EACCES), -1,
             note("link", -1, from, to, 0, "", 0))
FAILING_SEEN(int, unlink, (const char* path), (path), fails(Unlink, EACCES), -1,
             note("unlink", -1, path, "", 0, "", 0))

FAILING(void*, mmap, (void* at, size_t size, int protection, int flags, int file, off_t offset),
        (at, size, protection, flags, file, offset), fails(Map, ENOMEM), MAP_FAILED)
FAILING(void*, mmap64, (void* at, size_t size, int protection, int flags, int file, off64_t offset),
        (at, size, protection, flags, file, offset), fails(Map, ENOMEM), MAP_FAILED)
FAILING(int, pthread_create, (pthread_t * thread, const pthread_attr_t* how, void* (*run)(void*), void* with),
        (thread, how, run, with), fails(Thread, EAGAIN), EAGAIN)

// dlsym() allocates: these are called by the names that nothing wraps.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void* malloc(size_t size) {
    return fails(Allocation, ENOMEM) ? NULL : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    return fails(Allocation, ENOMEM) ? NULL : __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
    return fails(Allocation, ENOMEM) ? NULL : __libc_realloc(memory, size);
}
void* aligned_alloc(size_t alignment, size_t size) {
    return fails(Allocation, ENOMEM) ? NULL : __libc_memalign(alignment, size);
}
