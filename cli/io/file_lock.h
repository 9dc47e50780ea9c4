// A file that one program at a time holds.
#pragma once

#include <string>

namespace vantro {

/// While an instance exists, no other program can make one for the same file. The system gives the file back when a
/// program ends in whatever way.
class FileLock {
public:
    /// Makes the file (its name in UTF-8) if there is none. Raises UsageError if another program has it, or if it
    /// cannot be made.
    explicit FileLock(const std::string& file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
#ifdef _WIN32
    void* handle_;
#else
    int descriptor_;
#endif
};

}  // namespace vantro
