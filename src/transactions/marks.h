// Marks in a line.
#pragma once

#include "framework/text_ops.h"

namespace vantro {

/// The mark where a line contains it first; empty where it does not.
inline TextView shownIn(TextView line, TextView mark) {
    const Column begin = find(line, mark);
    return begin == Column{0} ? TextView{} : mid(line, begin, Width{static_cast<int>(mark.size())});
}

}  // namespace vantro
