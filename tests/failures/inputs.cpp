#include "tests/failures/inputs.h"

#include "tests/support/exchange_file.h"
#include "tests/support/failure_rules.h"
#include "tests/support/text.h"

#include <fstream>
#include <stdexcept>

namespace vantro::test {

namespace {

const std::filesystem::path samples = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples";

std::string nameOf(const std::filesystem::path& file, const ExchangeStep& step, const char* what) {
    return file.stem().string() + ", line " + std::to_string(step.line) + ", " + what;
}

bool isIndexed(std::string_view prefix) {
    return prefix.size() == 2 || prefix == "FFN" || prefix == "PPR" || prefix == "PPS" || prefix == "PGL";
}

Input query(const std::string& sample, Text className, std::string_view prefix, Entries further) {
    Entries request{{u"strKeyPrefix", wide(prefix)}};
    request.insert(request.end(), further.begin(), further.end());
    return {sample + " asked for \"" + std::string(prefix) + '"',
            std::move(className),
            Operation::ProfileElements,
            wide(prefix),
            request,
            sampleDisplay(sample),
            {u"S  RM", u"a  SR", u""},
            u"RM"};
}

}  // namespace

Text sampleDisplay(const std::string& sample) {
    if (sample == emptyDisplay) return {};
    std::ifstream file(samples / "profiles" / (sample + ".txt"));
    if (!file) throw std::runtime_error("no sample " + sample);
    constexpr std::size_t width = 80;
    Text text;
    std::size_t lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        text.resize(lines * width, u' ');
        text += wide(line);
    }
    return text;
}

std::vector<Input> exchangeInputs() {
    std::vector<Input> inputs;
    for (const auto& file : filesIn(samples / "exchanges", ".exchange")) {
        std::optional<Entries> previous;
        for (const ExchangeStep& step : readExchange(file)) {
            if (step.command) {
                inputs.push_back({nameOf(file, step, "command"),
                                  step.className,
                                  Operation::CreateCommand,
                                  {},
                                  entriesOf(step.params),
                                  {}});
            }
            if (!step.screen) continue;
            inputs.push_back({nameOf(file, step, "screen"),
                              step.className,
                              Operation::VerifyResponse,
                              {},
                              step.statePrevious ? previous : entriesOf(step.params),
                              *step.screen});
            if (step.count) {
                inputs.push_back(
                    {nameOf(file, step, "count"), step.className, Operation::Count, u"RecLocCount", {}, *step.screen});
            }
            if (step.results->kind == ExchangeResults::Kind::Collection) {
                previous = entriesOf(step.results->entries);
            }
        }
    }
    return inputs;
}

std::vector<Input> queryInputs(const std::string& sample) {
    std::vector<Input> inputs;
    for (const FamilyRule& rule : familyRules) {
        Entries index;
        if (isIndexed(rule.prefix)) index.emplace_back(u"intKeyIndex", 1);
        inputs.push_back(query(sample, u"CProfile", rule.prefix, index));
    }
    inputs.push_back(query(sample, u"CProfile", "PPR", {}));
    for (const std::string_view prefix : plainQueries) inputs.push_back(query(sample, u"CProfile", prefix, {}));
    for (const char16_t* const searchString : {u"", u"E"}) {
        inputs.push_back(query(sample, u"CProfileNotes", "ProfileNotes", {{u"strSearchString", searchString}}));
    }
    for (const std::string_view prefix : {"", "UNKNOWN"}) {
        inputs.push_back(query(sample, u"CProfileNotes", prefix, {}));
    }
    return inputs;
}

std::vector<Input> countInputs(const std::string& sample) {
    std::vector<Input> inputs;
    for (const FamilyRule& rule : familyRules) {
        const std::string property(rule.property);
        inputs.push_back(
            {sample + ", " + property, u"CProfile", Operation::Count, wide(property), {}, sampleDisplay(sample)});
    }
    for (const char16_t* const searchString : {u"", u"E"}) {
        inputs.push_back({sample + ", notes",
                          u"CProfileNotes",
                          Operation::Count,
                          u"ProfileNotesElementsCount",
                          {},
                          sampleDisplay(sample),
                          {},
                          {},
                          searchString});
    }
    return inputs;
}

void call(ProfileObject& object, const Input& input, const CollectionPtr& collection, Answer& answer) {
    switch (input.operation) {
        case Operation::CreateCommand: answer.command = object.profileTrans()->CreateCommand(collection); break;
        case Operation::VerifyResponse:
            answer.collection = object.profileTrans()->VerifyResponse(input.screen, collection);
            break;
        case Operation::ProfileElements:
            answer.collection =
                object.profileGet()->ProfileElements(input.screen, collection, &answer.selection, input.qualifier);
            break;
        case Operation::Count:
            answer.count =
                findCount(*findClass(input.className), input.of)->call(object, {input.screen, input.searchString, {}});
            break;
    }
}

}  // namespace vantro::test
