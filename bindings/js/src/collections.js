// Objects with parameters and results, as the library's collections.
import { handleFrom, run, textFrom, wasm } from "./module.js";
import { numbered } from "./profiles.js";

const readValue = [
    () => null,
    (collection, entry) => wasm.vantro_collection_boolean(collection, entry) !== 0,
    (collection, entry) => wasm.vantro_collection_integer(collection, entry),
    (collection, entry) => textFrom(wasm.vantro_collection_text, collection, entry),
    (collection, entry) => numbered(wasm.vantro_collection_list_size(collection, entry), 0, (index) =>
        textFrom(wasm.vantro_collection_list_entry, collection, entry, index)),
];

function setInteger(args, collection, key, value) {
    if (!Number.isInteger(value)) throw new TypeError(`the number under "${key}" is no whole number`);
    if (value < -32768 || value > 32767) throw new RangeError(`the number under "${key}" has more than 16 bits`);
    run(wasm.vantro_collection_set_integer, collection, args.text(key), value);
}

function set(args, collection, key, value) {
    if (typeof value === "boolean") {
        run(wasm.vantro_collection_set_boolean, collection, args.text(key), value ? 1 : 0);
    } else if (typeof value === "number") {
        setInteger(args, collection, key, value);
    } else if (typeof value === "string") {
        run(wasm.vantro_collection_set_text, collection, args.text(key), args.text(value));
    } else if (Array.isArray(value)) {
        const entries = args.texts(value, `an entry of the list under "${key}"`);
        run(wasm.vantro_collection_set_list, collection, args.text(key), entries, value.length);
    } else {
        throw new TypeError(`the value under "${key}" is no boolean, number, string or array of strings`);
    }
}

/** The collection with the entries of an object, or 0 for none. A value that is undefined counts as absent. */
export function collectionWith(args, entries) {
    if (entries === null || entries === undefined) return 0;
    if (typeof entries !== "object") throw new TypeError("the parameters are no object");
    const collection = handleFrom(wasm.vantro_collection_new);
    args.onFree(wasm.vantro_collection_free, collection);
    for (const [key, value] of Object.entries(entries)) {
        if (value !== undefined) set(args, collection, key, value);
    }
    return collection;
}

/** The entries of a collection as an object. */
export function entriesOf(collection) {
    return Object.fromEntries(numbered(wasm.vantro_collection_size(collection), 0, (entry) => [
        textFrom(wasm.vantro_collection_key, collection, entry),
        readValue[wasm.vantro_collection_kind(collection, entry)](collection, entry),
    ]));
}
