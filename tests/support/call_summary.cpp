#include "tests/support/call_summary.h"

#include <cstddef>

namespace vantro::test {

namespace {

/// A call in two parts: "line" and "3", or "text" and "strKeyName".
struct Step {
    std::string kind;
    std::string object;
};

bool startsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }

std::string after(const std::string& call, const std::string& word) { return call.substr(word.size()); }

// How the value of an item was read: the call that follows `Item` says so.
std::string kindOfRead(const std::string& call) {
    if (call == "ItemText") return "text";
    if (call == "ItemBoolean") return "flag";
    if (call == "Value") return "value";
    return {};
}

Step stepOf(const std::string& call) {
    if (startsWith(call, "ScreenLine ")) return {"line", after(call, "ScreenLine ")};
    if (startsWith(call, "Add ")) return {"add", after(call, "Add ")};
    if (startsWith(call, "FindMarker ")) return {"find", after(call, "FindMarker ")};
    if (call == "TextField 1") return {"field", ""};
    if (call == "createCollection") return {"new", ""};
    return {call, ""};
}

std::vector<Step> stepsOf(const std::vector<std::string>& calls) {
    std::vector<Step> steps;
    for (std::size_t position = 0; position < calls.size(); ++position) {
        const bool isRead = startsWith(calls[position], "Item ") && position + 1 < calls.size();
        const std::string kind = isRead ? kindOfRead(calls[position + 1]) : std::string();
        if (kind.empty()) {
            steps.push_back(stepOf(calls[position]));
        } else {
            steps.push_back({kind, after(calls[position], "Item ")});
            ++position;
        }
    }
    return steps;
}

/// Lines written as ranges: "1-9".
class Lines {
public:
    void add(int line) {
        if (isOpen_ && line == last_ + 1) {
            last_ = line;
            return;
        }
        close();
        first_ = last_ = line;
        isOpen_ = true;
    }

    std::string written() {
        close();
        return std::move(text_);
    }

private:
    void close() {
        if (!isOpen_) return;
        text_ += ' ' + std::to_string(first_);
        if (last_ != first_) text_ += '-' + std::to_string(last_);
        isOpen_ = false;
    }

    std::string text_;
    int first_ = 0;
    int last_ = 0;
    bool isOpen_ = false;
};

}  // namespace

std::string summaryOf(const std::vector<std::string>& calls) {
    const std::vector<Step> steps = stepsOf(calls);
    std::string summary;
    for (std::size_t position = 0; position < steps.size();) {
        const std::string kind = steps[position].kind;
        if (!summary.empty()) summary += "; ";
        summary += kind;
        Lines lines;
        for (; position < steps.size() && steps[position].kind == kind; ++position) {
            if (kind == "line") {
                lines.add(std::stoi(steps[position].object));
            } else if (!steps[position].object.empty()) {
                summary += ' ' + steps[position].object;
            }
        }
        summary += lines.written();
    }
    return summary;
}

}  // namespace vantro::test
