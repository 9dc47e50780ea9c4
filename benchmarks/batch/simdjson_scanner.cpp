// The baseline of the batch: simdjson's On-Demand for the requests, the hand-written scanner for the family,
// hand-written answers. Reads the file named by its argument and writes the same lines as `vantro-profile batch`. It
// serves this one call and this one order of members, keeps no objects, reports no errors, and takes displays to be
// ASCII.
#include "one_family/lean_family.h"

#include <simdjson.h>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace vantro::bench;

const FamilyRules* rulesOf(std::string_view prefix) {
    for (const FamilyRules& rules : familyRules()) {
        if (std::equal(prefix.begin(), prefix.end(), rules.tag, rules.tag + 3)) return &rules;
    }
    return nullptr;
}

/// A display in UTF-16: the memory is used again for the next one.
class Widened {
public:
    /// From one string, or from an array of lines that lack the blanks at their ends; in a request without escapes the
    /// strings are read where they are.
    View read(simdjson::ondemand::value display, bool hasEscapes) {
        if (display.type() == simdjson::ondemand::json_type::string) {
            const std::string_view text = textOf(display, hasEscapes);
            reserve(text.size());
            widen(text, units_.data());
            return {units_.data(), text.size()};
        }
        std::size_t size = 0;
        std::size_t begin = 0;
        for (simdjson::ondemand::value value : display.get_array()) {
            const std::string_view line = textOf(value, hasEscapes);
            reserve(begin + line.size());
            widen(line, units_.data() + begin);
            size = begin + line.size();
            begin += lineUnits;
            for (std::size_t i = size; i < begin; i += 8) std::fill_n(units_.data() + i, 8, u' ');
        }
        return {units_.data(), size};
    }

private:
    static std::string_view textOf(simdjson::ondemand::value value, bool hasEscapes) {
        if (hasEscapes) return value.get_string();
        const std::string_view token = value.raw_json_token();
        return token.substr(1, token.rfind('"') - 1);
    }

    void reserve(std::size_t size) {
        if (units_.size() < size + 2 * lineUnits) units_.resize(2 * size + 2 * lineUnits);
    }

    /// In whole vectors: reads and writes up to fifteen characters too many. Both buffers have room for them.
    static void widen(std::string_view text, char16_t* units) {
        for (std::size_t i = 0; i < text.size(); i += 16) {
            unsigned char sixteen[16];  // a copy, so that the compiler can use vectors
            std::memcpy(sixteen, text.data() + i, sizeof sixteen);
            for (std::size_t k = 0; k < 16; ++k) units[i + k] = sixteen[k];
        }
    }

    std::vector<char16_t> units_;
};

class Answer {
public:
    std::string text;

    void string(std::u16string_view value) {
        text += '"';
        for (const char16_t c : value) {
            if (c == u'"' || c == u'\\') text += '\\';
            text += static_cast<char>(c);
        }
        text += '"';
    }

    /// A list with its empty entry 0.
    template <class Part>
    void list(std::string_view key, const FamilyItems& found, Part part) {
        text.append(",\"").append(key).append("\":[\"\"");
        for (const FamilyItem& item : found.items) {
            text += ',';
            string(part(item));
        }
        text += ']';
    }
};

/// The lines of a file, each followed by the padding that simdjson needs.
class Lines {
public:
    explicit Lines(std::FILE* file) : file_(file), buffer_(std::size_t{1} << 18) {}

    /// False at the end of the file.
    bool next(simdjson::padded_string_view& line) {
        for (;;) {
            char* const begin = buffer_.data() + begin_;
            if (char* const end = static_cast<char*>(std::memchr(begin, '\n', end_ - begin_)); end != nullptr) {
                const auto size = static_cast<std::size_t>(end - begin);
                line = simdjson::padded_string_view(begin, size, buffer_.size() - begin_);
                begin_ += size + 1;
                return true;
            }
            if (!refill()) return false;
        }
    }

private:
    bool refill() {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
        const std::size_t room = buffer_.size() - simdjson::SIMDJSON_PADDING - end_;
        if (room == 0) buffer_.resize(buffer_.size() * 2);
        const std::size_t got =
            std::fread(buffer_.data() + end_, 1, buffer_.size() - simdjson::SIMDJSON_PADDING - end_, file_);
        end_ += got;
        return got > 0;
    }

    std::FILE* file_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    std::FILE* const file = argc == 2 ? std::fopen(argv[1], "rb") : nullptr;
    if (file == nullptr) return 2;
    simdjson::ondemand::parser parser;
    Lines lines(file);
    simdjson::padded_string_view line;
    Widened display;
    FamilyItems found;
    Answer answer;
    while (lines.next(line)) {
        simdjson::ondemand::document request = parser.iterate(line);
        const std::int64_t id = request["id"];
        const std::string_view prefix = request["params"]["strKeyPrefix"];
        const bool hasEscapes = std::memchr(line.data(), '\\', line.size()) != nullptr;
        const View text = display.read(request["display"], hasEscapes);
        const FamilyRules* const rules = rulesOf(prefix);
        if (rules == nullptr) return 1;
        found.prepare(text.size());
        scanFamily<Depth::Everything>(*rules, text, found);
        answer.text = "{\"id\":" + std::to_string(id) + R"(,"result":null,"params":{"strKeyPrefix":")";
        answer.text.append(prefix).append("\"");
        answer.list("strKeyElement()", found, [](const FamilyItem& item) { return item.text; });
        answer.list("strKeyElementNr()", found, [](const FamilyItem& item) { return item.number; });
        answer.text += "}}\n";
        std::fwrite(answer.text.data(), 1, answer.text.size(), stdout);
    }
    std::fclose(file);
}
