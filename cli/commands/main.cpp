// The tool as a process: arguments, streams and exit status.
#include "cli/commands/command_line.h"
#include "cli/io/failure.h"
#include "cli/io/interrupt.h"
#include "cli/io/standard_io.h"

#include <exception>

namespace {

// The arguments are UTF-8. Returns the exit status.
int runTool(int argc, const char* const* argv) {
    using namespace vantro;
    useBinaryStreams();
    tameInterrupts();
    try {
        return runCommandLine(argc, argv);
    } catch (const UsageError& problem) {
        complain(problem.what());
        return badUsage;
    } catch (const Error& raised) {
        complain("the call failed with " + describe(raised));
        return callFailed;
    } catch (const ClosedPipe&) {
        return outputClosed;
    } catch (const std::exception& problem) {
        complain(problem.what());
        return callFailed;
    }
}

}  // namespace

#ifdef _WIN32

#include "cli/io/utf.h"

#include <string>
#include <vector>

// Windows passes arguments in UTF-16.
int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> arguments;
    for (int i = 0; i < argc; ++i) {
        const std::wstring wide = argv[i];
        arguments.push_back(vantro::toUtf8(vantro::Text(wide.begin(), wide.end())));
    }
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
    return runTool(argc, pointers.data());
}

#else

#include <cstdlib>  // defines __GLIBC__ where it applies

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

// Texts of some hundred kilobytes are allocated and freed all the time: their memory is not returned to the system.
void keepFreedMemory() {
#if defined(__GLIBC__)
    constexpr int mebibyte = 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, 32 * mebibyte);
    mallopt(M_TRIM_THRESHOLD, 128 * mebibyte);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    keepFreedMemory();
    return runTool(argc, argv);
}

#endif
