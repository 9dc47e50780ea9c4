/** An error of the library: its number, as automation clients know it, and its description. */
export class VantroError extends Error {
    constructor(number, description) {
        super(`error ${number}: ${description}`);
        this.name = "VantroError";
        this.number = number;
        this.description = description;
    }
}
