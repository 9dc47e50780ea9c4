// Links the screen of an explanation with the lists of its values and decisions. Without it the page is complete, but
// its parts are linked one way only.
"use strict";

const data = JSON.parse(document.getElementById("data").textContent);
const box = document.getElementById("box");
const panel = document.getElementById("selection");

const lines = Array.from(document.querySelectorAll(".line"));
const segmentsOf = data.values.map(() => []); // by value
for (const segment of document.querySelectorAll("[data-values]")) {
    for (const value of segment.dataset.values.split(" ")) segmentsOf[value].push(segment);
}

// What the screen can focus, by line: its number, then its values.
const rows = lines.map((line) => Array.from(line.querySelectorAll(".number, [role=button]")));

// Small helpers

function element(name, text, attributes = {}) {
    const made = document.createElement(name);
    made.textContent = text;
    for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
    return made;
}

// As the page shows such characters elsewhere.
function visible(text) {
    return text
        .replace(/[\u0000-\u001f]/g, (control) => String.fromCharCode(0x2400 + control.charCodeAt(0)))
        .replace(/\u007f/g, "\u2421")
        .replace(/[\u2028\u2029]/g, "\u2424")
        .replace(/[\u0080-\u009f\u061c\u200e\u200f\u202a-\u202e\u2066-\u2069]/g, "\ufffd");
}

function columnsOf(piece) {
    const last = piece.column + piece.length - 1;
    const columns = last > piece.column ? ", columns " + piece.column + "\u2013" + last : ", column " + last;
    return "line " + piece.line + columns;
}

function isPlaced(piece) {
    return piece.line !== undefined;
}

// What a selection marks: an object with segments, lines and list entries

function partsOf(selection) {
    if (selection.kind === "values") {
        const [value] = selection.values;
        return {
            segments: segmentsOf[value],
            lines: [],
            entries: selection.values.map((each) => document.getElementById("value-" + each)),
        };
    }
    if (selection.kind === "decision") {
        const decision = data.decisions[selection.decision];
        const found = decision.found.filter(isPlaced);
        const entry = document.getElementById("decision-" + selection.decision).firstElementChild;
        if (found.length > 0) {
            return { segments: found.flatMap(segmentsAt), lines: found.map((piece) => piece.line), entries: [entry] };
        }
        return { segments: [], lines: range(decision.first, decision.last), entries: [entry] };
    }
    return {
        segments: [],
        lines: range(selection.first, selection.last),
        entries: decisionsAbout(selection.first, selection.last).map(
            (each) => document.getElementById("decision-" + each).firstElementChild),
    };
}

function range(first, last) {
    const numbers = [];
    for (let number = Math.max(first, 0); number <= last && number < lines.length; ++number) numbers.push(number);
    return numbers;
}

function segmentsAt(piece) {
    const line = lines[piece.line];
    if (!line) return [];
    return Array.from(line.querySelectorAll("[data-column]")).filter((segment) => {
        const column = Number(segment.dataset.column);
        return piece.column <= column && column < piece.column + piece.length;
    });
}

// A search passes over many lines; it is about the line in which it found its mark.
function decisionsAbout(first, last) {
    const isThere = (line) => first <= line && line <= last;
    const about = [];
    data.decisions.forEach((decision, number) => {
        const is = decision.isSearch
            ? decision.found.some((piece) => isPlaced(piece) && isThere(piece.line))
            : decision.first >= 0 && decision.first <= last && decision.last >= first;
        if (is) about.push(number);
    });
    return about;
}

// Shown and kept selections: pointing at something shows it, choosing it keeps it

let kept = null;
let marked = [];

function mark(each, isPressed) {
    each.classList.add("hit");
    if (each.hasAttribute("aria-pressed")) each.setAttribute("aria-pressed", isPressed);
    marked.push(each);
}

function show(selection) {
    for (const each of marked) {
        each.classList.remove("hit");
        if (each.hasAttribute("aria-pressed")) each.setAttribute("aria-pressed", "false");
    }
    marked = [];
    panel.replaceChildren(...describe(selection));
    panel.classList.toggle("nothing", selection === null);
    if (selection === null) return;
    const parts = partsOf(selection);
    for (const segment of parts.segments) mark(segment, selection === kept);
    for (const line of parts.lines) if (lines[line]) mark(lines[line]);
    for (const entry of parts.entries) mark(entry);
}

