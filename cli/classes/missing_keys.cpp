#include "cli/classes/missing_keys.h"

#include "cli/io/utf.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

namespace vantro {

namespace {

using Rows = std::vector<const ParameterRow*>;

bool isGiven(const ItemValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) return !text->empty();
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* list = std::get_if<TextList>(&value)) return !list->empty();
    return true;
}

// Any value of the kind. A list may be too short, which is another error than a missing one.
ItemValue sampleOf(const ParameterRow& row) {
    switch (row.kind) {
        case ValueKind::Boolean: return true;
        case ValueKind::Integer: return std::int16_t{0};
        case ValueKind::StringList: return TextList{u"1"};
        case ValueKind::String:
        case ValueKind::IntegerOrString: break;
    }
    return Text(row.values.empty() ? u"1" : row.values.front());
}

constexpr int command = 0;
constexpr int emptyCommand = -1;

// What comes of the parameters with these added: `command`, `emptyCommand` or the number of an error.
int outcome(const ClassRow& row, const BuiltInCollection& params, const Rows& added) {
    const auto collection = std::make_shared<BuiltInCollection>();
    for (const auto& entry : params.entries()) collection->Add(entry.key(), entry.Value());
    for (const ParameterRow* parameter : added) collection->Add(parameter->key, sampleOf(*parameter));
    BuiltInTerminal terminal;
    try {
        const Text built = createObject(row, terminal)->profileTrans()->CreateCommand(collection);
        return built.empty() ? emptyCommand : command;
    } catch (const Error& raised) {
        return raised.number();
    }
}

// The keys that some command needs and that have no value.
Rows absentKeys(const ClassRow& row, const BuiltInCollection& params) {
    Rows absent;
    for (const ParameterRow& parameter : row.description.parameters) {
        const auto entry = std::ranges::find(params.entries(), parameter.key, &BuiltInCollection::Entry::key);
        const bool hasValue = entry != params.entries().end() && isGiven(entry->Value());
        if (parameter.need != Need::Optional && !hasValue) absent.push_back(&parameter);
    }
    return absent;
}

std::string listed(const Rows& rows) {
    std::string text;
    for (const ParameterRow* row : rows) {
        text += (text.empty() ? "" : ", ") + toUtf8(row->key);
        if (!row->when.empty()) text += " (" + toUtf8(row->when) + ")";
    }
    return text;
}

// The class is asked which keys would get it further: a row's `when` is written for people. Empty when no key is
// missing.
std::string missingKeys(const ClassRow& row, const BuiltInCollection& params) {
    const Rows absent = absentKeys(row, params);
    const int now = outcome(row, params, {});
    const auto helps = [&](const Rows& added) { return outcome(row, params, added) != now; };
    Rows sufficient;
    std::ranges::copy_if(absent, std::back_inserter(sufficient), [&](const ParameterRow* key) { return helps({key}); });
    if (sufficient.size() == 1) return listed(sufficient) + " is missing";
    if (!sufficient.empty()) return "one of these keys is missing: " + listed(sufficient);
    return helps(absent) ? "these keys are missing: " + listed(absent) : "";
}

}  // namespace

std::string messageOfEmptyCommand(const ClassRow& row, const BuiltInCollection& params) {
    const std::string missing = missingKeys(row, params);
    if (!missing.empty()) return "the parameters are not sufficient and nothing is to be sent: " + missing;
    const std::string rule = row.description.remark.empty() ? "" : toUtf8(row.description.remark) + " ";
    return "the parameters do not go together and nothing is to be sent. " + rule + "See vantro-profile describe " +
           toUtf8(row.name);
}

std::string reasonOfFailedCommand(const ClassRow& row, const BuiltInCollection& params, const Error& raised) {
    std::string missing = missingKeys(row, params);
    if (!missing.empty()) return missing;
    const auto isRaised = [&](const ErrorRow& error) {
        return error.call == ClassCall::CreateCommand && error.number == raised.number();
    };
    const auto meaning = std::ranges::find_if(row.description.errors, isRaised);
    return meaning == row.description.errors.end() ? "" : toUtf8(meaning->meaning);
}

}  // namespace vantro
