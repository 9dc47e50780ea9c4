// The body of a function: the texts and lines of the page whose contrast is too low, by the formula of WCAG 2.

const parse = (text) => {
    const parts = text.match(/[\d.]+/g).map(Number);
    return { rgb: parts.slice(0, 3), alpha: parts.length > 3 ? parts[3] : 1 };
};

const over = (top, bottom) => top.rgb.map((part, at) => part * top.alpha + bottom[at] * (1 - top.alpha));

function backgroundOf(element) {
    const layers = [];
    for (let each = element; each; each = each.parentElement) {
        const layer = parse(getComputedStyle(each).backgroundColor);
        layers.push(layer);
        if (layer.alpha === 1) break;
    }
    return layers.reverse().reduce((below, layer) => over(layer, below), [255, 255, 255]);
}

function luminance(rgb) {
    const [red, green, blue] = rgb.map((part) => {
        const share = part / 255;
        return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
    });
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

function contrast(one, other) {
    const [low, high] = [luminance(one), luminance(other)].sort((a, b) => a - b);
    return (high + 0.05) / (low + 0.05);
}

const low = [];
let checked = 0;

function check(element, colour, wanted, what) {
    const background = backgroundOf(element);
    const ratio = contrast(over(parse(colour), background), background);
    ++checked;
    if (ratio < wanted) low.push([what, element.className, element.textContent.slice(0, 40), ratio.toFixed(2)]);
}

const seen = new Set();
const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
while (texts.nextNode()) {
    const element = texts.currentNode.parentElement;
    if (!texts.currentNode.data.trim() || seen.has(element) || element.closest("script, .unseen")) continue;
    seen.add(element);
    if (element.getClientRects().length === 0) continue;
    const style = getComputedStyle(element);
    const size = parseFloat(style.fontSize);
    const isLarge = size >= 24 || (size >= 18.66 && Number(style.fontWeight) >= 700);
    check(element, style.color, isLarge ? 3 : 4.5, "text");
    const before = getComputedStyle(element, "::before");
    if (before.content !== "none") check(element, before.color, 4.5, "sign");
}
for (const element of document.querySelectorAll(".value, .mark")) {
    check(element.parentElement, getComputedStyle(element).borderBottomColor, 3, "underline");
}
for (const element of document.querySelectorAll(".value.hit, .mark.hit")) {
    check(element.parentElement, getComputedStyle(element).outlineColor, 3, "outline");
}
const accent = document.createElement("span");
accent.style.color = "var(--accent)";
document.body.append(accent);
for (const selector of ["body", ".screen", "details", ".selection"]) {
    const element = document.querySelector(selector);
    if (element) check(element, getComputedStyle(accent).color, 3, "focus");
}
accent.remove();
return { low, checked };
