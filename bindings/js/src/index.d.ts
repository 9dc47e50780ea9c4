/**
 * Profiles of travel-agency reservation terminals: whole displays, and the classes for every host transaction.
 *
 * A screen or display is a string: text lines, as a file has them, or the screen itself, 80 characters per line without
 * separators. A text line of more than 80 characters is error 5. Lines count from 0 and columns from 1.
 */

/** The version of the library, such as "0.1.0". */
export const version: string;

/** An error of the library. */
export class VantroError extends Error {
    constructor(number: number, description: string);
    /** The number, as automation clients know it; 438 is an operation or property that a class does not have. */
    readonly number: number;
    readonly description: string;
}

// --- Whole displays

/** A header value with the number of its line; null if the line has no number. */
export interface NumberedText {
    readonly number: string | null;
    readonly text: string;
}

/** An element of a family. Parts that its family does not have are empty. */
export interface Element {
    /** As printed, trimmed. */
    readonly number: string;
    /** Trimmed, with continuation lines joined. */
    readonly text: string;
    /** Of transferable elements: "S" or "A". */
    readonly kind: "" | "S" | "A";
    /** Of service requests. */
    readonly code: string;
    /** Of frequent flyers and service requests. */
    readonly airline: string;
    /** Of frequent flyers and service requests. */
    readonly frequentFlyerNumber: string;
    /** Of service requests and confidential remarks. */
    readonly freeText: string;
}

/** A line of the notes. */
export interface Note {
    /** Position of the line below the notes' header, from 1. */
    readonly number: number;
    /** The line's first two characters. */
    readonly qualifier: string;
    /** The rest of the line, trimmed. */
    readonly text: string;
}

/** A query that failed; its value in the profile is empty. */
export interface Problem {
    readonly query: string;
    readonly number: number;
    readonly description: string;
}

/** All values of a display. A value that the display does not show is empty. */
export interface Profile {
    readonly name: string;
    readonly recordLocator: string;
    readonly officeIdentifier: string;
    readonly companyName: NumberedText;
    readonly pin: NumberedText;
    readonly psl: NumberedText | null;
    /** The titles of the sections that the display shows. */
    readonly sections: readonly string[];
    /**
     * The families whose section the display shows, or that have elements elsewhere. Of the others nothing is known.
     */
    readonly shownFamilies: readonly string[];
    /** By the word of the family ("PHI"), for every family; element k is at index k - 1. */
    readonly elements: Readonly<Record<string, readonly Element[]>>;
    readonly notes: readonly Note[];
    readonly problems: readonly Problem[];
}

/** The words of all families and what they mean. */
export const families: Readonly<Record<string, string>>;

/**
 * Reads a complete display. No content of a display is an error: a query that fails is one of the profile's problems.
 *
 * @throws VantroError 5 for a text line of more than 80 characters
 */
export function parseProfile(display: string): Profile;

// --- Classes

/** A parameter. A number is whole and has 16 bits; undefined counts as absent. */
export type Value = boolean | number | string | readonly string[] | undefined;

/** Parameters or state. */
export type Parameters = Readonly<Record<string, Value>>;

/**
 * Results in the order in which they were added. Entry 0 of a list that counts from 1 is empty. It can be passed on as
 * the state for the next screen.
 */
export type Results = Record<string, boolean | number | string | string[]>;

/** The names of all classes. */
export const classNames: readonly string[];

/** What all objects of the library have. */
declare abstract class LibraryObject {
    /** The name of the class. */
    readonly name: string;

    /** The errors that the last operation reported and did not raise. */
    readonly reported: readonly VantroError[];

    /**
     * The value of the count property with this name ("PHIElementsCount"), which refills its lists. The search string
     * and the qualifier are for the notes only.
     *
     * @throws VantroError 438 for an unknown name
     */
    count(name: string, display: string, options?: { searchString?: string; qualifier?: string }): number;

    /** The list with this name ("strPHIText") as the last count filled it; empty if the class has no such list. */
    listOf(name: string): string[];
}

/** A host transaction: `new Transaction("CPDNTrans")`. */
export class Transaction extends LibraryObject {
    /** @throws VantroError 429 for an unknown class */
    constructor(className: string);

