// Why a screen was read as it was, and what the library knows about its classes.
import { collectionWith } from "./collections.js";
import { textMadeBy, wasm, withArguments } from "./module.js";

const forms = { text: 0, json: 1, page: 2 };

function explained(form, what, screen, state, title) {
    return withArguments((args) => textMadeBy(
        wasm.vantro_explain, args.text(what === "profile" ? "" : what, "the class's name"), args.screen(screen),
        collectionWith(args, state), args.text(title, "the title"), form));
}

export function explainText(what, screen, state) {
    return explained(forms.text, what, screen, state, "");
}

export function explain(what, screen, state) {
    return JSON.parse(explained(forms.json, what, screen, state, ""));
}

export function explainPage(what, screen, { state, title = what } = {}) {
    return explained(forms.page, what, screen, state, title);
}

export function identify(screen) {
    return withArguments((args) => JSON.parse(textMadeBy(wasm.vantro_identify, args.screen(screen))));
}

export function describeClass(name) {
    return withArguments((args) =>
        JSON.parse(textMadeBy(wasm.vantro_describe_class, args.text(name, "the class's name"))));
}

export function missingKeys(className, parameters = {}) {
    return withArguments((args) => textMadeBy(
        wasm.vantro_missing_keys, args.text(className, "the class's name"), collectionWith(args, parameters)));
}

export function splitDisplays(lines) {
    return withArguments((args) => JSON.parse(textMadeBy(wasm.vantro_displays, args.text(lines, "the capture"))));
}