function keep(selection) {
    kept = selection;
    show(selection);
}

function scrollScreen(selection) {
    const parts = partsOf(selection);
    const target = parts.segments[0] || lines[parts.lines[0]];
    if (!target) return;
    const line = target.closest(".line");
    line.scrollIntoView({ block: "nearest", inline: "start" });
    if (target !== line) target.scrollIntoView({ block: "nearest", inline: "nearest" });
}

function unfold(entry) {
    const details = entry.closest("details");
    if (details) details.open = true;
}

function scrollLists(selection) {
    const [entry] = partsOf(selection).entries;
    if (!entry) return;
    unfold(entry);
    // Beside the screen. Below it, the page would leave the screen.
    if (window.matchMedia("(min-width: 1100px)").matches) entry.scrollIntoView({ block: "nearest" });
}

// The selection in words

function describe(selection) {
    if (selection === null) {
        return [element("h2", "Nothing selected"),
            element("p", "Point at a value, a line number or a decision, or focus it; Enter or a click keeps it.",
                { class: "note" })];
    }
    const heading = element("h2", headingOf(selection));
    if (selection === kept) {
        const clear = element("button", "Clear", { type: "button" });
        clear.addEventListener("click", () => release());
        heading.append(clear);
    }
    return [heading, ...bodyOf(selection)];
}

function headingOf(selection) {
    if (selection.kind === "values") {
        return selection.values.length === 1 ? "Value" : selection.values.length + " values";
    }
    if (selection.kind === "decision") return "Decision " + (selection.decision + 1);
    return selection.first === selection.last
        ? "Line " + selection.first : "Lines " + selection.first + "\u2013" + selection.last;
}

function bodyOf(selection) {
    if (selection.kind === "values") return selection.values.flatMap(valueCard);
    if (selection.kind === "decision") return decisionCard(selection.decision);
    return lineCard(selection);
}

function valueCard(number) {
    const value = data.values[number];
    const group = data.groups[value.group];
    const list = document.createElement("dl");
    const add = (term, text) => {
        if (text) list.append(element("dt", term), element("dd", text));
    };
    add("Name", value.names.map(visible).join(", "));
    add("Element", value.index > 0 ? String(value.index) : "");
    add("Read by", group.name + (group.meaning ? ": " + group.meaning : ""));
    add("Meaning", value.meaning === group.meaning ? "" : value.meaning);
    add("Rule", value.rule);
    addPieces(value.pieces, add);
    return [element("h3", visible(value.text)), list, linkTo("#value-" + number)];
}

function linkTo(target) {
    const paragraph = element("p", "", { class: "to-list" });
    paragraph.append(element("a", "Show in the list", { href: target }));
    return paragraph;
}

function addPieces(pieces, add) {
    if (pieces.length === 1) {
        add("Where", columnsOf(pieces[0]));
        return;
    }
    pieces.forEach((piece, at) => {
        const where = isPlaced(piece) ? columnsOf(piece) : "inserted, not on the screen";
        add("Piece " + (at + 1), "\u201c" + visible(piece.text) + "\u201d " + where);
    });
}

function decisionCard(number) {
    const decision = data.decisions[number];
    const group = data.groups[decision.group];
    const entry = document.getElementById("decision-" + number);
    const by = element("p", "Read by " + group.name + (group.meaning ? ": " + group.meaning : ""), { class: "note" });
    return [element("p", entry.textContent.trim()), by, linkTo("#decision-" + number)];
}

function lineCard(selection) {
    const about = decisionsAbout(selection.first, selection.last);
    const isUnread = range(selection.first, selection.last).every((line) => lines[line].classList.contains("unread"));
    const parts = [];
    if (isUnread) parts.push(element("p", "Nothing was read from it."));
    for (const alike of document.querySelectorAll("#look-alikes [data-line]")) {
        const line = Number(alike.dataset.line);
        if (selection.first <= line && line <= selection.last) parts.push(element("p", alike.textContent));
    }
    if (about.length === 0) return [...parts, element("p", "No reader decided about it.")];
    // Many queries decide the same about a line: one sentence, and a link to each.
    const list = document.createElement("ul");
    const items = new Map();
    for (const number of about) {
        const text = document.getElementById("decision-" + number).textContent.trim();
        if (!items.has(text)) items.set(text, element("li", text + ":"));
        const { name } = data.groups[data.decisions[number].group];
        items.get(text).append(" ", element("a", visible(name), { href: "#decision-" + number }));
    }
    list.append(...items.values());
    return [...parts, list];
}

