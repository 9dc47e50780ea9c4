//   ....+....1....+....2....+....3
// 0 PIE
// 1 IGNORED
// 2 PROFILE MODE EXITED
#include "transactions/mode/profile_mode.h"

#include "transactions/rules.h"

namespace vantro {

namespace {

// The trailing blanks are part of these marks: the words alone at the end of a screen do not count.
constexpr TextView exited = u"PROFILE MODE EXITED     ";
constexpr TextView ignored = u"IGNORED     ";

bool isProfileModeShown(const Screen& screen) { return screen.contains(u"*PROFILE MODE*"); }
bool isProfileModeExited(const Screen& screen) { return screen.contains(exited); }
bool isTransactionEnded(const Screen& screen) { return screen.contains(u"END OF TRANSACTION COMPLETE"); }
bool isIgnored(const Screen& screen) { return screen.contains(ignored); }

// Meant: the exit counts only from 80 characters after the beginning of the first "IGNORED". The position is a 16-bit
// integer.
bool isIgnoredAndExited(const Screen& screen) {
    const Column begin = screen.find(ignored);
    if (begin == Column{0}) return false;
    const Column from{toInt16(static_cast<long long>(begin.value) + screenWidth)};
    screen.watch().decided(rule::modeExitFromNextLine);
    if (screen.watch() && !containsFrom(screen.text(), exited, from) && contains(screen.text(), exited)) {
        screen.watch().decided(rule::modeExitTooEarly);
        return false;
    }
    return screen.find(exited, from) > Column{0};
}

// Meant: only the exit is tested, not the end of the transaction.
bool isExitedAfterUpdate(const Screen& screen) { return isProfileModeExited(screen); }

struct Flags {
    bool update;
    bool exit;
    bool enter;
    bool ignore;

    friend bool operator==(const Flags&, const Flags&) = default;
};

struct Step {
    Flags flags;
    TextView command;
    bool (*isConfirmed)(const Screen& screen);
};

// clang-format off
constexpr Step steps[] = {
    // update  exit   enter  ignore
    {{ false,  false, true,  false }, code::PM,  isProfileModeShown},
    {{ false,  true,  false, false }, code::PME, isProfileModeExited},
    {{ true,   false, false, false }, code::PE,  isTransactionEnded},
    {{ true,   true,  false, false }, code::PEE, isExitedAfterUpdate},
    {{ false,  false, false, true  }, code::PI,  isIgnored},
    {{ false,  true,  false, true  }, code::PIE, isIgnoredAndExited},
};
// clang-format on

const Step* findStep(const Flags& flags) {
    for (const Step& step : steps) {
        if (step.flags == flags) return &step;
    }
    return nullptr;
}

Flags readFlags(Parameters& input) {
    // Braces guarantee the order of the reads.
    return {input.read(key::blnKeyUpdate), input.read(key::blnKeyExit), input.read(key::blnKeyEnter),
            input.read(key::blnKeyIgnore)};
}

}  // namespace

Text CProfileMode::IProfileTrans_CreateCommand(const CollectionPtr& params) {
    Parameters input = parameters(params);
    const Step* const step = findStep(readFlags(input));
    if (step == nullptr) return nothingToSend(rule::modeUnknownStep);
    return Text(step->command);
}

CollectionPtr CProfileMode::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters input = parameters(collection);
    const Step* const step = findStep(readFlags(input));
    Screen screen(terminal(), response);
    bool confirmed = false;
    if (step != nullptr) {
        reportErrors(terminal(), [&] { confirmed = step->isConfirmed(screen); });
    } else {
        screen.watch().decided(rule::modeUnknownStep);
    }

    const TextView message = trimmed(screen.line(std::int16_t{1}));
    Results results(*collection, screen.watch());
    results.add(key::blnKeyResponseOK, confirmed);
    results.add(key::strKeyErrorString, message);  // the host's message, also for a confirmed step
    return collection;
}

}  // namespace vantro
