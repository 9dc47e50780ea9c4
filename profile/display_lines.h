// What a line of a profile display can be.
#pragma once

#include "framework/constants.h"
#include "framework/text_ops.h"

namespace vantro {

/// The prompt or the end text anywhere in a line, as the searches for a section's header stop at it.
inline bool isEndOfDisplay(TextView line) { return holds(line, mark::prompt) || holds(line, mark::endOfDisplay); }

/// The end of a prefixed family's section, by its trimmed line: a prompt in the first place, the next section's
/// header, or the end text.
inline bool isSectionEnd(TextView trimmedLine) {
    return trimmedLine.starts_with(u'>') || holds(trimmedLine, u"-------") || holds(trimmedLine, mark::endOfDisplay);
}

/// A line that goes on with the element above, by its line as read: nothing in the tag's nine columns.
constexpr bool isContinuation(TextView line) { return isBlank(left(line, Width{9})); }

/// The same for a transferable element, whose text begins in column 18.
constexpr bool isTransferableContinuation(TextView line) { return isBlank(left(line, Width{17})); }

}  // namespace vantro
