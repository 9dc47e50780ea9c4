// The code that a user of regular expressions writes around them: the expression recognises and cuts a line, the
// assembler puts the lines together.
#pragma once

#include "whole_profile/scanned.h"

#include <string_view>

namespace vantro::bench {

/// The groups of the expression that is matched against one line, from its first character, in order:
enum Group : int {
    titleGroup = 1,      ///< a section's title
    numberGroup,         ///< a numbered line's number,
    tagGroup,            ///< its three letters before "/", if any,
    textGroup,           ///< and its text
    transferableNumber,  ///< a transferable element's number,
    transferableText,    ///< its text, which begins with its code,
    transferableCode,    ///< and the code
    continuationGroup,   ///< the text of a line indented by nine blanks and more
    markLocator,         ///< the last six characters of a "*T*" or "*C*" line
    officeGroup,         ///< the last nine characters of the rule under it
    groupCount
};

/// Searched once per display: the lines end at the first one that contains this.
inline constexpr char endExpression[] = ">|END OF DISPLAY";

inline constexpr char lineExpression[] =
    "------- ([A-Z][A-Z -]*[A-Z])"
    "| {0,3}(\\d{1,2}) (?: {4})?(?:([A-Z]{3})/)? *(.*[^ ])?"
    "|[SA] +(\\d{1,3}) +((RM|AP|OS|FFN|SR|ST|RC)(?: .*[^ ])?)"
    "| {9,}([^ ].*[^ ]|[^ ])"
    "|\\*[CT]\\* .*([^ ]{6}) *$"
    "|-{5,} .*([^ ]{9}) *$";

/// One matched line; a group that did not match is a view without data.
template <class Char>
struct MatchedLine {
    std::basic_string_view<Char> line;
    std::array<std::basic_string_view<Char>, groupCount> groups;

    bool has(Group group) const { return groups[static_cast<std::size_t>(group)].data() != nullptr; }
};

template <class Char>
class Assembler {
public:
    using View = std::basic_string_view<Char>;

    explicit Assembler(Scanned<View>& result) : result_(result) {}

    /// Adds a line; `matched` has no group set for a line of no known form.
    void take(const MatchedLine<Char>& matched);

    /// After the last line.
    void finish();

private:
    enum class Section : std::uint8_t { Head, Plain, Joined, Documents, Transferable, Notes, Other };

    void openSection(View title);
    void takeNumbered(const MatchedLine<Char>& matched);
    void takeTransferable(const MatchedLine<Char>& matched);
    void takeContinuation(View text, View line);
    void takeNote(View line);
    void append(View& text, View separator, View more);
    void splitTransferable();

    Scanned<View>& result_;
    Section section_ = Section::Head;
    bool sawRule_ = false;
    int noteNumber_ = 0;
    int joinsLeft_ = 0;                 ///< number of continuation lines that still belong to the last element
    View* text_ = nullptr;              ///< the last element's text
    bool brokenWord_ = false;           ///< the company name broke inside a word
    bool isCompany_ = false;            ///< the last element is the company name
    std::size_t family_ = familyCount;  ///< the last element's family
    bool unsplit_ = false;              ///< the last element is a transferable one that is not split yet
};

}  // namespace vantro::bench
