#include "cli/commands/description_page.h"

#include "cli/io/utf.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr std::size_t width = 80;

// The words of a text; what stands between quotation marks is one word.
std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    bool isQuoted = false;
    for (const char character : text) {
        if (character == '"') isQuoted = !isQuoted;
        if (character == ' ' && !isQuoted) {
            words.push_back(std::move(word));
            word.clear();
        } else {
            word += character;
        }
    }
    words.push_back(std::move(word));
    return words;
}

}  // namespace

void DescriptionPage::paragraph(const std::string& head, const std::string& text, const std::string& turn) {
    std::string line = head;
    bool isEmpty = true;
    for (const std::string& word : wordsOf(text)) {
        if (!isEmpty && line.size() + 1 + word.size() + turn.size() > width) {
            text_ += line + turn + "\n";
            line.assign(head.size(), ' ');
            isEmpty = true;
        }
        line += isEmpty ? word : " " + word;
        isEmpty = false;
    }
    text_ += line + "\n";
}

void DescriptionPage::heading(const std::string& title) {
    text_ += "\n";
    paragraph("", title);
}

void DescriptionRows::print(DescriptionPage& page) const {
    std::size_t longest = 0;
    for (const Row& row : rows_) longest = std::max(longest, row.key.size());
    for (const Row& row : rows_) {
        page.paragraph("  " + row.key + std::string(longest + 2 - row.key.size(), ' '), row.text);
    }
}

std::string joined(std::span<const TextView> texts, const std::string& between) {
    std::string text;
    for (const TextView each : texts) text += (text.empty() ? "" : between) + toUtf8(each);
    return text;
}

std::string asSentence(TextView meaning) {
    std::string text = toUtf8(meaning);
    if (text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text + ".";
}

}  // namespace vantro
