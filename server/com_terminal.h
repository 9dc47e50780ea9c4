// The terminal's own library, reached through COM by its class identifiers and the names of its operations.
#pragma once

#include "server/com_collection.h"
#include "vantro/terminal.h"

namespace vantro::com {

/// The terminal's library for one object of this server. What it keeps of the terminal belongs to the thread: the
/// helper objects and the class object of the collections are requested on first use, and released when the thread's
/// apartment ends or the server is about to be unloaded.
class ComTerminal final : public Terminal, private TerminalFunctions {
private:
    struct ReadText {
        BSTR given = nullptr;  // the caller's
        Bstr copy;             // of a part of it
        TextView copied;       // that part
    };

public:
    /// The text that an operation reads, for the duration of the operation. The terminal needs the whole text for every
    /// line: it is passed the caller's own, and a part of it is copied only once.
    class Reading {
    public:
        Reading(ComTerminal& terminal, BSTR text)
            : terminal_(terminal), outer_(std::exchange(terminal.read_, {text, {}, {}})) {}
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;
        ~Reading() { terminal_.read_ = std::move(outer_); }

        TextView text() const { return viewOf(terminal_.read_.given); }

    private:
        ComTerminal& terminal_;
        ReadText outer_;  // of an operation whose call of the terminal led to this one
    };

    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override;
    CollectionPtr createCollection() override;

private:
    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;

    BSTR passed(TextView text);

    ReadText read_;
};

/// This thread's operations of the terminal's own collections.
std::shared_ptr<CollectionMembers> terminalMembers();

/// Releases what this thread keeps of the terminal unless another thread keeps something too; true when no thread does.
bool releaseLastHelpers();

}  // namespace vantro::com
