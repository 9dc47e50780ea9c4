#include "cli/display_query.h"

#include "cli/screen_input.h"
#include "cli/standard_io.h"
#include "vantro/registry.h"

#include <algorithm>

namespace vantro {

namespace {

Text displayIn(const std::string& file) {
    if ((file.empty() || file == "-") && inputIsTerminal()) {
        complain("reading the display from standard input; end it with the end-of-file key");
    }
    return screenFromText(readAll(file));
}

}  // namespace

CollectionPtr askDisplay(const std::string& file, DisplayQuery query) {
    const Text display = displayIn(file);
    std::vector<Text> asked;
    for (const auto& entry : query.request->entries()) asked.push_back(entry.key());

    BuiltInTerminal terminal;
    const auto object = createObject(*findClass(query.className), terminal);
    if (object->profileGet()->ProfileElements(display, query.request, &query.selection, query.qualifier)) return {};

    const auto answer = std::make_shared<BuiltInCollection>();
    for (const auto& entry : query.request->entries()) {
        if (std::ranges::count(asked, entry.key()) == 0) answer->Add(entry.key(), entry.Value());
    }
    return answer;
}

}  // namespace vantro
