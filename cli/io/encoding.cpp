#include "cli/io/encoding.h"

#include "cli/io/utf.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

namespace vantro {

namespace {

struct EncodingName {
    std::string_view name;
    Encoding encoding;
};

constexpr EncodingName names[] = {
    {"auto", Encoding::ByMark},
    {"utf-8", Encoding::Utf8},
    {"utf-16", Encoding::Utf16},
    {"utf-16le", Encoding::Utf16Le},
    {"utf-16be", Encoding::Utf16Be},
    {"latin-1", Encoding::Latin1},
    {"windows-1252", Encoding::Windows1252},
};

/// Usual spellings that lists of names leave out.
constexpr EncodingName otherNames[] = {
    {"utf8", Encoding::Utf8},       {"utf16", Encoding::Utf16},   {"utf16le", Encoding::Utf16Le},
    {"utf16be", Encoding::Utf16Be}, {"latin1", Encoding::Latin1}, {"cp1252", Encoding::Windows1252},
};

/// What Windows-1252 has in 0x80 to 0x9F, where Latin-1 has control characters; 0 for none.
constexpr std::array<char16_t, 32> windowsCharacters = {
    u'\u20AC', 0,         u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0,         u'\u017D', 0,
    0,         u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0,         u'\u017E', u'\u0178',
};

constexpr char notUtf8 = '\xFF';

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

/// Reads a source in blocks and passes on what becomes of them.
class Converter {
public:
    Converter(ByteSource source, Encoding encoding) : source_(std::move(source)), encoding_(encoding) {}

    std::size_t read(std::span<char> bytes) {
        if (!begun_) begin();
        const bool isUnchanged = encoding_ == Encoding::Utf8 && done_ == converted_.size();
        if (isUnchanged) return source_(bytes);
        while (done_ == converted_.size() && convertNext()) continue;
        const std::size_t count = std::min(bytes.size(), converted_.size() - done_);
        std::memcpy(bytes.data(), converted_.data() + done_, count);
        done_ += count;
        return count;
    }

private:
    static constexpr std::size_t blockSize = std::size_t{64} * 1024;

    /// Reads the first bytes, which may be a mark.
    void begin() {
        begun_ = true;
        while (block_.size() < utf8Mark.size() && readBlock()) continue;
        encoding_ = marked();
        if (encoding_ == Encoding::Utf8) dropMark(utf8Mark);
        if (encoding_ == Encoding::Utf16Le) dropMark(littleEndianMark);
        if (encoding_ == Encoding::Utf16Be) dropMark(bigEndianMark);
        convert();
    }

    /// What the mark says; without one, the encoding that was named.
    Encoding marked() const {
        if (block_.starts_with(utf8Mark)) return Encoding::Utf8;
        if (block_.starts_with(littleEndianMark)) return Encoding::Utf16Le;
        if (block_.starts_with(bigEndianMark)) return Encoding::Utf16Be;
        if (encoding_ == Encoding::ByMark) return Encoding::Utf8;
        return encoding_ == Encoding::Utf16 ? Encoding::Utf16Le : encoding_;
    }

    void dropMark(std::string_view mark) {
        if (block_.starts_with(mark)) block_.erase(0, mark.size());
    }

    bool readBlock() {
        const std::size_t before = block_.size();
        block_.resize(before + blockSize);
        const std::size_t count = source_(std::span(block_).subspan(before));
        block_.resize(before + count);
        isAtEnd_ = count == 0;
        return !isAtEnd_;
    }

    /// False at the end of the source.
    bool convertNext() {
        if (isAtEnd_) return false;
        readBlock();
        convert();
        return true;
    }

    /// Converts the block. A character whose end was not read yet stays in it.
    void convert() {
        converted_.clear();
        done_ = 0;
        switch (encoding_) {  // Not covered: the mark was looked for
            case Encoding::ByMark:
            case Encoding::Utf16:
            case Encoding::Utf8: converted_.swap(block_); break;
            case Encoding::Utf16Le: convertUtf16(0, 1); break;
            case Encoding::Utf16Be: convertUtf16(1, 0); break;
            case Encoding::Latin1: convertBytes([](unsigned char byte) { return static_cast<char16_t>(byte); }); break;
            case Encoding::Windows1252: convertBytes(ofWindows); break;
        }
    }

    static char16_t ofWindows(unsigned char byte) {
        const bool isSpecial = byte >= 0x80 && byte < 0xA0;
        return isSpecial ? windowsCharacters[byte - 0x80U] : static_cast<char16_t>(byte);
    }

    template <class Character>
    void convertBytes(Character characterOf) {
        for (const char byte : block_) {
            const char16_t character = characterOf(static_cast<unsigned char>(byte));
            if (character == 0 && byte != 0) {
                converted_ += notUtf8;
            } else {
                appendUtf8(TextView(&character, 1), converted_);
            }
        }
        block_.clear();
    }

    void convertUtf16(std::size_t low, std::size_t high) {
        Text units;
        for (std::size_t at = 0; at + 1 < block_.size(); at += 2) {
            const auto lowByte = static_cast<unsigned char>(block_[at + low]);
            const auto highByte = static_cast<unsigned char>(block_[at + high]);
            units += static_cast<char16_t>(lowByte | highByte << 8U);
        }
        std::size_t used = 0;
        while (used < units.size()) {
            const CodePoint character = codePointAt(units, used);
            const bool isHigh = units[used] >= 0xD800 && units[used] <= 0xDBFF;
            if (isHigh && used + 1 == units.size() && !isAtEnd_) break;
            const bool isUnpaired = character.units == 1 && units[used] >= 0xD800 && units[used] <= 0xDFFF;
            if (isUnpaired) {
                converted_ += notUtf8;
            } else {
                appendUtf8(TextView(units).substr(used, character.units), converted_);
            }
            used += character.units;
        }
        block_.erase(0, 2 * used);
        if (isAtEnd_ && !block_.empty()) {
            converted_ += notUtf8;  // half a character
            block_.clear();
        }
    }

    ByteSource source_;
    Encoding encoding_;
    bool begun_ = false;
    bool isAtEnd_ = false;
    std::string block_;      // read, not converted
    std::string converted_;  // not all passed on
    std::size_t done_ = 0;   // of these
};

}  // namespace

std::optional<Encoding> encodingNamed(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const std::span<const EncodingName> list : {std::span<const EncodingName>(names), {otherNames}}) {
        const auto found = std::ranges::find(list, std::string_view(lower), &EncodingName::name);
        if (found != list.end()) return found->encoding;
    }
    return std::nullopt;
}

std::string_view nameOf(Encoding encoding) { return std::ranges::find(names, encoding, &EncodingName::encoding)->name; }

std::string encodingNames() {
    std::string list;
    for (const EncodingName& row : names) {
        if (!list.empty()) list += ", ";
        list += row.name;
    }
    return list;
}

bool looksLikeUtf16(std::string_view text) {
    constexpr std::size_t shortest = 3;  // a character and half a line end
    if (text.size() < shortest || text.find('\0') == std::string_view::npos) return false;
    std::size_t alternations = 0;
    for (std::size_t at = 1; at < text.size(); ++at)
        alternations += (text[at - 1] == '\0') != (text[at] == '\0') ? 1 : 0;
    return 4 * alternations >= 3 * (text.size() - 1);
}

ByteSource inUtf8(ByteSource source, Encoding encoding) {
    const auto converter = std::make_shared<Converter>(std::move(source), encoding);
    return [converter](std::span<char> bytes) { return converter->read(bytes); };
}

}  // namespace vantro
