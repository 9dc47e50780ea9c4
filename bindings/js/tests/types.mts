// Compiled, not run: what the types allow and what they refuse.
import {
    type Exchange, type Explanation, type Profile, ProfileParser, type Results, Terminal, Transaction, VantroError,
    classNames, describeClass, explain, explainPage, explainText, families, identify, missingKeys, parseProfile,
    splitDisplays, version,
} from "vantro-profile-utils";

const profile: Profile = parseProfile(">");
const text: string = profile.elements.RM[0].text + profile.name + (profile.psl?.number ?? "") + version;
// @ts-expect-error A profile cannot be changed.
profile.name = text;
// @ts-expect-error A display is a string.
parseProfile(1);

const search = new Transaction("CPDNTrans");
const command: string = search.createCommand({ strKeyName: "SMITH", intKeyIndex: 2, absent: undefined, list: ["", "A"] });
// @ts-expect-error No class reads an object.
search.createCommand({ strKeyName: {} });
const results: Results | null = search.verifyResponse(command, null);
search.verifyResponse(">", results);
const numbers: number[] = search.reported.map((error: VantroError) => error.number);

const parser = new ProfileParser();
const elements = parser.elements(">", "ALL", { selection: ["RM"], qualifier: "A", intKeyIndex: numbers[0] });
const count: number = parser.count("PPRElementsCount", ">", { searchString: "A" });
const list: string[] = parser.listOf("strPPRText");

const answered: Promise<Exchange> = new Terminal((sent: string) => sent).run("CPXTrans");
new Terminal(async (sent) => sent).run("CPXTrans", {}, results);
// @ts-expect-error A terminal needs answers.
new Terminal();

const explanation: Explanation = explain("profile", ">", results);
for (const piece of explanation.values[0].pieces) {
    const where: string = "inserted" in piece ? piece.inserted : `${piece.line}:${piece.column}`;
    explainText(where, ">");
}
explainPage("CPDNTrans", ">", { state: results, title: families.RM + classNames[0] });
missingKeys(identify(">")[0].className, { strKeyName: splitDisplays(">")[0].screen });
for (const { key, need } of describeClass("CPDNTrans").parameters ?? []) {
    if (need === "required") list.push(key);
}
export { answered, count, elements };
