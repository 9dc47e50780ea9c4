#include "cli/io/file_lock.h"

#include "cli/io/failure.h"

#ifdef _WIN32
#include "cli/io/path.h"

#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace vantro {

namespace {

[[noreturn]] void refuse(const std::string& file) {
    throw UsageError("another program uses '" + file + "', or it cannot be written; try again when that has ended");
}

}  // namespace

#ifdef _WIN32

FileLock::FileLock(const std::string& file)
    : handle_(
          CreateFileW(pathOf(file).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) refuse(file);
}

FileLock::~FileLock() { CloseHandle(handle_); }

#else

FileLock::FileLock(const std::string& file)
    : descriptor_(open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH)) {
    if (descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
    if (descriptor_ >= 0) close(descriptor_);
    refuse(file);
}

FileLock::~FileLock() { close(descriptor_); }

#endif

}  // namespace vantro
