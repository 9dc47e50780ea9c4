#include "tests/support/parameter_worlds.h"

#include "tests/support/text.h"

#include <optional>

namespace vantro::test {

namespace {

using Values = std::vector<std::optional<ItemValue>>;

ItemValue text(TextView value) { return Text(value); }
ItemValue truth(bool value) { return ItemValue(std::in_place_type<bool>, value); }

Values texts(const ParameterRow& row) {
    if (row.key == u"intKeyArraySize") return {std::nullopt, text(u""), text(u"0"), text(u"1")};
    if (row.key == u"strKeyIndex") return {std::nullopt, text(u""), text(u"0"), text(u"1")};
    Values values{std::nullopt, text(u"")};
    for (const TextView known : row.values) values.emplace_back(text(known));
    values.emplace_back(text(u"X1"));
    return values;
}

Values goodValues(const ParameterRow& row) {
    switch (row.kind) {
        case ValueKind::Boolean: return {std::nullopt, truth(false), truth(true)};
        case ValueKind::Integer: return {std::nullopt, std::int16_t{0}, std::int16_t{1}, std::int16_t{2}};
        case ValueKind::StringList: return {std::nullopt, TextList{}, TextList{u"3"}, TextList{u"1", u"2"}};
        case ValueKind::String:
        case ValueKind::IntegerOrString: break;
    }
    return texts(row);
}

Values oddValues(const ParameterRow& row) {
    if (row.kind == ValueKind::StringList) return {text(u"3"), truth(true)};
    return {TextList{u"A"}, text(u"no number, no truth"), text(u"-1"), text(u"40000"), std::int16_t{30000}};
}

void visitFrom(std::span<const ParameterRow> rows, Entries& given, const Visit& visit) {
    if (rows.empty()) return visit(given);
    for (const auto& value : goodValues(rows.front())) {
        if (value) given.emplace_back(rows.front().key, *value);
        visitFrom(rows.subspan(1), given, visit);
        if (value) given.pop_back();
    }
}

}  // namespace

void forEachGood(std::span<const ParameterRow> rows, const Visit& visit) {
    Entries given;
    visitFrom(rows, given, visit);
}

void forEachOdd(std::span<const ParameterRow> rows, const Visit& visit) {
    for (const ParameterRow& odd : rows) {
        for (const auto& value : oddValues(odd)) {
            Entries others;
            for (const ParameterRow& row : rows) {
                if (row.key != odd.key) others.emplace_back(row.key, *goodValues(row).back());
            }
            others.emplace_back(odd.key, *value);
            visit(others);
            visit({{odd.key, *value}});
        }
    }
}

Entries entriesOf(std::span<const ExampleParameter> example) {
    Entries entries;
    for (const auto& [key, value] : example) {
        if (key.ends_with(u"()")) {
            if (entries.empty() || entries.back().key != key) entries.emplace_back(key, TextList{});
            std::get<TextList>(entries.back().value).emplace_back(value);
        } else if (key.starts_with(u"bln")) {
            entries.emplace_back(key, value == u"True");
        } else {
            entries.emplace_back(key, Text(value));
        }
    }
    return entries;
}

std::string className(const ClassRow& row) { return utf8(row.name); }

}  // namespace vantro::test
