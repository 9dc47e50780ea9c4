// The baseline of the batch: simdjson for the requests, the hand-written scanner for the family, hand-written answers.
// Reads the file named by its argument and writes the same lines as `vantro-profile batch`.
#include "common/element_set.h"
#include "one_family/scanner.h"

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
        if (std::equal(prefix.begin(), prefix.end(), rules.prefix.begin(), rules.prefix.end() - 1)) return &rules;
    }
    return nullptr;
}

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
    explicit Lines(std::FILE* file) : file_(file), buffer_(std::size_t{1} << 20) {}

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
    std::u16string display;
    FamilyItems found;
    Answer answer;
    while (lines.next(line)) {
        simdjson::ondemand::document request = parser.iterate(line);
        const std::int64_t id = request["id"];
        const std::string_view prefix = request["params"]["strKeyPrefix"];
        const std::string_view text = request["display"];
        display.resize(text.size());
        for (std::size_t i = 0; i < text.size(); ++i) display[i] = static_cast<unsigned char>(text[i]);
        const FamilyRules* const rules = rulesOf(prefix);
        if (rules == nullptr) return 1;
        found.clear();
        scanFamily(*rules, display, found);
        answer.text = "{\"id\":" + std::to_string(id) + R"(,"result":null,"params":{"strKeyPrefix":")";
        answer.text.append(prefix).append("\"");
        answer.list("strKeyElement()", found, [](const FamilyItem& item) { return item.text; });
        answer.list("strKeyElementNr()", found, [](const FamilyItem& item) { return item.number; });
        answer.text += "}}\n";
        std::fwrite(answer.text.data(), 1, answer.text.size(), stdout);
    }
    std::fclose(file);
}
