#include "cli/export/plan.h"

#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/path.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>
#include <unordered_set>

namespace vantro {

namespace {

std::string inFull(std::uint64_t bytes) { return bytes == 0 ? "an unknown number of" : std::to_string(bytes); }

std::string changed(const SourceState& source, std::uint64_t bytes) {
    return "'" + source.name + "' has changed since its export, from " + inFull(source.bytes) + " to " + inFull(bytes) +
           " bytes, and is not read again; export it into another folder or database";
}

std::string standardInputAgain() {
    return "standard input is exported already; export other displays into another folder or database, or from a file";
}

}  // namespace

std::vector<std::string> withoutTarget(std::vector<std::string> files, const std::string& target) {
    const auto fullName = [](const std::string& name) {
        return std::filesystem::absolute(pathOf(name)).lexically_normal().generic_u8string();
    };
    std::u8string own = fullName(target);
    if (own.ends_with(u8'/')) own.pop_back();
    const auto isOwn = [&](const std::string& file) {
        const std::u8string name = isStandardInput(file) ? u8"" : fullName(file);
        if (!name.starts_with(own)) return false;
        const std::u8string_view rest = std::u8string_view(name).substr(own.size());
        // A database has files with further endings beside it while it is written.
        return rest.empty() || rest.starts_with(u8'/') || rest == u8"-wal" || rest == u8"-shm" || rest == u8"-journal";
    };
    std::erase_if(files, isOwn);
    return files;
}

ExportPlan planExport(const ArchiveState& state, const std::vector<std::string>& files) {
    ExportPlan plan;
    std::unordered_map<std::string, const SourceState*> done;
    for (const SourceState& source : state.sources) {
        if (source.isDone) done.emplace(source.name, &source);
    }
    if (!state.sources.empty() && !state.sources.back().isDone) plan.continued = state.sources.back().name;
    if (!plan.continued.empty()) {
        if (std::ranges::find(files, plan.continued) == files.end()) {
            throw UsageError("the export was interrupted in '" + plan.continued + "'; name that file too, so that it " +
                             "is completed");
        }
        plan.files.push_back(plan.continued);
    }
    std::unordered_set<std::string> planned(plan.files.begin(), plan.files.end());
    for (const std::string& file : files) {
        const auto known = done.find(file);
        if (known == done.end()) {
            if (planned.insert(file).second) plan.files.push_back(file);
        } else if (isStandardInput(file)) {
            plan.faults.push_back(standardInputAgain());
        } else if (const std::uint64_t bytes = lengthInAll({file}); bytes != known->second->bytes) {
            plan.faults.push_back(changed(*known->second, bytes));
        } else {
            ++plan.alreadyDone;
        }
    }
    return plan;
}

ExportPlan planCheck(const ArchiveState& state, const std::vector<std::string>& files) {
    ExportPlan plan;
    std::unordered_set<std::string> named(files.begin(), files.end());
    for (const SourceState& source : state.sources) {
        if (named.erase(source.name) > 0) plan.files.push_back(source.name);
    }
    for (const std::string& file : files) {
        if (named.erase(file) > 0) plan.faults.push_back("source " + file + ": it is not exported");
    }
    return plan;
}

}  // namespace vantro
