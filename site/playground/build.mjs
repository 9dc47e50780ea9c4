// Writes the playground as one file: node build.mjs PACKAGE FOLDER
//
// The package's scripts and the page's own are joined into one script: a page that is opened from a file may not load
// others.
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, "..", "..");
const [packageFolder, folder] = process.argv.slice(2);
const read = (...path) => readFileSync(join(...path), "utf8");

/** In the order in which they need each other. */
const scripts = ["error", "module_bytes", "module", "profiles", "collections", "classes", "explanations"];

function script() {
    const own = read(here, "playground.js");
    const joined = scripts.map((name) => read(packageFolder, `${name}.js`)).join("\n")
        .replace(/^import [^;]*;\n/gm, "").replace(/^export /gm, "");
    if (/<\/script/i.test(joined + own)) throw new Error("a script contains the end of a script");
    return `${joined}\n{\n${own}\n}`;
}

function style() {
    const [base, screen] = read(root, "cli", "explain", "page", "explain.css").split("/* The screen */");
    if (!screen) throw new Error("explain.css has no part that begins with /* The screen */");
    return base + read(here, "playground.css");
}

function profile(name, title) {
    return { name, title, screen: read(root, "samples", "profiles", `${name}.txt`) };
}

/** The first screen of an exchange. */
function exchange(name, title) {
    const [, screen] = read(root, "samples", "exchanges", `${name}.exchange`).match(/^screen:\n((?:\|.*\|\n)+)/m);
    return { name, title, screen: screen.replace(/^\||\s*\|$/gm, "") };
}

const samples = [
    profile("traveller", "Display of a traveller's profile"),
    profile("company", "Display of a company's profile"),
    profile("every_family", "Display with every family of elements"),
    profile("odd", "Display with odd lines"),
    exchange("pdn_company_list", "List of companies"),
    exchange("pdn_traveller_list", "List of travellers"),
    exchange("rlp_linked_profiles", "Profiles linked to a booking"),
    exchange("pdr_not_found", "Record locator not found"),
];

const parts = {
    STYLE: style(),
    SAMPLES: JSON.stringify(samples).replaceAll("<", "\\u003c"),
    SCRIPT: script(),
};
const page = read(here, "playground.html").replace(/\/\*([A-Z]+)\*\//g, (_, name) => parts[name]);
mkdirSync(folder, { recursive: true });
writeFileSync(join(folder, "index.html"), page);