    /**
     * The command for these parameters, exactly as it must be sent; empty when nothing may be sent.
     *
     * @throws TypeError for a value of another type, RangeError for a number of more than 16 bits, VantroError
     */
    createCommand(parameters?: Parameters | null): string;

    /**
     * What the screen says, or null for an empty screen. The state is what an earlier screen or the command's parameters
     * left; it is not changed. The results of classes that add to the state begin with its entries.
     *
     * @throws TypeError for a value of another type, RangeError for a number of more than 16 bits, VantroError
     */
    verifyResponse(screen: string, state?: Parameters | null): Results | null;
}

/** A parser of displays, one query at a time. Lists of counts are kept until the next count. */
export class ProfileParser extends LibraryObject {
    /**
     * @param className "CProfile" if absent
     * @throws VantroError 429 for an unknown class
     */
    constructor(className?: string);

    /**
     * The elements with this prefix ("PHI"), or null if the class does not know it. The results begin with the request.
     *
     * @param request further keys of the request (`{ intKeyIndex: 2 }`); the selection and the qualifier are for the
     *     prefix "ALL" only
     * @throws VantroError
     */
    elements(
        display: string,
        prefix: string,
        request?: { selection?: readonly string[]; qualifier?: string; [key: string]: Value },
    ): Results | null;
}

/** A command, the host's screen and what it says. The screen and the results are null when nothing may be sent. */
export interface Exchange {
    readonly command: string;
    readonly screen: string | null;
    readonly results: Results | null;
}

/** A terminal: it builds commands, has them answered, and reads the answers. It keeps one object per class. */
export class Terminal {
    /** @param reply the screen that answers a command, or one screen that answers every command */
    constructor(reply: string | ((command: string) => string | Promise<string>));

    /**
     * Runs one transaction.
     *
     * @param state the results of the screen before, for a further screen of a list; the parameters if absent
     * @throws VantroError what the class raises, and whatever `reply` throws
     */
    run(className: string, parameters?: Parameters | null, state?: Parameters | null): Promise<Exchange>;
}

// --- Explanations

/** Characters in one line of the screen: the line from 0, the column from 1. */
export interface Place {
    readonly line: number;
    readonly column: number;
    readonly length: number;
}

/** A piece of a value: where it is, or a text that the screen does not contain there. */
export type Piece = Place | { readonly inserted: string };

/** A value that was read, or a key that was added. The texts of its pieces, joined, are the value. */
export interface ExplainedValue {
    /** The index of the step that read it. */
    readonly step: number;
    /** The key, or the name of the part of an element. */
    readonly name: string;
    /** The word of the family of elements. */
    readonly family?: string;
    /** Of an element, note or row, from 1; of an entry of a list, from 0. */
    readonly index?: number;
    readonly value: boolean | number | string | readonly string[];
    readonly meaning?: string;
    readonly pieces: readonly Piece[];
}

/** Something that happened while a screen was read. */
export interface ExplainedStep {
    readonly kind:
        | "callBegins" | "callEnds" | "queryBegins" | "queryEnds" | "keyRead" | "markSearched" | "decided"
        | "valueRead" | "keyAdded" | "entryAdded" | "reported";
    /** The step in words. */
    readonly sentence: string;
    /** The index of the value that was read or added. */
    readonly value?: number;
    readonly line?: number;
    readonly lastLine?: number;
    readonly family?: string;
    /** The name of the rule that decided; it is kept from release to release. */
    readonly rule?: string;
    readonly name?: string;
    readonly text?: string;
    readonly mark?: string;
    readonly search?: "startsLine" | "inLine" | "onScreen" | "terminal";
    readonly isFound?: boolean;
    readonly pieces?: readonly Piece[];
    readonly meaning?: string;
    readonly error?: ExplainedError;
}

/** An error that a call or query raised, or that was reported. */
export interface ExplainedError {
    readonly number: number;
    readonly source: string;
    readonly description: string;
}

/** A line that looks like an element of a family and is none. */
export interface LookAlike {
    readonly line: number;
    readonly family: string;
    readonly meaning: string;
    readonly pieces: readonly Piece[];
    readonly rule?: string;
    readonly decidedIn?: number;
    /** The reason in words. */
    readonly sentence: string;
}

