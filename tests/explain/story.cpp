#include "tests/explain/story.h"

#include "tests/support/exchange_file.h"
#include "tests/support/text.h"
#include "vantro/built_in_terminal.h"
#include "vantro/screen_lines.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vantro::test {

namespace {

const std::filesystem::path samples = std::filesystem::path(VANTRO_SOURCE_DIR) / "samples";

}  // namespace

Explanation story(TextView screen, std::initializer_list<ReadingStep> steps) {
    Explanation explanation;
    explanation.observe({.kind = StepKind::CallBegins, .name = u"parseProfile", .text = screen});
    for (const ReadingStep& step : steps) explanation.observe(step);
    explanation.observe({.kind = StepKind::CallEnds, .name = u"parseProfile"});
    return explanation;
}

Explanation explained(const Text& display) {
    Explanation explanation;
    parseProfile(display, explanation);
    return explanation;
}

Text sampleDisplay(const std::string& name) {
    std::ifstream file(samples / "profiles" / (name + ".txt"), std::ios::binary);
    if (!file) throw std::runtime_error("no such sample: " + name);
    std::ostringstream text;
    text << file.rdbuf();
    return joinLines(wide(text.str())).screen;
}

std::vector<std::string> sampleNames() {
    std::vector<std::string> names;
    for (const auto& file : filesIn(samples / "profiles", ".txt")) names.push_back(file.stem().string());
    return names;
}

std::vector<SampleScreen> sampleScreens() {
    std::vector<SampleScreen> screens;
    for (const auto& file : filesIn(samples / "exchanges", ".exchange")) {
        for (const auto& step : readExchange(file)) {
            if (step.screen) screens.push_back({file.stem().string(), step.className, *step.screen});
        }
    }
    return screens;
}

Explanation explained(const SampleScreen& sample) {
    Explanation explanation;
    BuiltInTerminal terminal;
    ObservedTerminal observed(terminal, &explanation);
    try {
        createObject(sample.className, observed)->profileTrans()->VerifyResponse(sample.screen, {});
    } catch (const Error&) {  // the call needs a collection
        return explanation;
    }
    return explanation;
}

std::vector<std::string> sentencesOf(const std::vector<LookAlike>& lookAlikes) {
    std::vector<std::string> sentences;
    for (const LookAlike& lookAlike : lookAlikes) sentences.push_back(utf8(sentenceOf(lookAlike)));
    return sentences;
}

}  // namespace vantro::test
