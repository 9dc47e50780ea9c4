#include "tests/failures/outcome.h"

#include "tests/support/text.h"

#include <charconv>
#include <new>
#include <stdexcept>

namespace vantro::test {

namespace {

ScreenLines linesOf(TextView screen) {
    constexpr std::size_t width = 80;
    ScreenLines lines;
    for (std::size_t start = 0; start < screen.size(); start += width)
        lines.push_back(utf8(screen.substr(start, width)));
    return lines;
}

/// The requested linked profile; 0 when the index is not a number, because then no reader runs.
int indexIn(const Input& input) {
    int index = 0;
    for (const Entry& entry : input.collection.value_or(Entries{})) {
        if (entry.key != u"strKeyIndex") continue;
        const std::string digits = utf8(std::get<Text>(entry.value));
        std::from_chars(digits.data(), digits.data() + digits.size(), index);
    }
    return index;
}

}  // namespace

std::string described(int number, std::string_view source, std::string_view description) {
    return std::to_string(number) + ' ' + std::string(source) + ": " + std::string(description);
}

std::string described(const Error& error) {
    return described(error.number(), utf8(error.source()), utf8(error.description()));
}

std::string thrownBy(const std::function<void()>& steps) {
    try {
        steps();
    } catch (const Error& error) {
        return described(error);
    } catch (const std::bad_alloc&) {
        return "std::bad_alloc";
    } catch (const std::runtime_error& error) {
        return std::string("std::runtime_error: ") + error.what();
    } catch (int number) {
        return "int " + std::to_string(number);
    }
    return {};
}

std::string thrownAs(FailureKind kind) {
    if (kind == FailureKind::WrongKind) return described(wrongKind.number, ownSource, wrongKind.description);
    return thrownBy([kind] { raise(kind); });
}

std::string reportedAs(FailureKind kind) {
    if (kind == FailureKind::TerminalsError) return thrownAs(kind);
    const Described& failure = kind == FailureKind::OutOfMemory ? outOfMemory : foreignFailure;
    return described(failure.number, ownSource, failure.description);
}

bool Outcome::sameAnswer(const Outcome& other) const {
    return thrown == other.thrown && command == other.command && count == other.count && selection == other.selection &&
           returnedCollection == other.returnedCollection && results == other.results && added == other.added &&
           reports == other.reports && reportArguments == other.reportArguments;
}

Outcome Calling::call() {
    const std::size_t callsBefore = terminal_.calls().size();
    const std::size_t reportsBefore = terminal_.reports().size();
    const auto given = input_.collection ? collection(*input_.collection) : nullptr;
    const CollectionPtr watched = terminal_.watched(given);
    Outcome outcome;
    outcome.thrown = thrownBy([&] {
        Answer answer;
        answer.selection = input_.selection;
        test::call(*object_, input_, watched, answer);
        outcome.command = answer.command;
        outcome.count = answer.count;
        outcome.selection = answer.selection;
        outcome.returnedCollection = answer.collection != nullptr;
        if (outcome.returnedCollection && answer.collection != watched) outcome.results = entriesOf(answer.collection);
    });
    if (given) {
        outcome.added = entriesOf(given);
        outcome.added.erase(outcome.added.begin(),
                            outcome.added.begin() + static_cast<std::ptrdiff_t>(input_.collection->size()));
    }
    const auto first = static_cast<std::ptrdiff_t>(callsBefore);
    outcome.calls.assign(terminal_.calls().begin() + first, terminal_.calls().end());
    for (std::size_t report = reportsBefore; report < terminal_.reports().size(); ++report) {
        const Report& made = terminal_.reports()[report];
        outcome.reports.push_back(described(made.current));
        outcome.reportArguments.push_back(made.given ? described(*made.given) : std::string());
    }
    return outcome;
}

Consequence consequence(const Input& input, const Calls& calls, std::size_t failing) {
    const std::string className = utf8(input.className);
    switch (input.operation) {
        case Operation::CreateCommand: return commandConsequence(transRule(className));
        case Operation::VerifyResponse:
            return answerConsequence(transRule(className), calls, failing, linesOf(input.screen), indexIn(input));
        case Operation::ProfileElements:
            return className == "CProfile" ? queryConsequence(utf8(input.of), calls, failing)
                                           : notesConsequence(calls, failing);
        case Operation::Count: return countConsequence(utf8(input.of));
    }
    throw std::logic_error("no such operation");
}

}  // namespace vantro::test
