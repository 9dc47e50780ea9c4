// The WebAssembly module and its memory. Texts are UTF-16 on both sides, so that no character is lost.
import { VantroError } from "./error.js";
import { moduleBytes } from "./module_bytes.js";

/** The sizes of the C interface's types in bytes: a text is an address, a size and an encoding, each of four. */
const textSize = 12;
const viewSize = 8;
const utf16 = 1;

async function instantiate() {
    const module = await WebAssembly.compile(moduleBytes());
    // The system that the C++ library asks for, which reading texts does not need: every call fails.
    const system = {};
    for (const { module: from, name } of WebAssembly.Module.imports(module)) {
        system[from] ??= {};
        system[from][name] = () => 52;
    }
    const { exports } = await WebAssembly.instantiate(module, system);
    exports._initialize();
    return exports;
}

/** The functions of the module. */
export const wasm = await instantiate();

/** A place for an address or a view that a function returns. */
const result = wasm.malloc(viewSize);

let memory = {};

/** The memory as numbers of 32 and 16 bits. The module replaces its memory when it grows. */
function current() {
    const { buffer } = wasm.memory;
    if (buffer !== memory.buffer) memory = { buffer, words: new Uint32Array(buffer), units: new Uint16Array(buffer) };
    return memory;
}

function lastError() {
    const begin = wasm.vantro_error_description();
    const bytes = new Uint8Array(wasm.memory.buffer, begin);
    const description = new TextDecoder().decode(bytes.slice(0, bytes.indexOf(0)));
    return new VantroError(wasm.vantro_error_number(), description);
}

function check(status) {
    if (status !== 0) throw lastError();
}

/** The text of the view that the function returns. */
export function textFrom(read, ...args) {
    read(result, ...args);
    const { words, units } = current();
    const begin = words[result / 4] / 2;
    const end = begin + words[result / 4 + 1];
    let text = "";
    for (let at = begin; at < end; at += 8192) {
        text += String.fromCharCode.apply(null, units.subarray(at, Math.min(at + 8192, end)));
    }
    return text;
}

/** A zero-terminated ASCII text. */
export function asciiAt(address) {
    const bytes = new Uint8Array(wasm.memory.buffer, address);
    return String.fromCharCode(...bytes.subarray(0, bytes.indexOf(0)));
}

/** The handle that the function writes to the address after its other arguments. */
export function handleFrom(make, ...args) {
    check(make(...args, result));
    return current().words[result / 4];
}

/** The text that the function makes, or null if it makes none. */
export function textMadeBy(make, ...args) {
    const made = handleFrom(make, ...args);
    try {
        return textFrom(wasm.vantro_string_view, made);
    } finally {
        wasm.vantro_string_free(made);
    }
}

/** Calls a function that returns 0 or an error's number. */
export function run(call, ...args) {
    check(call(...args));
}

/** Memory for the arguments of a call. */
class Arguments {
    #freed = [];

    take(size) {
        const address = wasm.malloc(size);
        if (address === 0) throw new VantroError(7, "Out of memory");
        this.onFree(wasm.free, address);
        return address;
    }

    onFree(free, handle) {
        this.#freed.push(() => free(handle));
    }

    /** A text as an argument; `what` names it if it is none. */
    text(text, what = "the text") {
        return this.texts([text], what);
    }

    /** An array of texts. */
    texts(texts, what) {
        if (!texts.every((text) => typeof text === "string")) throw new TypeError(`${what} is no string`);
        const units = texts.reduce((sum, text) => sum + text.length, 0);
        const first = this.take(texts.length * textSize + units * 2);
        let characters = first + texts.length * textSize;
        const memory = current();
        texts.forEach((text, index) => {
            memory.words.set([characters, text.length, utf16], (first + index * textSize) / 4);
            for (let at = 0; at < text.length; ++at) memory.units[characters / 2 + at] = text.charCodeAt(at);
            characters += text.length * 2;
        });
        return first;
    }

    /** The screen in text lines, or the screen itself. A line of more than 80 characters is error 5. */
    screen(lines, what = "the screen") {
        const screen = handleFrom(wasm.vantro_screen, this.text(lines, what));
        this.onFree(wasm.vantro_string_free, screen);
        const argument = this.take(textSize);
        wasm.vantro_string_view(argument, screen);
        current().words[argument / 4 + 2] = utf16;
        return argument;
    }

    free() {
        for (const free of this.#freed.reverse()) free();
    }
}

/** What the body returns. What its arguments took is freed after it. */
export function withArguments(body) {
    const args = new Arguments();
    try {
        return body(args);
    } finally {
        args.free();
    }
}