/** How a screen was read: the object that `vantro-profile explain --json` prints. */
export interface Explanation {
    readonly call: string;
    readonly class?: string;
    /** The lines, each of 80 characters but the last. */
    readonly screen: readonly string[];
    readonly values: readonly ExplainedValue[];
    readonly steps: readonly ExplainedStep[];
    readonly lookAlikes: readonly LookAlike[];
    /** Whether something was found, and what was empty or failed, in words. Absent after an error. */
    readonly outcome?: string;
    /** The results, or the profile. Absent after an error. */
    readonly results?: unknown;
    /** The error that the call raised. */
    readonly error?: ExplainedError;
}

/**
 * Explains how a screen is read: every value with its place, and every decision in order.
 *
 * @param what the name of a class, or "profile" for a whole profile
 * @throws VantroError 429 for an unknown class, 438 for one that reads no screens
 */
export function explain(what: string, screen: string, state?: Parameters | null): Explanation;

/** The same as plain text, a step per line. */
export function explainText(what: string, screen: string, state?: Parameters | null): string;

/** The same as one HTML page that needs no other file and no network. */
export function explainPage(
    what: string, screen: string, options?: { state?: Parameters | null; title?: string }): string;

/** A class that reads a screen, and the marks that say so. */
export interface Candidate {
    readonly className: string;
    readonly reasons: readonly { readonly line: number; readonly mark: string; readonly meaning: string }[];
}

/** The classes that read a screen, the most likely first: "CProfile" for a profile's display. */
export function identify(screen: string): Candidate[];

/** A key that a call reads. */
export interface ParameterDescription {
    readonly key: string;
    readonly kind: "text" | "boolean" | "integer" | "list of texts" | "integer or text";
    readonly need: "optional" | "conditional" | "required";
    /** When a conditional key is needed, as the end of a sentence. */
    readonly when?: string;
    readonly meaning: string;
    /** The texts that the class knows. */
    readonly values?: readonly string[];
}

/** A key that a call adds. */
export interface ResultDescription {
    readonly key: string;
    readonly kind: ParameterDescription["kind"];
    /** When it is added, as the end of a sentence; absent for a key that is always added. */
    readonly when?: string;
    readonly meaning: string;
}

/** A form of a class's command, with an example. */
export interface CommandDescription {
    readonly form: string;
    readonly when?: string;
    readonly example: readonly { readonly key: string; readonly value: string }[];
    readonly command: string;
}

/** What a class is for, reads and adds. */
export interface ClassDescription {
    readonly class: string;
    readonly purpose: string;
    readonly remark?: string;
    readonly interfaces: readonly string[];
    readonly transactions: readonly string[];
    readonly parameters?: readonly ParameterDescription[];
    readonly commands?: readonly CommandDescription[];
    readonly passedCollection?: "ignored" | "optional" | "required" | "returned";
    readonly state?: readonly ParameterDescription[];
    readonly results?: readonly ResultDescription[];
    readonly screens?: readonly {
        readonly flag?: string;
        readonly mark: string;
        readonly position:
            "startsLine" | "inLine" | "onScreen" | "notOnScreen" | "sameLine" | "lineLater" | "endsList";
        readonly firstLine?: number;
        readonly lastLine?: number;
        readonly otherMark?: string;
        readonly command?: string;
    }[];
    readonly screensRule?: string;
    readonly columns?: readonly { readonly name: string; readonly meaning: string }[];
    readonly request?: readonly ParameterDescription[];
    readonly elements?: readonly ResultDescription[];
    readonly counts: readonly string[];
    readonly countsMeaning?: string;
    readonly errors: readonly { readonly call: string; readonly number: number; readonly meaning: string }[];
}

/** @throws VantroError 429 for an unknown class */
export function describeClass(name: string): ClassDescription;

/**
 * Which keys parameters lack whose command is empty, in words.
 *
 * @throws VantroError 429 for an unknown class, 438 for one that builds no commands
 */
export function missingKeys(className: string, parameters?: Parameters): string;

/** A display in a text that contains several. */
export interface CapturedDisplay {
    /** The line of the text in which it begins, from 1. */
    readonly line: number;
    /** The display: 80 characters per line without separators. */
    readonly screen: string;
    /** Why the display cannot be read in full. */
    readonly problem?: string;
}

/** The displays in a text of lines. Each ends with "END OF DISPLAY" or a line of the prompt ">" alone. */
export function splitDisplays(lines: string): CapturedDisplay[];
