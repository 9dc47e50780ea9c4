// What the samples of exchanges do not show: parsers, lists, wrong arguments, terminals.
import assert from "node:assert/strict";
import test from "node:test";

import { ProfileParser, Terminal, Transaction, VantroError, classNames, version } from "./library.js";
import { read, screenOf } from "./samples.js";

const priority = "------- PRIORITY\n   1 PPR/ AISLE\n   2 PPR/ WINDOW\n>";
const transferable = "------- PNR TRANSFERABLE DATA\nS      1     RM  WINDOW\nS      2     AP  555-0101\n>";

function hasNumber(number) {
    return (error) => error instanceof VantroError && error.number === number;
}

test("every class exists", () => {
    assert.equal(classNames.length, 19);
    for (const name of classNames) assert.equal(new Transaction(name).name, name);
});

test("the version is the library's", () => {
    const [, expected] = read("../CMakeLists.txt").match(/project\(VantroProfileUtils VERSION ([0-9.]+)/);
    assert.equal(version, expected);
});

test("an unknown class is an error", () => {
    assert.throws(() => new Transaction("CPDNTran"), hasNumber(429));
});

test("a missing operation is an error", () => {
    assert.throws(() => new ProfileParser("CPDNTrans").elements(priority, "PHI"), hasNumber(438));
    assert.throws(() => new ProfileParser().count("PHICount", priority), hasNumber(438));
    assert.throws(() => new Transaction("CProfile").createCommand({}), hasNumber(438));
    assert.throws(() => new Transaction("CProfile").verifyResponse(">"), hasNumber(438));
});

for (const display of [priority, screenOf(priority)]) {
    test(`a family and its lists, ${display.length} characters`, () => {
        const parser = new ProfileParser();
        assert.deepEqual(parser.elements(display, "PPR"), {
            "strKeyPrefix": "PPR",
            "strKeyElement()": ["", "AISLE", "WINDOW"],
            "strKeyElementNr()": ["", "1", "2"],
        });
        assert.equal(parser.count("PPRElementsCount", display), 2);
        assert.deepEqual(parser.listOf("strPPRText"), ["", "AISLE", "WINDOW"]);
        assert.deepEqual(parser.listOf("strText"), []);
    });
}

test("one element and a selection", () => {
    const parser = new ProfileParser();
    assert.equal(parser.elements(transferable, "AP", { intKeyIndex: 1 }).strKeyElement, "AP  555-0101");
    assert.deepEqual(parser.elements(transferable, "ALL", { selection: ["ap"] }).strKeyElNbrsArray, ["", "2"]);
});

test("an unknown prefix has no answer", () => assert.equal(new ProfileParser().elements(priority, "XXX"), null));

test("notes are searched", () => {
    const display = "PN\n------- PROFILE NOTES\nA SPEAKS FRENCH\nB SPEAKS DANISH\nEND OF DISPLAY";
    const parser = new ProfileParser("CProfileNotes");
    const count = (options) => parser.count("ProfileNotesElementsCount", display, options);
    assert.equal(count({ searchString: "DANISH" }), 1);
    assert.equal(count({ qualifier: "A" }), 1);
    assert.equal(count(), 2);
});

test("an empty screen has no results", () => assert.equal(new Transaction("CPXTrans").verifyResponse(""), null));

test("a screen may consist of lines", () => {
    const search = new Transaction("CPDNTrans");
    const results = search.verifyResponse("PDN/-SMITH/ANNA/\n*T* SMITH/ANNA MS\n");
    assert.equal(results.blnKeyTrProfile, true);
    assert.deepEqual(results, search.verifyResponse("PDN/-SMITH/ANNA/".padEnd(80) + "*T* SMITH/ANNA MS"));
});

test("wrong values", () => {
    const create = (value) => new Transaction("CPDNTrans").createCommand({ strKeyName: value });
    for (const value of [32768, -32769, 2 ** 80]) assert.throws(() => create(value), RangeError);
    for (const value of [1.5, NaN, null, [1], {}, 1n, () => ""]) assert.throws(() => create(value), TypeError);
    assert.equal(create(undefined), new Transaction("CPDNTrans").createCommand({}));
});

test("wrong arguments", () => {
    const parser = new ProfileParser();
    assert.throws(() => parser.elements(null, "PHI"), TypeError);
    assert.throws(() => parser.elements(priority, "ALL", { selection: [1] }), TypeError);
    assert.throws(() => parser.elements(priority, "ALL", { qualifier: 1 }), TypeError);
    assert.throws(() => parser.listOf(1), TypeError);
    assert.throws(() => new Transaction("CPDNTrans").createCommand("strKeyName"), TypeError);
    assert.throws(() => new Transaction(undefined), TypeError);
    assert.throws(() => new Terminal(undefined), TypeError);
});

test("a terminal runs transactions", async () => {
    const commands = [];
    const terminal = new Terminal(async (command) => {
        commands.push(command);
        return `${command}\n*T* SMITH/ANNA MS\n`;
    });
    const { command, screen, results } =
        await terminal.run("CPDNTrans", { strKeyName: "SMITH/ANNA", blnKeyExactMatch: true });
    assert.equal(command, "PDN/-SMITH/ANNA/");
    assert.equal(screen, "PDN/-SMITH/ANNA/\n*T* SMITH/ANNA MS\n");
    assert.equal(results.blnKeyTrProfile, true);
    assert.deepEqual(commands, [command]);
});

test("a terminal asks nothing without a command", async () => {
    const terminal = new Terminal(() => assert.fail("nothing was to be sent"));
    assert.deepEqual(await terminal.run("CPDNTrans", {}), { command: "", screen: null, results: null });
});

test("a terminal may have one screen", async () => {
    const terminal = new Terminal("PX3\nPROFILE DEACTIVATED");
    const { results } = await terminal.run("CPXTrans", {});
    assert.equal(typeof results.blnKeyResponseOK, "boolean");
    await assert.rejects(terminal.run("CPDNTran"), hasNumber(429));
});
