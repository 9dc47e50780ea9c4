// The playground: the package's functions are in scope.
const at = (id) => document.getElementById(id);
const samples = JSON.parse(at("samples").textContent);

function addOptions(select, options) {
    for (const [value, text] of options) select.append(new Option(text, value));
}

// Reading

/** A display of the text that is pasted, or the whole text where it is one screen. */
function chosenDisplay(text) {
    const displays = text.trim().includes("\n") ? splitDisplays(text) : [];
    const chosen = Math.min(Math.max(at("display").selectedIndex, 0), Math.max(displays.length - 1, 0));
    at("display-field").hidden = displays.length < 2;
    at("display").replaceChildren();
    addOptions(at("display"), displays.map(({ line }, index) => [index, `${index + 1}, from line ${line} on`]));
    at("display").selectedIndex = displays.length > 0 ? chosen : -1;
    if (displays.length === 0) return text;
    if (displays[chosen].problem) throw new Error(displays[chosen].problem);
    return displays[chosen].screen;
}

/** What the screen is read as, and why. */
function detected(text) {
    const candidates = identify(text);
    if (candidates.length === 0) return ["profile", "no mark of any class is on it, so it is read as a whole profile"];
    const display = candidates.find(({ className }) => className === "CProfile");
    const { className, reasons } = display ?? candidates[0];
    const { mark, meaning, line } = reasons.at(-1);
    // What follows is about the tool.
    return [display ? "profile" : className, `line ${line} shows “${mark.trim()}”: ${meaning.split(";")[0]}`];
}

/** The first display decides what a capture is. */
function whatToRead(text) {
    const chosen = at("what").value;
    if (chosen !== "") return [chosen, ""];
    const displays = text.trim().includes("\n") ? splitDisplays(text) : [];
    return detected(displays.length > 1 ? displays[0].screen : text);
}

function stateOf(what) {
    at("state-field").hidden = what === "profile";
    if (what === "profile") return undefined;
    try {
        const state = JSON.parse(at("state").value || "{}");
        if (state === null || typeof state !== "object" || Array.isArray(state)) throw new SyntaxError();
        return state;
    } catch {
        at("state-field").open = true;
        throw new Error("The state is no JSON object.");
    }
}

function say(text, isFailure = false) {
    at("status").textContent = text;
    at("status").classList.toggle("failed", isFailure);
}

let pageAddress = "";

function showPage(page) {
    at("page").srcdoc = page;
    URL.revokeObjectURL(pageAddress);
    pageAddress = URL.createObjectURL(new Blob([page], { type: "text/html" }));
    at("page-link").href = pageAddress;
}

function readAs(what, reason, screen) {
    const state = stateOf(what);
    const title = what === "profile" ? "Whole profile" : what;
    const { outcome, results, error } = explain(what, screen, state);
    showPage(explainPage(what, screen, { state, title }));
    at("results").textContent = error ? "" : JSON.stringify(results, null, 2);
    at("results-field").hidden = error !== undefined;
    at("answer").hidden = false;
    const because = reason ? ` (${reason})` : "";
    if (error) return say(`Read as ${title}${because}. Error ${error.number}: ${error.description}`, true);
    // The queries of a whole profile have a line each on the page.
    return say(`Read as ${title}${because}. ${what === "profile" ? "" : outcome}`);
}

function read() {
    const text = at("screen").value;
    if (text.trim() === "") {
        at("answer").hidden = true;
        at("display-field").hidden = true;
        return say("Paste a screen or a display, drop a file, or choose a sample.");
    }
    try {
        const [what, reason] = whatToRead(text);
        const screen = what === "profile" ? chosenDisplay(text) : text;
        if (what !== "profile") at("display-field").hidden = true;
        readAs(what, reason, screen);
    } catch (error) {
        at("answer").hidden = true;
        say(error.message, true);
    }
    return undefined;
}

let waiting = 0;

function readSoon() {
    clearTimeout(waiting);
    waiting = setTimeout(read, 200);
}

function setScreen(text) {
    at("screen").value = text;
    at("display").selectedIndex = -1;
    read();
}

/** A text from elsewhere is no sample. */
function setOwnScreen(text) {
    at("sample").value = "";
    setScreen(text);
}

async function readFile(file) {
    if (file) setOwnScreen(await file.text());
}

function chooseSample(name) {
    const sample = samples.find((each) => each.name === name);
    at("sample").value = sample ? name : "";
    at("what").value = "";
    at("state").value = "{}";
    setScreen(sample ? sample.screen : "");
}

function prepareReading() {
    addOptions(at("sample"), samples.map(({ name, title }) => [name, title]));
    const readers = classNames.filter((name) => describeClass(name).interfaces.includes("IProfileTrans"));
    addOptions(at("what"), readers.map((name) => [name, `${name}: ${describeClass(name).transactions.join(", ")}`]));
    at("sample").addEventListener("change", () => chooseSample(at("sample").value));
    at("file").addEventListener("change", () => readFile(at("file").files[0]));
    for (const id of ["what", "display"]) at(id).addEventListener("change", read);
    for (const id of ["screen", "state"]) at(id).addEventListener("input", readSoon);
    at("screen").addEventListener("input", () => { at("sample").value = ""; });
    document.addEventListener("dragover", (event) => {
        event.preventDefault();
        at("screen").classList.add("over");
    });
    document.addEventListener("dragleave", () => at("screen").classList.remove("over"));
    document.addEventListener("drop", (event) => {
        at("screen").classList.remove("over");
        const { files } = event.dataTransfer;
        const text = event.dataTransfer.getData("text/plain");
        event.preventDefault();
        if (files.length > 0) readFile(files[0]);
        else if (text) setOwnScreen(text);
    });
}