// What the reader points at, focuses and chooses

function selectionOf(target) {
    const source = target.closest("[data-values], [data-value], [data-decision], [data-line]");
    if (!source) return null;
    const { values, value, decision, line, last } = source.dataset;
    if (values !== undefined) return { kind: "values", values: values.split(" ").map(Number), from: source };
    if (value !== undefined) return { kind: "values", values: [Number(value)], from: source };
    if (decision !== undefined) return { kind: "decision", decision: Number(decision), from: source };
    return { kind: "lines", first: Number(line), last: Number(last === undefined ? line : last), from: source };
}

function choose(selection) {
    keep(selection);
    if (box && box.contains(selection.from)) scrollLists(selection);
    scrollScreen(selection);
}

function release() {
    keep(null);
}

document.addEventListener("click", (event) => {
    const selection = selectionOf(event.target);
    if (selection) {
        event.preventDefault();
        if (box && box.contains(selection.from)) moveTo(selection.from);
        choose(selection);
        return;
    }
    const link = event.target.closest("a[href^='#']");
    const target = link && document.getElementById(link.getAttribute("href").slice(1));
    if (!target) return;
    event.preventDefault();
    unfold(target);
    target.scrollIntoView({ block: "start" });
    const focused = target.matches("section") ? target : target.querySelector("a") || target;
    focused.focus({ preventScroll: true });
});

function preview(event) {
    if (!panel.contains(event.target)) show(selectionOf(event.target) || kept);
}

// When the page scrolls below a pointer that stays where it is, nobody points at anything.
let pointer = "";
document.addEventListener("mouseover", (event) => {
    const moved = event.clientX + " " + event.clientY;
    if (moved !== pointer) preview(event);
});
for (const name of ["mousemove", "click"]) {
    document.addEventListener(name, (event) => { pointer = event.clientX + " " + event.clientY; }, { capture: true });
}
document.addEventListener("focusin", preview);

document.addEventListener("keydown", (event) => {
    if (event.key === "Escape") release();
});

// The keys of the screen. It is one stop of the Tab key.

let current = rows.length > 0 ? rows[0][0] : null;
let wantedColumn = 0;

const columnOf = (item) => Number(item.dataset.column || 0);

function moveTo(item) {
    current.tabIndex = -1;
    current = item;
    current.tabIndex = 0;
    wantedColumn = columnOf(item);
    current.focus();
}

function moveToRow(number) {
    const row = rows[Math.min(Math.max(number, 0), rows.length - 1)];
    const wanted = wantedColumn;
    const distance = (item) => Math.abs(columnOf(item) - wanted);
    moveTo(row.reduce((best, item) => (distance(item) < distance(best) ? item : best)));
    wantedColumn = wanted;
}

function moveBy(step) {
    const all = rows.flat();
    moveTo(all[Math.min(Math.max(all.indexOf(current) + step, 0), all.length - 1)]);
}

function screenKey(event) {
    const row = rows.findIndex((items) => items.includes(current));
    const moves = {
        ArrowLeft: () => moveBy(-1),
        ArrowRight: () => moveBy(1),
        ArrowUp: () => moveToRow(row - 1),
        ArrowDown: () => moveToRow(row + 1),
        PageUp: () => moveToRow(row - 10),
        PageDown: () => moveToRow(row + 10),
        Home: () => moveToRow(0),
        End: () => moveToRow(rows.length - 1),
        Enter: () => choose(selectionOf(current)),
        " ": () => choose(selectionOf(current)),
    };
    if (!moves[event.key] || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    moves[event.key]();
}

if (box) box.addEventListener("keydown", screenKey);

// Paper has no folds.

let folded = [];
window.addEventListener("beforeprint", () => {
    const unfolded = Array.from(document.querySelectorAll("details:not([open])"));
    for (const details of unfolded) details.open = true;
    folded = folded.concat(unfolded);
});
window.addEventListener("afterprint", () => {
    for (const details of folded) details.open = false;
    folded = [];
});

show(null);
