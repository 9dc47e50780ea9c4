#include "cli/classes/identify.h"

#include "cli/classes/screen_marks.h"
#include "cli/io/utf.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace vantro {

namespace {

// ---- The command that the host repeats in the first line

bool isLower(char16_t letter) { return letter >= u'a' && letter <= u'z'; }
bool isUpper(char16_t letter) { return letter >= u'A' && letter <= u'Z'; }

// The form up to its first placeholder or bracket: "PDN/" of "PDN/[office/]company[/]".
TextView headOf(TextView form) {
    const auto end = std::ranges::find_if(form, [](char16_t sign) { return sign == u'[' || isLower(sign); });
    return form.substr(0, static_cast<std::size_t>(end - form.begin()));
}

bool repeats(TextView line, TextView form) {
    const TextView head = headOf(form);
    if (head.size() == form.size()) return line == head;
    if (!line.starts_with(head)) return false;
    const TextView rest = line.substr(head.size());
    // A letter would be part of another code, except for the form's own: "PTO" of "PT[O][lines]".
    const bool isSameCode = rest.empty() || head.ends_with(u'/') || !isUpper(rest.front());
    return isSameCode || form.substr(head.size()).starts_with(Text{u'[', rest.front(), u']'});
}

// The first line without the host's prompt in front and the blanks around it.
TextView firstLine(TextView screen) {
    TextView line = screen.substr(0, screenWidth);
    line.remove_prefix(std::min(line.find_first_not_of(u"> "), line.size()));
    return line.substr(0, line.find_last_not_of(u' ') + 1);
}

bool repeatsCommand(TextView line, const ClassRow& row) {
    return std::ranges::any_of(row.description.forms,
                               [line](const CommandForm& form) { return repeats(line, form.form); });
}

// ---- Candidates

std::string meaningOf(const ClassRow& row, TextView flag) {
    const auto result = std::ranges::find(row.description.results, flag, &ResultRow::key);
    return result == row.description.results.end() ? "the host has found nothing" : toUtf8(result->meaning);
}

Candidate candidate(TextView screen, const ClassRow& row) {
    Candidate found{&row, false, {}};
    const TextView line = firstLine(screen);
    if (repeatsCommand(line, row)) {
        found.isAnswer = true;
        found.reasons.push_back({{}, "the screen answers a command of the class", 0, Text(line)});
    }
    for (const SeenMark& seen : marksOn(screen, row)) {
        const ScreenFlag& flag = *seen.flag;
        found.reasons.push_back({flag.flag, meaningOf(row, flag.flag), seen.line, Text(flag.mark)});
    }
    return found;
}

Candidate displayWith(TextView mark, std::size_t line, const std::string& meaning) {
    return {findClass(u"CProfile"), false, {{{}, meaning + "; parse reads it", line, Text(mark)}}};
}

bool containsRule(TextView screen) {
    for (; !screen.empty(); screen.remove_prefix(std::min<std::size_t>(screenWidth, screen.size()))) {
        if (screen.starts_with(u"-----")) return true;
    }
    return false;
}

// The title of a profile's display, or a section's rule where the title is not on the screen. The host may print lines
// above the title. In its first line, where it repeats the command, it may print the mark above any message: there the
// mark counts only with a rule on the screen.
std::optional<Candidate> profileDisplay(TextView screen) {
    constexpr std::size_t titleLines = 10;
    constexpr TextView sectionMark = u"------- ";
    std::optional<Candidate> section;
    for (std::size_t line = 0; line * screenWidth < screen.size(); ++line) {
        const TextView text = screen.substr(line * screenWidth, screenWidth);
        const TextView start = text.substr(0, 3);
        const bool mayBeTitle = line < titleLines && (line > 0 || containsRule(screen));
        if (mayBeTitle && start == u"*T*") return displayWith(start, line, "a traveller's profile is displayed");
        if (mayBeTitle && start == u"*C*") return displayWith(start, line, "a company's profile is displayed");
        if (text.starts_with(sectionMark) && !section) {
            section = displayWith(sectionMark, line, "a part of a profile is displayed");
        }
    }
    return section;
}

std::size_t marksOf(const Candidate& candidate) { return candidate.reasons.size() - (candidate.isAnswer ? 1 : 0); }

bool isBetter(const Candidate& left, const Candidate& right) {
    const auto rank = [](const Candidate& each) {
        return std::tuple(each.isAnswer, !each.row->hasProfileTrans, marksOf(each));
    };
    return rank(left) > rank(right);
}

}  // namespace

std::vector<Candidate> identify(TextView screen) {
    std::vector<Candidate> candidates;
    bool isAnswerRecognised = false;
    for (const ClassRow& row : classTable()) {
        Candidate found = candidate(screen, row);
        isAnswerRecognised = isAnswerRecognised || (found.isAnswer && marksOf(found) > 0);
        if (!found.reasons.empty()) candidates.push_back(std::move(found));
    }
    if (isAnswerRecognised) std::erase_if(candidates, [](const Candidate& each) { return !each.isAnswer; });
    if (auto display = profileDisplay(screen)) candidates.push_back(std::move(*display));
    std::ranges::stable_sort(candidates, isBetter);
    return candidates;
}

}  // namespace vantro
