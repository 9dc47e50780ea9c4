#include "screens_oracle.h"

#include <map>
#include <stdexcept>

// The answers that show whether a step was taken, and line 1, the host's message about it:
//
//   PIE
//   IGNORED
//   PROFILE MODE EXITED

namespace oracle {

namespace {

bool contains(const Text& text, const Text& marker) { return found(text, marker) > 0; }

const Text modeExited = u"PROFILE MODE EXITED     ";
const Text modeIgnored = u"IGNORED     ";

bool ignoredAndExited(const Text& response) {
    const int position = found(response, modeIgnored);
    if (position == 0) {
        return false;
    }
    return found(response, modeExited, add16(position, 80)) > 0;
}

bool stepConfirmed(const Text& response, bool update, bool exit, bool enter, bool ignore) {
    if (!update && !exit && enter && !ignore) {
        return contains(response, u"*PROFILE MODE*");
    }
    if (!update && exit && !enter && !ignore) {
        return contains(response, modeExited);
    }
    if (update && !exit && !enter && !ignore) {
        return contains(response, u"END OF TRANSACTION COMPLETE");
    }
    if (update && exit && !enter && !ignore) {
        return contains(response, modeExited);
    }
    if (!update && !exit && !enter && ignore) {
        return contains(response, modeIgnored);
    }
    if (!update && exit && !enter && ignore) {
        return ignoredAndExited(response);
    }
    return false;
}

Collection answered(const Text& response, const Collection& state, bool accepted) {
    Collection collection = state;
    collection.add("blnKeyResponseOK", accepted);
    collection.add("strKeyErrorString", trimmed(screenLine(response, 1)));
    return collection;
}

}  // namespace

std::optional<Collection> verifyCProfileMode(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5045, [&] {
        if (state == nullptr) {
            throw Failure{objectNotSet};
        }
        const bool update = itemBoolean(state->item("blnKeyUpdate"));
        const bool exit = itemBoolean(state->item("blnKeyExit"));
        const bool enter = itemBoolean(state->item("blnKeyEnter"));
        const bool ignore = itemBoolean(state->item("blnKeyIgnore"));
        bool accepted = false;
        try {
            accepted = stepConfirmed(response, update, exit, enter, ignore);
        } catch (const Failure&) {
            // Reported to the terminal; the step counts as not confirmed.
        }
        return std::optional<Collection>(answered(response, *state, accepted));
    });
}

std::optional<Collection> verifyCProfileNotes(const Text& response, const Collection* state) {
    if (response.empty()) {
        return std::nullopt;
    }
    return raising(5045, [&] {
        if (state == nullptr) {
            throw Failure{objectNotSet};
        }
        const Text command = itemText(state->item("strCommand"));
        bool accepted = false;
        if (command == u"PN") {
            accepted = contains(response, u"PNL");
        } else if (command == u"PNE") {
            accepted = !contains(response, u"TRANSACTION NOT ALLOWED");
        }
        return std::optional<Collection>(answered(response, *state, accepted));
    });
}

Verify verifyOf(const std::string& className) {
    static const std::map<std::string, Verify> readers = {
        {"CPBITrans", verifyCPBITrans}, {"CPBNTrans", verifyCPBNTrans},       {"CPCNTrans", verifyCPCNTrans},
        {"CPDATrans", verifyCPDATrans}, {"CPDITrans", verifyCPDITrans},       {"CPDMDTrans", verifyCPDMDTrans},
        {"CPDNTrans", verifyCPDNTrans}, {"CPDRTrans", verifyCPDRTrans},       {"CPDTrans", verifyCPDTrans},
        {"CPDTTrans", verifyCPDTTrans}, {"CPHTrans", verifyCPHTrans},         {"CPLCTrans", verifyCPLCTrans},
        {"CPLTTrans", verifyCPLTTrans}, {"CProfileMode", verifyCProfileMode}, {"CPXTrans", verifyCPXTrans},
        {"CRLPTrans", verifyCRLPTrans}, {"CPTTrans", verifyCPTTrans},         {"CProfileNotes", verifyCProfileNotes},
    };
    const auto it = readers.find(className);
    if (it == readers.end()) throw std::invalid_argument("mode_oracle.cpp has no reader for " + className);
    return it->second;
}

}  // namespace oracle
