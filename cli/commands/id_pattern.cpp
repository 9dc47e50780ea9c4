#include "cli/commands/id_pattern.h"

#include "cli/classes/nearest.h"
#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <array>

namespace vantro {

namespace {

/// In the order of the placeholders' enumeration, after `None`.
constexpr std::array<TextView, 6> names{u"locator", u"title", u"file", u"name", u"display", u"line"};

/// The file's name without folder and extensions. A dot at its beginning does not begin an extension.
std::string_view nameOf(std::string_view file) {
    const std::size_t folderEnd = file.find_last_of("/\\");
    if (folderEnd != std::string_view::npos) file.remove_prefix(folderEnd + 1);
    return file.substr(0, file.find('.', 1));
}

}  // namespace

IdPattern::IdPattern(std::string_view pattern) {
    while (!pattern.empty()) {
        const std::size_t brace = pattern.find('{');
        Piece piece{std::string(pattern.substr(0, brace)), Value::None};
        pattern.remove_prefix(piece.text.size());
        if (!pattern.empty()) {
            const std::size_t end = pattern.find('}');
            if (end == std::string_view::npos) throw UsageError("--id: a brace is not closed; write {locator}");
            piece.value = valueNamed(pattern.substr(1, end - 1));
            pattern.remove_prefix(end + 1);
        }
        pieces_.push_back(std::move(piece));
    }
}

std::string IdPattern::idOf(const IdValues& values) const {
    std::string id;
    for (const Piece& piece : pieces_) {
        id += piece.text;
        id += shown(piece.value, values);
    }
    return id;
}

IdPattern::Value IdPattern::valueNamed(std::string_view name) {
    const Text wanted = toUtf16(name);
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (names[index] == wanted) return static_cast<Value>(index + 1);
    }
    const auto nearest = nearestName(wanted, names);
    std::string message = "--id: there is no placeholder {" + std::string(name) + "}; ";
    if (nearest) throw UsageError(message + "did you mean {" + toUtf8(*nearest) + "}?");
    message += "there are";
    for (const TextView known : names) message += " {" + toUtf8(known) + "}";
    throw UsageError(message);
}

std::string IdPattern::shown(Value value, const IdValues& values) {
    switch (value) {
        case Value::None: break;
        case Value::Locator: return std::string(values.locator);
        case Value::Title: return std::string(values.title);
        case Value::File: return std::string(values.file);
        case Value::Name: return std::string(nameOf(values.file));
        case Value::Display: return std::to_string(values.display);
        case Value::Line: return std::to_string(values.line);
    }
    return {};
}

}  // namespace vantro
