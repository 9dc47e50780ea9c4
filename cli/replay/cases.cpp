#include "cli/replay/cases.h"

#include "cli/io/failure.h"
#include "cli/io/file_list.h"
#include "cli/io/input_files.h"
#include "cli/io/output_file.h"
#include "cli/io/path.h"
#include "cli/io/screen_input.h"
#include "cli/replay/expectation.h"
#include "cli/replay/rewrite.h"

#include <chrono>
#include <filesystem>
#include <set>

namespace vantro {

namespace {

namespace fs = std::filesystem;

std::string nameOf(const fs::path& path) {
    const std::u8string name = path.generic_u8string();
    return {name.begin(), name.end()};
}

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

/// The folder that stands beside the file's folder, if that has the first name.
fs::path folderBeside(const fs::path& file, const char* name, const char* beside) {
    const fs::path folder = file.parent_path();
    if (folder.filename() == name) return folder.parent_path() / beside;
    const bool isHere = folder.empty() && fs::current_path().filename() == name;
    return isHere ? fs::path("..") / beside : fs::path();
}

SampleCase display(const fs::path& file, const fs::path& expectation) {
    return {nameOf(file), nameOf(expectation), ""};
}

class CaseSearch {
public:
    std::vector<SampleCase> run(const std::vector<std::string>& arguments) {
        for (const std::string& argument : arguments) {
            std::error_code ignored;
            const bool isFolder = fs::is_directory(pathOf(argument), ignored);
            if (!isFolder) take(argument, true);
            if (!isFolder) continue;
            for (const std::string& file : withFilesOfFolders({argument})) take(file, false);
        }
        if (!cases_.empty()) return std::move(cases_);
        throw UsageError(
            "there is no case: no NAME.exchange, and no display NAME.txt with its expectation NAME.json beside it or "
            "in ../expected");
    }

private:
    void take(const std::string& name, bool isNamed) {
        const fs::path file = pathOf(name);
        if (file.extension() == ".exchange") return add({name, name, ""});
        if (file.extension() == ".txt") return takeDisplay(file, isNamed);
        if (file.extension() == ".json") return takeExpectation(file, isNamed);
        if (isNamed) add({name, name, isThere(file) ? notACase : "there is no such file or folder"});
    }

    void takeDisplay(const fs::path& file, bool isNamed) {
        const fs::path beside = fs::path(file).replace_extension(".json");
        if (isThere(beside)) return add(display(file, beside));
        const fs::path folder = folderBeside(file, "profiles", "expected");
        if (!folder.empty() && isThere(folder)) {
            const fs::path expectation = folder / beside.filename();
            return add({nameOf(file), nameOf(expectation),
                        isThere(expectation) ? "" : "there is no expectation " + nameOf(expectation)});
        }
        if (isNamed) add({nameOf(file), nameOf(file), notACase});
    }

    void takeExpectation(const fs::path& file, bool isNamed) {
        const fs::path name = fs::path(file.filename()).replace_extension(".txt");
        const fs::path beside = file.parent_path() / name;
        if (isThere(beside)) return add(display(beside, file));
        const fs::path folder = folderBeside(file, "expected", "profiles");
        if (!folder.empty() && isThere(folder)) {
            if (isThere(folder / name)) return add(display(folder / name, file));
            return add({nameOf(file), nameOf(file), "there is no display " + nameOf(folder / name)});
        }
        if (isNamed) add({nameOf(file), nameOf(file), notACase});
    }

    void add(SampleCase found) {
        if (seen_.insert(pathOf(found.file).lexically_normal()).second) cases_.push_back(std::move(found));
    }

    static constexpr const char* notACase =
        "neither an exchange (NAME.exchange) nor a display with an expectation (NAME.txt with NAME.json beside it or "
        "in ../expected)";

    std::set<fs::path> seen_;
    std::vector<SampleCase> cases_;
};

/// What running a case found out.
struct Finding {
    std::vector<Difference> differences;
    std::string text;      // of the expectation
    std::string accepted;  // the same, expecting what came
};

Finding runExchange(const SampleCase& sample) {
    Finding finding;
    finding.text = readAll(sample.file, defaultMaxLine);
    const Exchange steps = parseExchange(finding.text);
    ExchangePlayer player;
    std::vector<StepOutcome> outcomes;
    for (const ExchangeStep& step : steps) {
        outcomes.push_back(player.play(step));
        for (Difference& found : differencesOf(step, outcomes.back())) finding.differences.push_back(std::move(found));
    }
    finding.accepted = withOutcomes(finding.text, steps, outcomes);
    return finding;
}

Text readDisplay(const std::string& file) {
    const std::string text = readAll(file, defaultMaxLine);
    try {
        return screenFromText(text);
    } catch (const UsageError& problem) {
        throw UsageError(file + ": " + problem.what());
    }
}

Finding runDisplay(const SampleCase& sample) {
    Finding finding;
    const Text display = readDisplay(sample.file);
    finding.text = readAll(sample.expectation, defaultMaxLine);
    try {
        ExpectationResult compared = compareWithExpectation(finding.text, display);
        finding.differences = std::move(compared.differences);
        finding.accepted = edited(finding.text, compared.edits);
    } catch (const UsageError& problem) {
        throw UsageError(sample.expectation + ": " + problem.what());
    }
    return finding;
}

void run(CaseResult& result) {
    const SampleCase& sample = result.sample;
    if (!sample.problem.empty()) throw UsageError(sample.problem);
    Finding finding = sample.file == sample.expectation ? runExchange(sample) : runDisplay(sample);
    if (finding.differences.empty()) return;
    result.status = CaseStatus::Failed;
    result.differences = std::move(finding.differences);
    result.text = std::move(finding.text);
    result.accepted = std::move(finding.accepted);
}

}  // namespace

std::vector<SampleCase> casesIn(const std::vector<std::string>& arguments) { return CaseSearch().run(arguments); }

CaseResult runCase(const SampleCase& sample) {
    const auto start = std::chrono::steady_clock::now();
    CaseResult result{.sample = sample};
    try {
        run(result);
    } catch (const std::runtime_error& problem) {
        result.status = CaseStatus::Broken;
        result.problem = problem.what();
    }
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return result;
}

void accept(CaseResult& result) {
    try {
        replaceText(result.sample.expectation, result.text, result.accepted);
        result.status = CaseStatus::Accepted;
    } catch (const std::runtime_error& problem) {
        result.problem = problem.what();
    }
}

}  // namespace vantro
