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

std::string brokenOff(const std::string& file, const std::string& problem) {
    return "'" + file + "' is exported as far as it could be read: " + problem;
}

std::string standardInputAgain() {
    return "standard input is exported already; export other displays into another folder or database, or from a file";
}

std::string utf8Of(const std::u8string& text) { return {text.begin(), text.end()}; }

/// The files that an export consists of.
std::vector<std::string> filesOf(const std::string& target) {
    std::vector<std::string> files;
    if (isDatabase(target)) {
        for (const char* const ending : {"", "-wal", "-shm", "-journal"}) files.push_back(target + ending);
        return files;
    }
    for (const TableFacts& table : exportTables()) files.push_back(target + "/" + std::string(table.name) + ".csv");
    for (const char* const name : {"sources.csv", "runs.csv", "export.state", "export.lock"}) {
        files.push_back(target + "/" + name);
    }
    return files;
}

std::string fullName(const std::string& file) {
    return utf8Of(std::filesystem::absolute(pathOf(file)).lexically_normal().generic_u8string());
}

}  // namespace

std::vector<std::string> sourcesFor(const std::string& target, const std::vector<std::string>& files) {
    std::unordered_set<std::string> own;
    for (const std::string& file : filesOf(target)) own.insert(fullName(file));
    std::vector<std::string> sources;
    for (const std::string& file : files) {
        if (isStandardInput(file)) {
            sources.emplace_back("-");
        } else if (!own.contains(fullName(file))) {
            sources.push_back(utf8Of(pathOf(file).lexically_normal().generic_u8string()));
        }
    }
    return sources;
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
            throw UsageError("the export was interrupted in '" + inputName(plan.continued) +
                             "'; name that file too, so that it is completed");
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
            if (const std::string& problem = known->second->problem; !problem.empty()) {
                plan.faults.push_back(brokenOff(file, problem));
            }
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
