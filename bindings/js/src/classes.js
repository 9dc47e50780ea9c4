// The classes: one per host transaction, and the parsers of displays.
import { collectionWith, entriesOf } from "./collections.js";
import { VantroError } from "./error.js";
import { handleFrom, run, textFrom, textMadeBy, wasm, withArguments } from "./module.js";
import { numbered } from "./profiles.js";

export const classNames = Object.freeze(
    numbered(wasm.vantro_class_count(), 0, (index) => textFrom(wasm.vantro_class_name, index)));

const unreachable = new FinalizationRegistry((handle) => wasm.vantro_object_free(handle));

class LibraryObject {
    #handle;
    #name;

    constructor(name) {
        this.#handle = withArguments((args) => handleFrom(wasm.vantro_object_new, args.text(name, "the class's name")));
        this.#name = name;
        unreachable.register(this, this.#handle);
    }

    get name() {
        return this.#name;
    }

    get reported() {
        return numbered(wasm.vantro_reported_count(this.#handle), 0, (index) => new VantroError(
            wasm.vantro_reported_number(this.#handle, index),
            textFrom(wasm.vantro_reported_description, this.#handle, index)));
    }

    count(name, display, { searchString = "", qualifier = "" } = {}) {
        return this.withHandle((handle, args) => {
            const result = args.take(2);
            run(wasm.vantro_count, handle, args.text(name, "the name"), args.screen(display, "the display"),
                args.text(searchString, "the search string"), args.text(qualifier, "the qualifier"), result);
            return new Int16Array(wasm.memory.buffer)[result / 2];
        });
    }

    listOf(name) {
        return this.withHandle((handle, args) => {
            const list = args.text(name, "the name");
            return numbered(wasm.vantro_list_size(handle, list), 0, (index) =>
                textFrom(wasm.vantro_list_entry, handle, list, index));
        });
    }

    /** What the body returns for the handle and memory for arguments. */
    withHandle(body) {
        return withArguments((args) => body(this.#handle, args));
    }
}

export class Transaction extends LibraryObject {
    createCommand(parameters) {
        return this.withHandle((handle, args) =>
            textMadeBy(wasm.vantro_create_command, handle, collectionWith(args, parameters)));
    }

    verifyResponse(screen, state) {
        return this.withHandle((handle, args) => {
            const results = handleFrom(
                wasm.vantro_verify_response, handle, args.screen(screen), collectionWith(args, state));
            if (results === 0) return null;
            args.onFree(wasm.vantro_collection_free, results);
            return entriesOf(results);
        });
    }
}

export class ProfileParser extends LibraryObject {
    constructor(name = "CProfile") {
        super(name);
    }

    elements(display, prefix, { selection = [], qualifier = "", ...parameters } = {}) {
        return this.withHandle((handle, args) => {
            const request = collectionWith(args, { strKeyPrefix: prefix, ...parameters });
            const isKnown = args.take(4);
            run(wasm.vantro_profile_elements, handle, args.screen(display, "the display"), request,
                args.texts(selection, "an entry of the selection"), selection.length,
                args.text(qualifier, "the qualifier"), isKnown);
            return new Int32Array(wasm.memory.buffer)[isKnown / 4] !== 0 ? entriesOf(request) : null;
        });
    }
}

export class Terminal {
    #reply;
    #transactions = new Map();

    constructor(reply) {
        this.#reply = typeof reply === "string" ? () => reply : reply;
        if (typeof this.#reply !== "function") throw new TypeError("the reply is no function and no screen");
    }

    async run(className, parameters, state = parameters) {
        const transaction = this.#transactionOf(className);
        const command = transaction.createCommand(parameters);
        if (command === "") return { command, screen: null, results: null };
        const screen = await this.#reply(command);
        return { command, screen, results: transaction.verifyResponse(screen, state) };
    }

    #transactionOf(className) {
        if (!this.#transactions.has(className)) this.#transactions.set(className, new Transaction(className));
        return this.#transactions.get(className);
    }
}
