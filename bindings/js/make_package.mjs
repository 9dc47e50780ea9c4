// Puts the npm package together: node make_package.mjs MODULE.wasm FOLDER
import { cpSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, "..", "..");
const [module, folder] = process.argv.slice(2);

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
cpSync(join(here, "src"), folder, { recursive: true });
cpSync(join(here, "README.md"), join(folder, "README.md"));
cpSync(join(root, "LICENSE"), join(folder, "LICENSE"));

// The version is that of the library.
const [, version] = readFileSync(join(root, "CMakeLists.txt"), "utf8").match(/project\(VantroProfileUtils VERSION ([0-9.]+)/);
const description = JSON.parse(readFileSync(join(here, "package.json"), "utf8"));
writeFileSync(join(folder, "package.json"), JSON.stringify({ ...description, version }, null, 2) + "\n");

// The module as text in a script: it is found wherever the scripts are, by bundlers too, and in a page without a server.
writeFileSync(join(folder, "module_bytes.js"), `// The WebAssembly module.
const base64 = "${readFileSync(module).toString("base64")}";

export function moduleBytes() {
    return Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
}
`);
