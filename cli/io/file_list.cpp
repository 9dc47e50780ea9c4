#include "cli/io/file_list.h"

#include "cli/io/failure.h"
#include "cli/io/input_files.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace vantro {

namespace {

namespace fs = std::filesystem;

std::string nameOf(const fs::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

bool isHidden(const fs::path& path) { return nameOf(path.filename()).starts_with('.'); }

std::vector<std::string> filesIn(const fs::path& folder) {
    std::vector<std::string> files;
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::recursive_directory_iterator(); ++entry) {
        if (isHidden(entry->path())) {
            entry.disable_recursion_pending();
        } else if (!entry->is_directory()) {
            files.push_back(nameOf(entry->path()));
        }
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

std::vector<std::string> withFilesOfFolders(const std::vector<std::string>& arguments) {
    std::vector<std::string> files;
    for (const std::string& argument : arguments) {
        const fs::path path = std::u8string(argument.begin(), argument.end());
        std::error_code ignored;
        if (isStandardInput(argument) || !fs::is_directory(path, ignored)) {
            files.push_back(argument);
            continue;
        }
        try {
            const std::vector<std::string> found = filesIn(path);
            if (found.empty()) throw UsageError("the folder '" + argument + "' contains no file");
            files.insert(files.end(), found.begin(), found.end());
        } catch (const fs::filesystem_error& problem) {
            throw UsageError("cannot read the folder '" + argument + "': " + problem.code().message());
        }
    }
    return files;
}

std::vector<std::string> namesInList(const std::string& list, bool isZeroSeparated) {
    const char separator = isZeroSeparated ? '\0' : '\n';
    std::vector<std::string> names;
    for (std::string_view rest = list; !rest.empty();) {
        const std::size_t end = std::min(rest.find(separator), rest.size());
        std::string_view name = rest.substr(0, end);
        if (!isZeroSeparated && name.ends_with('\r')) name.remove_suffix(1);
        if (!name.empty()) names.emplace_back(name);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return names;
}

}  // namespace vantro
