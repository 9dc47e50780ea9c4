// The calls that an operation makes on the terminal: recorded from the linked library, which makes the same ones as the
// server, and made again without either.
#pragma once

#include "server/com/variant.h"
#include "vantro/built_in_terminal.h"

#include <deque>
#include <map>
#include <memory>
#include <vector>

namespace vantro::test {

/// One call. The fields that its operation does not use are empty.
struct TerminalCall {
    enum class Operation { Create, Add, Item, Value, ItemText, ItemBoolean, ScreenLine, FindMarker, TextField };

    /// The value of `source` for an item that is Nothing.
    static constexpr std::size_t nothing = static_cast<std::size_t>(-1);

    Operation operation;
    Text text = {};                ///< a key, a screen, or the text that is split
    Text second = {};              ///< a marker or a separator
    ItemValue value = {};          ///< what is added
    std::int16_t number = 0;       ///< a line or a field
    bool onCreated = false;        ///< the collection is the one created last, not the passed one
    std::size_t source = nothing;  ///< the position, from 0, of the call that returned the item
};

using TerminalCalls = std::vector<TerminalCall>;

/// The built-in terminal, which makes its own lines and records the calls.
class CallRecorder final : public Terminal, private TerminalFunctions, private ErrorReporter {
public:
    TerminalFunctions& functions() override { return *this; }
    ErrorReporter& errorReporter() override { return *this; }
    CollectionPtr createCollection() override;

    /// The collection as an operation gets it.
    CollectionPtr passed(std::shared_ptr<BuiltInCollection> collection);

    const TerminalCalls& calls() const { return calls_; }

private:
    class Item;
    class Collection;

    static std::size_t sourceOf(const ItemPtr& item);
    static ItemPtr readable(const ItemPtr& item);
    std::size_t note(TerminalCall call);

    TextView ItemText(const ItemPtr& item, TextStore& store) override;
    bool ItemBoolean(const ItemPtr& item) override;
    TextView ScreenLine(TextView response, std::int16_t line, TextStore& store) override;
    bool FindMarker(TextView response, TextView marker, std::int16_t line) override;
    TextView TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) override;
    void ReportError(const Error& current, const Error* replacement) override;

    BuiltInTerminal inner_;
    TerminalCalls calls_;
};

/// Makes recorded calls on objects of the registered terminal, late bound, as a client does that has looked up the ids,
/// kept the class object and prepared the arguments before.
class DirectCalls {
public:
    /// `passed` takes the place of the collection that was passed to the operation; it may be null.
    DirectCalls(const TerminalCalls& calls, com::Ptr<IDispatch> passed);

    std::size_t size() const { return steps_.size(); }

    /// Makes all calls once, in their order. Throws for one that fails.
    void make();

private:
    struct Step {
        TerminalCall::Operation operation;
        bool onCreated;
        std::size_t source;
        std::vector<VARIANT> lastFirst;  // the arguments
        DISPID id = DISPID_UNKNOWN;
        VARIANT result{};
    };

    Step stepOf(const TerminalCall& call);
    void make(Step& step);
    IDispatch* itemOf(const Step& step) const;
    VARIANT prepared(com::Variant value);
    VARIANT preparedText(const Text& text);

    com::Ptr<IDispatch> passed_;
    com::Ptr<IDispatch> functions_;
    com::Ptr<IClassFactory> collections_;
    com::Ptr<IDispatch> created_;
    std::deque<com::Variant> prepared_;
    std::map<Text, VARIANT> texts_;
    std::vector<Step> steps_;
};

}  // namespace vantro::test
