// The samples of the repository: samples/README.md describes the format of an exchange.
import { readFileSync, readdirSync } from "node:fs";
import { fileURLToPath } from "node:url";

const folder = fileURLToPath(new URL("../../../samples/", import.meta.url));

function names(subfolder, ending) {
    return readdirSync(folder + subfolder).filter((name) => name.endsWith(ending)).sort()
        .map((name) => name.slice(0, -ending.length));
}

export const exchanges = names("exchanges", ".exchange");
export const profiles = names("profiles", ".txt");

export function read(name) {
    return readFileSync(folder + name, "utf8");
}

/** The lines padded and joined, the last one as it is. */
export function screenOf(lines) {
    const rows = lines.replace(/\n$/, "").split("\n");
    return rows.map((row, at) => (at + 1 < rows.length ? row.padEnd(80) : row)).join("");
}

const heads = /^(command|count|reported|command raises|results raises): (.*)$/;

function addLine(step, section, line) {
    const entry = line.match(/^ {2}("[^"]*"): (.*)$/);
    const head = line.match(heads);
    if (line === "params:" || line === "results:") step[line.slice(0, -1)] = {};
    else if (line === "screen:") step.screen = "";
    else if (line === "state: previous") step.statePrevious = true;
    else if (line === "results: none") step.results = null;
    else if (section === "screen:" && /^\|.*\|$/.test(line)) step.screen += line.slice(1, -1);
    else if (entry) step[section.slice(0, -1)][JSON.parse(entry[1])] = JSON.parse(entry[2]);
    else if (head) step[head[1]] = JSON.parse(head[2]);
    else throw new Error(`not understood: ${line}`);
}

/** The steps of an exchange. A section that the file does not have is undefined. */
export function stepsOf(name) {
    const steps = [];
    let section = "";
    for (const line of read(`exchanges/${name}.exchange`).split("\n")) {
        if (line === "" || line.startsWith("#")) continue;
        if (line.startsWith("== ")) {
            steps.push({ className: line.slice(3), reported: [] });
            section = "";
            continue;
        }
        addLine(steps.at(-1), section, line);
        if (/^[a-z]+:$/.test(line)) section = line;
    }
    return steps;
}
