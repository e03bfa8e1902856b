// Loaded into the tool before the C library: logs how it creates, flushes and renames files, and fails one call.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

template <class Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Logs the call with the permissions of the file. True if it has to fail.
bool Log(const char* call, const char* name, bool exclusively, const struct stat& file) {
    if (FILE* const log = std::fopen(std::getenv("FILE_CALLS_LOG"), "a")) {
        std::fprintf(log, "%s %s%s%03o %ld\n", call, name, exclusively ? " exclusively " : " ",
                     file.st_mode & 0777u, static_cast<long>(file.st_size));
        std::fclose(log);
    }
    const char* const failing = std::getenv("FILE_CALLS_FAIL");
    return failing != nullptr && std::string_view(failing) == call;
}

} // namespace

extern "C" int open(const char* name, int flags, ...) {
    va_list list;
    va_start(list, flags);
    const int file = Real<int(const char*, int, ...)>("open")(name, flags, va_arg(list, mode_t));
    va_end(list);
    if (struct stat status{}; std::string_view(name).ends_with(".new") && fstat(file, &status) == 0) {
        Log("open", name, (flags & O_EXCL) != 0 && (flags & O_CREAT) != 0, status);
    }
    return file;
}

extern "C" int fsync(int file) {
    struct stat status {};

    fstat(file, &status);
    if (Log("flush", "", false, status)) {
        errno = ENOSPC;
        return -1;
    }
    return Real<int(int)>("fsync")(file);
}

extern "C" int rename(const char* from, const char* to) noexcept {
    struct stat status {};

    stat(from, &status);
    if (Log("rename", from, false, status)) {
        errno = EACCES;
        return -1;
    }
    return Real<int(const char*, const char*)>("rename")(from, to);
}
