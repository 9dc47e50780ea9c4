// Whole displays: the samples, every character, errors.
import assert from "node:assert/strict";
import test from "node:test";

import { Transaction, VantroError, families, parseProfile, wasm } from "./library.js";
import { profiles, read, screenOf } from "./samples.js";

const emptyElement = {
    number: "", text: "", kind: "", code: "", airline: "", frequentFlyerNumber: "", freeText: "",
};

/** A sample's expected values, as the package returns them. */
function expectedProfile(name) {
    const { notes, elements, problems = [], ...values } = JSON.parse(read(`expected/${name}.json`));
    const complete = ({ asterisk = false, ...element }) => {
        assert.equal(asterisk, false);
        return { ...emptyElement, ...element };
    };
    return {
        ...values,
        elements: Object.fromEntries(Object.entries(elements).map(([family, each]) => [family, each.map(complete)])),
        notes: notes.map((note) => ({ ...note, number: Number(note.number) })),
        problems,
    };
}

test("there are samples", () => assert.ok(profiles.length > 10));

for (const name of profiles) {
    test(`profile ${name}`, () => {
        const lines = read(`profiles/${name}.txt`);
        for (const display of [lines, screenOf(lines)]) {
            const { shownFamilies, ...profile } = parseProfile(display);
            assert.deepEqual(profile, expectedProfile(name));
            for (const [family, elements] of Object.entries(profile.elements)) {
                if (elements.length > 0) assert.ok(shownFamilies.includes(family), family);
            }
        }
    });
}

test("families have a meaning", () => {
    assert.equal(Object.keys(families).length, 29);
    assert.equal(families.PPR, "priority line");
});

test("shown families follow the sections", () => {
    const profile = parseProfile("------- PRIORITY\n   1 PPR/ AISLE\n>");
    assert.deepEqual(profile.sections, ["PRIORITY"]);
    assert.deepEqual(profile.shownFamilies, ["PPR"]);
});

// A display without an end: every search for a section fails.
test("failed queries are problems", () => {
    const { problems } = parseProfile("*T*".padEnd(80));
    assert.ok(problems.length > 20);
    for (const { query, number, description } of problems) assert.ok(query && number > 0 && description);
});

for (const text of ["É", "😀", "\ud800", "\0", "中".repeat(40)]) {
    test(`every character passes: ${JSON.stringify(text)}`, () => {
        const profile = parseProfile(`------- PRIORITY\n   1 PPR/ A${text}Z\n>`);
        assert.deepEqual(profile.elements.PPR.map((element) => element.text), [`A${text}Z`]);
    });
}

test("a long line is an error", () => {
    assert.throws(() => parseProfile("A\n" + "B".repeat(81) + "\n>"), (error) => {
        assert.ok(error instanceof VantroError);
        assert.equal(error.number, 5);
        assert.equal(error.description, "Line 2 has 81 characters, more than 80");
        assert.equal(error.message, "error 5: Line 2 has 81 characters, more than 80");
        return true;
    });
});

test("a display is a string", () => {
    for (const wrong of [undefined, null, 1, ["A"]]) assert.throws(() => parseProfile(wrong), TypeError);
});

test("memory is used again", () => {
    const lines = read("profiles/long_400.txt");
    const readAndFail = () => {
        parseProfile(lines);
        assert.throws(() => parseProfile("B\n" + "A".repeat(81)), VantroError);
        const notes = new Transaction("CProfileNotes");
        assert.notEqual(notes.verifyResponse(lines, { strKept: lines }), null);
        assert.throws(() => notes.verifyResponse(lines, null), VantroError);
    };
    for (let run = 0; run < 5; ++run) readAndFail();
    const size = wasm.memory.buffer.byteLength;
    for (let run = 0; run < 500; ++run) readAndFail();
    assert.equal(wasm.memory.buffer.byteLength, size);
});

test("a display may be large", () => {
    const line = "   1 PPR/ AISLE\n";
    const count = 30000;
    const profile = parseProfile("------- PRIORITY\n" + line.repeat(count) + ">");
    assert.equal(profile.elements.PPR.length, count);
    assert.equal(profile.elements.PPR[count - 1].text, "AISLE");
});
