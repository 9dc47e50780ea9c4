// Whole displays.
import { handleFrom, textFrom, wasm, withArguments } from "./module.js";

const values = {
    name: 0, recordLocator: 1, officeIdentifier: 2, companyName: 3, companyNumber: 4, pin: 5, pinNumber: 6, psl: 7,
    pslNumber: 8,
};
const parts = { number: 1, text: 0, code: 2, airline: 3, frequentFlyerNumber: 4, freeText: 5 };

/** What `read` returns for the numbers from `first` on. */
export function numbered(count, first, read) {
    return Array.from({ length: count }, (_, index) => read(index + first));
}

/** The words of all families and what they mean. */
export const families = Object.freeze(Object.fromEntries(numbered(wasm.vantro_family_count(), 0, (family) =>
    [textFrom(wasm.vantro_family_word, family), textFrom(wasm.vantro_family_meaning, family)])));

const words = Object.keys(families);
const sections = numbered(wasm.vantro_section_count(), 0, (section) => textFrom(wasm.vantro_section_title, section));

function elementOf(profile, family, at) {
    const kind = wasm.vantro_element_kind(profile, family, at);
    const element = { number: "", text: "", kind: kind === 0 ? "" : String.fromCharCode(kind) };
    for (const [name, part] of Object.entries(parts)) {
        element[name] = textFrom(wasm.vantro_element_part, profile, family, at, part);
    }
    return element;
}

function noteOf(profile, at) {
    return {
        number: wasm.vantro_note_number(profile, at),
        qualifier: textFrom(wasm.vantro_note_qualifier, profile, at),
        text: textFrom(wasm.vantro_note_text, profile, at),
    };
}

function problemOf(profile, at) {
    return {
        query: textFrom(wasm.vantro_problem_query, profile, at),
        number: wasm.vantro_problem_number(profile, at),
        description: textFrom(wasm.vantro_problem_description, profile, at),
    };
}

function profileOf(profile) {
    const read = (value) => textFrom(wasm.vantro_profile_value, profile, value);
    const isThere = (value) => wasm.vantro_profile_has_value(profile, value) !== 0;
    const elementsOf = (family) =>
        numbered(wasm.vantro_element_count(profile, family), 1, (at) => elementOf(profile, family, at));
    return {
        name: read(values.name),
        recordLocator: read(values.recordLocator),
        officeIdentifier: read(values.officeIdentifier),
        companyName: {
            number: isThere(values.companyNumber) ? read(values.companyNumber) : null,
            text: read(values.companyName),
        },
        pin: { number: read(values.pinNumber), text: read(values.pin) },
        psl: isThere(values.psl) ? { number: read(values.pslNumber), text: read(values.psl) } : null,
        sections: sections.filter((_, section) => wasm.vantro_section_is_shown(profile, section) !== 0),
        shownFamilies: words.filter((_, family) => wasm.vantro_family_is_shown(profile, family) !== 0),
        elements: Object.fromEntries(words.map((word, family) => [word, elementsOf(family)])),
        notes: numbered(wasm.vantro_note_count(profile), 1, (at) => noteOf(profile, at)),
        problems: numbered(wasm.vantro_problem_count(profile), 1, (at) => problemOf(profile, at)),
    };
}

export function parseProfile(display) {
    return withArguments((args) => {
        const profile = handleFrom(wasm.vantro_profile_parse, args.screen(display, "the display"));
        args.onFree(wasm.vantro_profile_free, profile);
        return profileOf(profile);
    });
}
