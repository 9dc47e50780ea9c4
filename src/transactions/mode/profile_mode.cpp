//   ....+....1....+....2....+....3
// 0 PIE
// 1 IGNORED
// 2 PROFILE MODE EXITED
#include "transactions/mode/profile_mode.h"

namespace vantro {

namespace {

// The trailing blanks are part of these marks: the words alone at the end of a screen do not count.
constexpr TextView exited = u"PROFILE MODE EXITED     ";
constexpr TextView ignored = u"IGNORED     ";

bool isProfileModeShown(TextView response) { return contains(response, u"*PROFILE MODE*"); }
bool isProfileModeExited(TextView response) { return contains(response, exited); }
bool isTransactionEnded(TextView response) { return contains(response, u"END OF TRANSACTION COMPLETE"); }
bool isIgnored(TextView response) { return contains(response, ignored); }

// Meant: the exit counts only from 80 characters after the beginning of the first "IGNORED". The position is a 16-bit
// integer.
bool isIgnoredAndExited(TextView response) {
    const Column begin = find(response, ignored);
    if (begin == Column{0}) return false;
    return containsFrom(response, exited, Column{toInt16(static_cast<long long>(begin.value) + screenWidth)});
}

// Meant: only the exit is tested, not the end of the transaction.
bool isExitedAfterUpdate(TextView response) { return isProfileModeExited(response); }

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
    bool (*isConfirmed)(TextView response);
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
    if (step == nullptr) return {};
    return Text(step->command);
}

CollectionPtr CProfileMode::IProfileTrans_VerifyResponse(TextView response, const CollectionPtr& collection) {
    if (response.empty()) return {};
    Parameters input = parameters(collection);
    const Step* const step = findStep(readFlags(input));
    bool confirmed = false;
    if (step != nullptr) reportErrors(terminal(), [&] { confirmed = step->isConfirmed(response); });

    Screen screen(terminal(), response);
    const TextView message = trimmed(screen.line(std::int16_t{1}));
    Results results(*collection, screen.watch());
    results.add(key::blnKeyResponseOK, confirmed);
    results.add(key::strKeyErrorString, message);  // the host's message, also for a confirmed step
    return collection;
}

}  // namespace vantro
