#include "fuzz/seeds.h"

#include "fuzz/common/input.h"
#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/registry.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace vantro::fuzz {

namespace {

namespace fs = std::filesystem;

const fs::path root = VANTRO_SOURCE_DIR;

/// Longer inputs are slow.
constexpr std::size_t longest = 4000;

std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

char letter(std::size_t choice) { return static_cast<char>('A' + choice); }

/// Adds no end and uses the host's line width: the eighth choice of three letters.
constexpr std::string_view noEnd = "AHA";

std::size_t numberOf(TextView className) {
    std::size_t number = 0;
    for (const ClassRow& row : classTable()) {
        if (row.name == className) break;
        number += row.hasProfileTrans ? 1 : 0;
    }
    return number;
}

std::string plain(TextView text) {
    std::string bytes;
    for (const char16_t unit : text) bytes.push_back(unit < 0x80 ? static_cast<char>(unit) : '\xE5');
    return bytes;
}

std::string linesOf(TextView screen) {
    constexpr std::size_t width = 80;
    std::string lines;
    for (std::size_t start = 0; start < screen.size(); start += width) {
        std::string line = plain(screen.substr(start, width));
        const std::size_t end = line.find_last_not_of(' ');
        line.resize(end == std::string::npos ? 0 : end + 1);
        lines += (start > 0 ? "\n" : "") + line;
    }
    return lines;
}

// The keys that readers take from a state, in the order of the target's list.
std::string fieldsOf(const test::Entries& params) {
    constexpr TextView keys[] = {u"blnKeyEndOfBlock", u"strKeyRecLocPos", u"strKeyIndex",  u"blnKeyUpdate",
                                 u"blnKeyExit",       u"blnKeyEnter",     u"blnKeyIgnore", u"strCommand"};
    std::string fields;
    for (const test::Entry& entry : params) {
        const auto key = std::ranges::find(keys, TextView(entry.key));
        if (key == std::end(keys)) continue;
        fields += {';', letter(static_cast<std::size_t>(key - std::begin(keys)))};
        if (const auto* truth = std::get_if<bool>(&entry.value)) fields += *truth ? "b" : "bx";
        if (const auto* text = std::get_if<Text>(&entry.value)) fields += "t" + plain(*text);
    }
    return fields.empty() ? ";" : fields;
}

std::vector<std::string> seedsOfExchanges() {
    std::vector<std::string> seeds;
    for (const fs::path& file : test::filesIn(root / "samples" / "exchanges", ".exchange")) {
        for (const ExchangeStep& step : test::readExchange(file)) {
            if (!step.screen) continue;
            const std::string lines = linesOf(*step.screen);
            // A continuation is a screen after the previous one.
            if (step.statePrevious && !seeds.empty()) seeds.push_back(seeds.back() + "\n\f\n" + lines);
            seeds.push_back(letter(numberOf(step.className)) + std::string(noEnd) +
                            (step.params ? fieldsOf(test::entriesOf(*step.params)) : "") + "\n" + lines);
        }
    }
    return seeds;
}

/// Every display with each of this many queries.
std::vector<std::string> seedsOfDisplays(std::size_t queries) {
    std::vector<std::string> seeds;
    for (const fs::path& file : test::filesIn(root / "samples" / "profiles", ".txt")) {
        const std::string lines = contents(file);
        if (lines.size() > longest) continue;
        for (std::size_t query = 0; query < queries; ++query) {
            seeds.push_back(std::string("AAA") + letter(query) + ";Ai1;+rm;+S  ap\n" + lines);
        }
    }
    return seeds;
}

std::vector<std::string> seedsOfBatches() {
    std::vector<std::string> seeds{contents(root / "tests" / "com" / "batch.jsonl")};
    std::istringstream lines(seeds.front());
    for (std::string line; std::getline(lines, line);) seeds.push_back(line);
    return seeds;
}

}  // namespace

std::vector<std::string> sampleSeeds(std::string_view target) {
    if (target == "transactions") return seedsOfExchanges();
    if (target == "profile_queries") return seedsOfDisplays(37);
    if (target == "whole_profile") return seedsOfDisplays(1);
    if (target == "batch_lines") return seedsOfBatches();
    return {};
}

std::vector<KeptInput> keptInputs(std::string_view folder, std::string_view target) {
    std::vector<KeptInput> inputs;
    const fs::path position = root / "fuzz" / folder / target;
    if (!fs::is_directory(position)) return inputs;
    for (const auto& entry : fs::directory_iterator(position)) {
        inputs.push_back({entry.path().filename().string(), contents(entry.path())});
    }
    std::ranges::sort(inputs, {}, &KeptInput::name);
    return inputs;
}

Bytes bytesOf(std::string_view input) { return {reinterpret_cast<const std::uint8_t*>(input.data()), input.size()}; }

}  // namespace vantro::fuzz
