#include "cli/tool.h"

#ifdef _WIN32

#include "cli/utf.h"

#include <string>
#include <vector>

// Windows hands over UTF-16.
int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> arguments;
    for (int i = 0; i < argc; ++i) {
        const std::wstring wide = argv[i];
        arguments.push_back(vantro::toUtf8(vantro::Text(wide.begin(), wide.end())));
    }
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
    return vantro::runTool(argc, pointers.data());
}

#else

int main(int argc, char** argv) { return vantro::runTool(argc, argv); }

#endif
