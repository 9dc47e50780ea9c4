// Explanations for tests: made step by step, or of calls that were observed.
#pragma once

#include "vantro/explanation.h"

#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

namespace vantro::test {

/// A call of an operation with this screen that passes these steps.
Explanation story(TextView screen, std::initializer_list<ReadingStep> steps);

/// `parseProfile`, observed.
Explanation explained(const Text& display);

/// A display of samples/profiles, by its name without extension.
Text sampleDisplay(const std::string& name);

/// The names of these displays, sorted.
std::vector<std::string> sampleNames();

/// A screen of a sample exchange, with the class that reads it.
struct SampleScreen {
    std::string name;  ///< of the exchange
    Text className;
    Text screen;
};

/// The screens of samples/exchanges in the order of the files.
std::vector<SampleScreen> sampleScreens();

/// What a class reads on a screen, observed; without state. An error that it raises is in the explanation.
Explanation explained(const SampleScreen& sample);

/// The texts of the look-alikes.
std::vector<std::string> sentencesOf(const std::vector<LookAlike>& lookAlikes);

}  // namespace vantro::test
