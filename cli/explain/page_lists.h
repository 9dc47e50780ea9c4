// The lists beside the screen of an explanation's page. Each is a section with an id: "values", "decisions",
// "look-alikes", "unread".
#pragma once

#include "cli/explain/html_out.h"
#include "cli/explain/page_model.h"
#include "cli/explain/screen_segments.h"

#include <cstddef>
#include <span>

namespace vantro {

/// By query, with its result: values, nothing, or an error.
void writeValues(const PageModel& model, HtmlOut& html);

/// By query, numbered in the order in which they were made; `count` is their number.
void writeDecisions(const PageModel& model, std::size_t count, HtmlOut& html);

/// Nothing if there are none.
void writeLookAlikes(std::span<const PageLookAlike> lookAlikes, HtmlOut& html);

void writeUnread(std::span<const ScreenLine> lines, HtmlOut& html);

}  // namespace vantro
