// The body of a function: where the focus is, whether it has an outline, and whether it is seen; null outside the page.

const element = document.activeElement;
if (!element || element === document.body || element === document.documentElement) return null;

function pathOf(each) {
    if (each === document.body) return "";
    return pathOf(each.parentElement) + "/" + Array.from(each.parentElement.children).indexOf(each);
}

const style = getComputedStyle(element);
const rectangle = element.getClientRects()[0];
const x = Math.min(rectangle.left + rectangle.width / 2, rectangle.left + 40);
const y = rectangle.top + rectangle.height / 2;
const there = document.elementFromPoint(x, y);
return {
    path: pathOf(element),
    text: element.textContent.trim().slice(0, 40),
    hasOutline: style.outlineStyle !== "none" && parseFloat(style.outlineWidth) >= 2,
    isSeen: there !== null && (element.contains(there) || there.contains(element)),
};
