import { asciiAt, wasm } from "./module.js";

export { classNames, ProfileParser, Terminal, Transaction } from "./classes.js";
export { VantroError } from "./error.js";
export { describeClass, explain, explainPage, explainText, identify, missingKeys, splitDisplays } from "./explanations.js";
export { families, parseProfile } from "./profiles.js";

export const version = asciiAt(wasm.vantro_library_version());
