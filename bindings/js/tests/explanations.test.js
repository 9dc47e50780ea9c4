// Explanations, and what the library says about its classes.
import assert from "node:assert/strict";
import test from "node:test";

import {
    Transaction, VantroError, classNames, describeClass, explain, explainPage, explainText, identify, missingKeys,
    parseProfile, splitDisplays,
} from "./library.js";
import { exchanges, profiles, read, screenOf, stepsOf } from "./samples.js";

function hasNumber(number) {
    return (error) => error instanceof VantroError && error.number === number;
}

/** The text that the pieces of a value name. */
function joined(explanation, value) {
    return value.pieces.map((piece) => piece.inserted
        ?? explanation.screen[piece.line].slice(piece.column - 1, piece.column - 1 + piece.length)).join("");
}

test("the values of a profile are where the explanation says", () => {
    for (const name of profiles) {
        const lines = read(`profiles/${name}.txt`);
        const explanation = explain("profile", lines);
        assert.equal(explanation.screen.join(""), screenOf(lines), name);
        const placed = explanation.values.filter((value) => value.pieces.length > 0);
        for (const value of placed) assert.equal(joined(explanation, value), value.value, `${name}: ${value.name}`);
        assert.equal(explanation.results.name, parseProfile(lines).name);
    }
});

test("the results of a class are those of its call", () => {
    const steps = exchanges.map((name) => stepsOf(name)[0]).filter((step) => step.results && step.screen);
    assert.ok(steps.length > 50);
    for (const step of steps) {
        const explanation = explain(step.className, step.screen, step.params);
        assert.deepEqual(explanation.results, step.results);
        assert.equal(explanation.class, step.className);
    }
});

test("an error of the class is part of the explanation", () => {
    const { error, results } = explain("CProfileMode", "PM\n*PROFILE MODE*");  // it needs a collection
    assert.equal(error.number, 5045);
    assert.equal(results, undefined);
});

test("an explanation as text and as a page", () => {
    const lines = "------- PRIORITY\n   1 PPR/ AISLE <b>\n>";
    assert.match(explainText("profile", lines), /PPR/);
    const page = explainPage("profile", lines, { title: "Aisle & window" });
    assert.match(page, /^<!DOCTYPE html>/);
    assert.match(page, /<h1>Aisle &amp; window<\/h1>/);
    assert.match(page, /AISLE &lt;b&gt;/);
    assert.match(explainPage("CPXTrans", "PX3\nPROFILE DEACTIVATED"), /<h1>CPXTrans<\/h1>/);
});

test("an explanation of an unknown class is an error", () => {
    assert.throws(() => explain("CPDNTran", ">"), hasNumber(429));
    assert.throws(() => explain("CProfile", ">"), hasNumber(438));
});

test("classes are described", () => {
    for (const name of classNames) assert.equal(describeClass(name).class, name);
    const { parameters, commands } = describeClass("CPDNTrans");
    assert.ok(parameters.some(({ key }) => key === "strKeyName"));
    for (const { example, command } of commands) {
        const entries = example.map(({ key, value }) => [key, key.startsWith("bln") ? value === "True" : value]);
        assert.equal(new Transaction("CPDNTrans").createCommand(Object.fromEntries(entries)), command);
    }
    assert.throws(() => describeClass("CPDNTran"), hasNumber(429));
});

test("screens are identified", () => {
    const classes = identify(read("profiles/traveller.txt")).map(({ className }) => className);
    assert.deepEqual(classes.slice(0, 2), ["CPDRTrans", "CProfile"]);  // the display begins with the command PDR
    const [step] = stepsOf("pdn_company_list");
    const [first] = identify(step.screen);
    assert.equal(first.className, "CPDNTrans");
    assert.ok(first.reasons.every(({ line, mark, meaning }) => line >= 0 && mark && meaning));
    assert.deepEqual(identify("NOTHING OF THE HOST"), []);
});

test("missing keys are named", () => {
    assert.match(missingKeys("CPDRTrans"), /strKeyRecLoc/);
    assert.throws(() => missingKeys("CProfile"), hasNumber(438));
});

test("captures are split", () => {
    const traveller = read("profiles/traveller.txt");
    const displays = splitDisplays(`${traveller}\n${traveller}`);
    assert.equal(displays.length, 2);
    assert.equal(displays[0].line, 1);
    for (const { screen } of displays) assert.equal(parseProfile(screen).name, parseProfile(traveller).name);
    assert.match(splitDisplays("A\n" + "B".repeat(81) + "\n>\n")[0].problem, /81/);
});
