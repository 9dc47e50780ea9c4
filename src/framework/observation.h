// What is noted while a call is observed. Readers speak to a `Watch`, which does nothing unless somebody observes.
#pragma once

#include "framework/int16.h"
#include "framework/source_map.h"
#include "vantro/observer.h"

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace vantro {

/// The observation of the calls of one terminal library: the observer, and where the texts of the current call are.
class Observation {
public:
    explicit Observation(ReadingObserver& observer) : observer_(observer) {}

    void pass(const ReadingStep& step) { observer_.observe(step); }

    /// Locates the text and passes the step with its pieces.
    void passLocated(ReadingStep step, TextView located);

    SourceMap& sources() { return sources_; }

    /// The outermost call forgets the texts of the call before it.
    void enter() {
        if (depth_++ == 0) sources_.clear();
    }
    void leave() noexcept { --depth_; }

private:
    ReadingObserver& observer_;
    SourceMap sources_;
    std::vector<ValuePiece> pieces_;
    int depth_ = 0;
};

/// A part of a joined text: of the screen, or inserted between two others.
struct JoinedPart {
    TextView text;
    bool isInserted;
};

/// What a reader says while it reads. Every function does nothing unless the call is observed.
class Watch {
public:
    Watch() = default;
    explicit Watch(const Terminal& terminal) : observation_(terminal.observation()) {}

    /// The same for a terminal that may be null.
    explicit Watch(const Terminal* terminal) : observation_(terminal != nullptr ? terminal->observation() : nullptr) {}

    /// Whether the call is observed. Readers test it only where the arguments themselves cost something.
    explicit operator bool() const { return observation_ != nullptr; }

    /// A rule that decided about a line, or about a search.
    void decided(const ReadingRule& rule, Counter line) const {
        if (observation_ != nullptr) decide(rule, line.value() + firstLine_, {});
    }
    void decided(const ReadingRule& rule, Counter line, Family family) const {
        if (observation_ != nullptr) decide(rule, line.value() + firstLine_, family);
    }
    void decided(const ReadingRule& rule) const {
        if (observation_ != nullptr) decide(rule, noLine, {});
    }

    /// A mark that was searched for in a range of lines, inclusive, and where it was found: a view of the screen, empty
    /// if it was not found.
    void searched(TextView mark, MarkSearch search, int first, int last, TextView found) const {
        if (observation_ != nullptr) passSearch(mark, search, first, last, found);
    }

    /// A mark that was searched for on the whole screen.
    void searched(TextView mark, MarkSearch search, TextView found) const {
        if (observation_ != nullptr) passSearch(mark, search, noLine, noLine, found);
    }

    /// A value that was cut from the screen; its texts are as the headers name them.
    void read(TextView name, TextView value, std::int32_t index = 0) const {
        if (observation_ != nullptr) passValue(name, value, index, {});
    }
    /// The same with a literal, whose length is not counted while the program runs.
    template <std::size_t N>
    void read(const char16_t (&name)[N], TextView value, std::int32_t index = 0) const {
        if (observation_ != nullptr) passValue({name, N - 1}, value, index, {});
    }
    void read(TextView name, TextView value, std::int32_t index, Family family) const {
        if (observation_ != nullptr) passValue(name, value, index, family);
    }

    void queryBegins(TextView word, std::optional<Family> family = {}) const {
        if (observation_ != nullptr) passQuery(StepKind::QueryBegins, word, family, nullptr);
    }
    void queryEnds(TextView word, std::optional<Family> family = {}, const Error* error = nullptr) const {
        if (observation_ != nullptr) passQuery(StepKind::QueryEnds, word, family, error);
    }
    void keyRead(TextView key, TextView value) const {
        if (observation_ != nullptr) passKey(key, value);
    }

    // A key that is about to be added
    void textAdded(TextView key, TextView value) const {
        if (observation_ != nullptr) passText(key, value);
    }
    template <class Value>
    void valueAdded(TextView key, Value value) const {
        if (observation_ != nullptr) passAdded(key, ItemValue(std::in_place_type<Value>, value));
    }
    void listAdded(TextView key, const TextList& value) const {
        if (observation_ != nullptr) passList(key, value);
    }
    void reported(const Error& error) const {
        if (observation_ != nullptr) passReported(error);
    }

    // Where texts are

    /// The text that a reader reads as its screen, whole or without the lines above it. Lines count from its first one.
    void readsScreen(TextView screen) {
        if (observation_ != nullptr) addScreen(screen);
    }

    /// A line that the terminal returned.
    void fetched(TextView line, std::int16_t number) const {
        if (observation_ != nullptr) observation_->sources().addLine(line, number + firstLine_);
    }

    /// A copy of a text. It must be where it is as long as it is read, at most until the call ends. An original of
    /// another length, such as an empty one, means that the screen does not contain the text.
    void copied(TextView copy, TextView original) const {
        if (observation_ != nullptr) addCopy(copy, original);
    }

    /// A text that consists of these parts.
    void joined(TextView text, std::span<const JoinedPart> parts) const {
        if (observation_ != nullptr) addJoined(text, parts);
    }

private:
    void decide(const ReadingRule& rule, std::int32_t line, std::optional<Family> family) const;
    void passSearch(TextView mark, MarkSearch search, int first, int last, TextView found) const;
    void passValue(TextView name, TextView value, std::int32_t index, std::optional<Family> family) const;
    void passQuery(StepKind kind, TextView word, std::optional<Family> family, const Error* error) const;
    void passKey(TextView key, TextView value) const;
    void passText(TextView key, TextView value) const;
    void passAdded(TextView key, const ItemValue& value) const;
    void passList(TextView key, const TextList& value) const;
    void passReported(const Error& error) const;
    void addScreen(TextView screen);
    void addCopy(TextView copy, TextView original) const;
    void addJoined(TextView text, std::span<const JoinedPart> parts) const;

    Observation* observation_ = nullptr;
    std::int32_t firstLine_ = 0;  // the line of the whole screen with which the text that is read begins
};

/// Runs a part of a call between the steps with which it begins and ends. `say` receives the error that leaves it, or
/// null.
template <class Say, class Body>
auto sayingEnd(Say say, Body&& body) -> decltype(body()) {
    try {
        if constexpr (std::is_void_v<decltype(body())>) {
            std::forward<Body>(body)();
            say(nullptr);
        } else {
            auto result = std::forward<Body>(body)();
            say(nullptr);
            return result;
        }
    } catch (...) {
        const Error error = currentError();
        say(&error);
        throw;
    }
}

/// Runs one query of a display, with the steps with which it begins and ends.
template <class Body>
auto observedQuery(const Watch& watch, TextView word, std::optional<Family> family, Body&& body) -> decltype(body()) {
    if (!watch) [[likely]]
        return std::forward<Body>(body)();
    watch.queryBegins(word, family);
    return sayingEnd([&](const Error* error) { watch.queryEnds(word, family, error); }, std::forward<Body>(body));
}

/// Runs a call between the steps with which it begins and ends. Not a template, to be out of the way of calls that
/// nobody observes.
void runObserved(Observation& observation, TextView name, TextView screen, const std::function<void()>& body);

/// Runs an operation, with the steps with which it begins and ends. The terminal may be null.
template <class Body>
auto observed(const Terminal* terminal, TextView name, TextView screen, Body&& body) -> decltype(body()) {
    Observation* const observation = terminal != nullptr ? terminal->observation() : nullptr;
    if (observation == nullptr) [[likely]]
        return std::forward<Body>(body)();
    if constexpr (std::is_void_v<decltype(body())>) {
        runObserved(*observation, name, screen, [&body] { body(); });
    } else {
        std::optional<decltype(body())> result;
        runObserved(*observation, name, screen, [&body, &result] { result = body(); });
        return *std::move(result);
    }
}

}  // namespace vantro
