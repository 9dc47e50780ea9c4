#include "cli/commands/commands.h"
#include "cli/commands/display_query.h"
#include "cli/io/utf.h"

#include <memory>

namespace vantro {

DisplayQuery queryFor(const NotesOptions& options) {
    DisplayQuery query{.className = u"CProfileNotes", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", Text(u"ProfileNotes"));
    query.request->Add(u"strSearchString", toUtf16(options.search));
    query.request->Add(u"strSearchQualifier", toUtf16(options.qualifier));
    return query;
}

int runNotes(const NotesOptions& options) {
    const Question question{.query = [&options] { return queryFor(options); }};
    return answerDisplays(options.common, question);
}

}  // namespace vantro