// Building

const fieldId = (key) => `parameter-${key.replace(/\W/g, "-")}`;

function fieldFor({ kind }) {
    if (kind === "list of texts") return Object.assign(document.createElement("textarea"), { rows: 3 });
    const types = { boolean: "checkbox", integer: "number" };
    return Object.assign(document.createElement("input"), { type: types[kind] ?? "text", autocomplete: "off" });
}

/** The texts that the class knows are offered; others may be entered. */
function offer(field, values) {
    const list = Object.assign(document.createElement("datalist"), { id: `${field.id}-values` });
    list.append(...values.map((value) => new Option(value)));
    field.setAttribute("list", list.id);
    return list;
}

function needOf({ need, when }) {
    if (need === "required") return "required";
    return need === "conditional" ? `needed ${when}` : "";
}

function describedField(row) {
    const field = fieldFor(row);
    field.id = fieldId(row.key);
    field.dataset.key = row.key;
    field.dataset.kind = row.kind;
    field.spellcheck = false;
    const label = Object.assign(document.createElement("label"), { htmlFor: field.id, textContent: row.key });
    const need = Object.assign(document.createElement("span"), { className: "need", textContent: needOf(row) });
    if (need.textContent) label.append(" ", need);
    const hint = row.kind === "list of texts" ? "; one entry per line, from entry 0 on" : "";
    const note = Object.assign(document.createElement("p"), { className: "note", textContent: row.meaning + hint });
    note.id = `${field.id}-note`;
    field.setAttribute("aria-describedby", note.id);
    const box = Object.assign(document.createElement("div"), { className: "parameter" });
    const isCheck = field.type === "checkbox";
    box.classList.toggle("check", isCheck);
    box.append(...(isCheck ? [field, label, note] : [label, field, note]));
    if (row.values) box.append(offer(field, row.values));
    return box;
}

const fields = () => Array.from(at("parameters").querySelectorAll("[data-key]"));

/** What the fields contain; an empty field is absent. */
function parametersOf() {
    const entries = [];
    for (const { dataset: { key, kind }, checked, value } of fields()) {
        if (kind === "boolean" ? !checked : value === "") continue;
        if (kind === "boolean") entries.push([key, true]);
        else if (kind === "integer") entries.push([key, Number(value)]);
        else entries.push([key, kind === "list of texts" ? value.split("\n") : value]);
    }
    return Object.fromEntries(entries);
}

function quoted(argument) {
    return /^[\w=/.+:,@%-]+$/.test(argument) ? argument : `'${argument.replaceAll("'", "'\\''")}'`;
}

function toolLine(className, parameters) {
    const words = ["vantro-profile", "command", className];
    for (const [key, value] of Object.entries(parameters)) {
        const each = Array.isArray(value) ? value : [value === true ? "True" : value];
        words.push(...each.map((entry) => quoted(`${key}=${entry}`)));
    }
    return words.join(" ");
}

function build() {
    const className = at("class").value;
    const parameters = parametersOf();
    let command = "";
    let advice = "";
    try {
        command = new Transaction(className).createCommand(parameters);
        if (command === "") advice = `Nothing may be sent: ${missingKeys(className, parameters)}`;
    } catch (error) {
        advice = error.message;
    }
    at("command").textContent = command;
    at("advice").textContent = advice;
    at("advice").classList.toggle("failed", command === "");
    at("tool").textContent = toolLine(className, parameters);
}

function fill(example) {
    for (const field of fields()) {
        const values = example.filter(({ key }) => key === field.dataset.key).map(({ value }) => value);
        if (field.type === "checkbox") field.checked = values[0] === "True";
        else field.value = values.join("\n");
    }
    build();
}

function chooseClass(name) {
    const { purpose, parameters, commands } = describeClass(name);
    at("class").value = name;
    at("purpose").textContent = purpose;
    at("parameters").replaceChildren(...parameters.map(describedField));
    at("example").replaceChildren(new Option("none", ""));
    addOptions(at("example"), commands.map(({ command, when }, index) => [index, when ? `${command} (${when})` : command]));
    const hasExample = commands.length > 0;
    at("example").value = hasExample ? "0" : "";
    fill(hasExample ? commands[0].example : []);
}

function prepareBuilding() {
    const builders = classNames.filter((name) => describeClass(name).commands?.length > 0);
    addOptions(at("class"), builders.map((name) => [name, `${name}: ${describeClass(name).transactions.join(", ")}`]));
    at("class").addEventListener("change", () => chooseClass(at("class").value));
    at("example").addEventListener("change", () => {
        const chosen = at("example").value;
        fill(chosen === "" ? [] : describeClass(at("class").value).commands[chosen].example);
    });
    at("parameters").addEventListener("input", build);
    at("parameters").addEventListener("submit", (event) => event.preventDefault());
    chooseClass(builders.includes("CPDNTrans") ? "CPDNTrans" : builders[0]);
}

/** "#sample=traveller" and "#class=CPDNTrans" choose what is shown at first. */
function followAddress() {
    const wanted = new URLSearchParams(location.hash.slice(1));
    if (samples.some(({ name }) => name === wanted.get("sample"))) chooseSample(wanted.get("sample"));
    else if (at("screen").value === "") chooseSample(samples[0].name);
    else read();
    if (Array.from(at("class").options).some(({ value }) => value === wanted.get("class"))) {
        chooseClass(wanted.get("class"));
        at("build").scrollIntoView();
    }
}

prepareReading();
prepareBuilding();
followAddress();
window.addEventListener("hashchange", followAddress);
