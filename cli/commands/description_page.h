// Descriptions in lines of at most 80 characters.
#pragma once

#include "vantro/text.h"

#include <span>
#include <string>
#include <vector>

namespace vantro {

/// Lines of text that are filled up word by word.
class DescriptionPage {
public:
    /// A paragraph: its first line begins with `head`, the others with as many blanks. `turn` ends a line that goes
    /// on in the next.
    void paragraph(const std::string& head, const std::string& text, const std::string& turn = {});

    void heading(const std::string& title);

    std::string text() { return std::move(text_); }

private:
    std::string text_;
};

/// Keys on the left, what there is to say about each on the right.
class DescriptionRows {
public:
    void add(std::string key, std::string text) { rows_.push_back({std::move(key), std::move(text)}); }

    bool empty() const { return rows_.empty(); }

    void print(DescriptionPage& page) const;

private:
    struct Row {
        std::string key;
        std::string text;
    };
    std::vector<Row> rows_;
};

/// The texts with `between` between them.
std::string joined(std::span<const TextView> texts, const std::string& between);

/// A meaning with a capital letter at its beginning and a full stop at its end.
std::string asSentence(TextView meaning);

}  // namespace vantro
