// Where the texts that a call reads are on the screen: a value is a view of the screen, of a line that the terminal
// made, or of a text that was joined from such views.
#pragma once

#include "vantro/observer.h"

#include <functional>
#include <map>
#include <variant>
#include <vector>

namespace vantro {

/// The texts of one observed call, by where they are in memory. A text whose memory was freed and used again for
/// another text is not taken for it: what a text contained when it was added is compared.
class SourceMap {
public:
    void clear() { texts_.clear(); }

    /// A whole screen, or a rest of one that was added before.
    void addScreen(TextView screen);

    /// A line from the terminal, unless it is a view of a screen that was added before.
    void addLine(TextView line, std::int32_t number);

    /// A text that consists of these pieces.
    void addJoined(TextView text, std::vector<ValuePiece> pieces);

    /// The line of the screen in which a text begins, or `noLine` for a text that was not added.
    std::int32_t lineOf(TextView text) const;

    /// Appends the pieces of a text; what was not added has no place. An empty text has no pieces.
    void locate(TextView text, std::vector<ValuePiece>& pieces) const;

private:
    struct LineNumber {
        std::int32_t value;
    };
    struct WholeScreen {};
    using Origin = std::variant<WholeScreen, LineNumber, std::vector<ValuePiece>>;

    struct Known {
        Text content;
        Origin origin;
    };
    using Texts = std::map<const char16_t*, Known, std::less<>>;

    void add(TextView text, Origin origin);
    Texts::const_iterator find(TextView text) const;

    Texts texts_;  // by their first characters; they do not overlap
};

}  // namespace vantro
