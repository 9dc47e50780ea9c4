#include "cli/export/views.h"

#include <array>

namespace vantro {

namespace {

constexpr ViewColumn displayId{"display_id", "p.display_id", "as in profiles"};
constexpr ViewColumn locator{"record_locator", "p.record_locator", "as in profiles"};
constexpr ViewColumn kind{"kind", "p.kind", "as in profiles"};
constexpr ViewColumn name{"name", "p.name", "as in profiles"};

constexpr std::array contacts{
    displayId,
    locator,
    kind,
    name,
    ViewColumn{"company", "p.company", "as in profiles"},
    ViewColumn{"office", "p.office", "as in profiles"},
    ViewColumn{"contact_count", "(SELECT count(*) FROM elements WHERE display_id = p.display_id AND family = 'AP')",
               "the number of its contacts, the elements of family AP"},
    ViewColumn{"contacts", R"((
    SELECT group_concat(contact, '; ') FROM (
        SELECT trim(iif(text GLOB 'AP *', substr(text, 3), text)) AS contact FROM elements
        WHERE display_id = p.display_id AND family = 'AP' ORDER BY position)))",
               "the texts of these, in their order, without the word AP"},
};

// The host prints dates as 11NOV31. A year of two digits is the latest one that is at most 20 years after the first
// run, so that the dates of a birth or of an issue are in the past. A date that no calendar has is none.
constexpr std::string_view expires = R"((
    WITH latest(year) AS (
        SELECT CAST(substr(coalesce(min(started), date('now')), 1, 4) AS INTEGER) + 20 FROM runs)
    SELECT max(day) FROM (
        SELECT printf('%04d-%02d-%s',
                iif(length(value) = 9, substr(value, 6), latest.year - (latest.year - substr(value, 6)) % 100),
                (instr('JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC', substr(value, 3, 3)) + 2) / 3,
                substr(value, 1, 2)) AS day
        FROM latest, json_each('[' || replace(json_quote(
                replace(replace(replace(replace(replace(e.text, '-', ' '), '/', ' '), ',', ' '), '.', ' '), ':', ' ')),
                ' ', '","') || ']')
        WHERE (value GLOB '[0-3][0-9][A-Z][A-Z][A-Z][0-9][0-9]'
               OR value GLOB '[0-3][0-9][A-Z][A-Z][A-Z][0-9][0-9][0-9][0-9]')
            AND instr('JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC', substr(value, 3, 3)) % 3 = 1)
    WHERE day = date(day, '+0 days')))";

constexpr std::array documents{
    displayId,
    locator,
    name,
    ViewColumn{"family", "e.family", "PAS: passport, PIV: visa, PID: identity document"},
    ViewColumn{"position", "e.position", "as in elements"},
    ViewColumn{"document", "e.text", "the text of the element"},
    ViewColumn{"expires", expires, "the latest date in the text, such as 11NOV31, as 2031-11-11; null without one"},
};

constexpr std::array counts{
    ViewColumn{"display_id", "display_id", "as in profiles"},
    ViewColumn{"family", "family", "as in elements"},
    ViewColumn{"elements", "count(*)", "the number of its elements in the profile"},
};

constexpr std::array<ViewFacts, 3> views{{
    {"profile_contacts", "one row per profile, with its contacts", contacts, "profiles AS p"},
    {"documents", "one row per passport, visa and identity document", documents,
     "elements AS e JOIN profiles AS p ON p.display_id = e.display_id WHERE e.family IN ('PAS', 'PIV', 'PID')"},
    {"element_counts", "one row per profile and family that it has", counts, "elements GROUP BY display_id, family"},
}};

}  // namespace

std::span<const ViewFacts> exportViews() { return views; }

}  // namespace vantro
