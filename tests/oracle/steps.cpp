#include "steps.h"

namespace oracle {

namespace {

constexpr int hostWidth = 80;

int lineWidth = hostWidth;

Text lineOf(const Text& text, int n, int width) {
    if (n < 0) {
        throw Failure{invalidCall};
    }
    const std::size_t characters = static_cast<std::size_t>(width);
    const std::size_t before = static_cast<std::size_t>(n) * characters;
    if (before >= text.size()) {
        return Text();
    }
    return text.substr(before, characters);
}

}  // namespace

LineWidth::LineWidth(int width) : before_(lineWidth) { lineWidth = width; }

LineWidth::~LineWidth() { lineWidth = before_; }

Text screenLine(const Text& text, int n) { return lineOf(text, n, lineWidth); }

Text lineByPosition(const Text& text, int n) { return lineOf(text, n, hostWidth); }

Text rightTrimmed(const Text& text) {
    Text result = text;
    while (!result.empty() && result.back() == u' ') {
        result.pop_back();
    }
    return result;
}

Text trimmed(const Text& text) {
    Text result = rightTrimmed(text);
    while (!result.empty() && result.front() == u' ') {
        result.erase(0, 1);
    }
    return result;
}

Text mid(const Text& text, int p) {
    if (p < 1) {
        throw Failure{invalidCall};
    }
    const std::size_t before = static_cast<std::size_t>(p) - 1;
    if (before >= text.size()) {
        return Text();
    }
    return text.substr(before);
}

Text mid(const Text& text, int p, int n) {
    const Text rest = mid(text, p);
    if (n < 1) {
        return Text();
    }
    return rest.substr(0, static_cast<std::size_t>(n));
}

Text right(const Text& text, int n) {
    if (n < 0) {
        throw Failure{invalidCall};
    }
    const std::size_t wanted = static_cast<std::size_t>(n);
    if (wanted >= text.size()) {
        return text;
    }
    return text.substr(text.size() - wanted);
}

int found(const Text& text, const Text& needle, int start) {
    if (start < 1) {
        throw Failure{invalidCall};
    }
    const std::size_t from = static_cast<std::size_t>(start) - 1;
    if (from >= text.size()) {
        return 0;
    }
    const std::size_t position = text.find(needle, from);
    if (position == Text::npos) {
        return 0;
    }
    return static_cast<int>(position) + 1;
}

Text textField(const Text& text, int n, const Text& separator) {
    Text rest = text;
    for (int field = 1; field < n; ++field) {
        const int position = found(rest, separator);
        if (position == 0) {
            return Text();
        }
        rest = mid(rest, position + static_cast<int>(separator.size()));
    }
    const int position = found(rest, separator);
    if (position == 0) {
        return rest;
    }
    return mid(rest, 1, position - 1);
}

bool isNumeric(const Text& text) {
    if (text.empty()) {
        return false;
    }
    for (const char16_t character : text) {
        if (character < u'0' || character > u'9') {
            return false;
        }
    }
    return true;
}

Text upperCase(const Text& text) {
    Text result;
    for (const char16_t character : text) {
        if (character >= u'a' && character <= u'z') {
            result.push_back(static_cast<char16_t>(character - u'a' + u'A'));
        } else {
            result.push_back(character);
        }
    }
    return result;
}

Text decimal(int number) { return wide(std::to_string(number)); }

Text wide(const std::string& plain) {
    Text result;
    for (const char character : plain) {
        result.push_back(static_cast<char16_t>(static_cast<unsigned char>(character)));
    }
    return result;
}

int add16(int left, int right) {
    const int sum = left + right;
    if (sum < -32768 || sum > 32767) {
        throw Failure{overflow};
    }
    return sum;
}

const Text& entry(const std::vector<Text>& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size()) {
        throw Failure{outOfRange};
    }
    return list[static_cast<std::size_t>(index)];
}

}  // namespace oracle
