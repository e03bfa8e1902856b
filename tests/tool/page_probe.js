// Replaces a page's content by a description of its layout. The test of the page and scripts/page_pictures run it.
const all = (what) => [...document.querySelectorAll(what)];
const light = (colour) => colour.match(/\d+/g).slice(0, 3).reduce((sum, part) => sum + Number(part), 0);
const style = getComputedStyle(document.body);
const drawn = (what) => all(what).filter((path) => path.getBoundingClientRect().width > 0).length;
all("details").forEach((details) => { details.open = true; });

// The lines of text, each with the element that it is in.
const lines = [];
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
while (walker.nextNode()) {
    const node = walker.currentNode;
    if (node.data.trim() === "" || node.parentElement.closest("script, style, title, .wide")) continue;
    const range = document.createRange();
    range.selectNodeContents(node);
    for (const box of range.getClientRects()) lines.push({ node, box });
}
const name = ({ node }) => node.data.trim().slice(0, 40);
const overlap = (one, other) => Math.min(one.right, other.right) - Math.max(one.left, other.left) > 2 &&
    Math.min(one.bottom, other.bottom) - Math.max(one.top, other.top) > 4;
const overlaps = [];
lines.forEach((one, place) => lines.slice(place + 1).forEach((other) => {
    if (one.node !== other.node && overlap(one.box, other.box)) overlaps.push(name(one) + " | " + name(other));
}));
// Text beyond the card, cell or list that it belongs to.
const overflows = lines.filter(({ node, box }) => {
    const around = node.parentElement.closest(".card, .bars, .steady li, td, th, details, header, main, footer");
    const border = around.getBoundingClientRect();
    return box.left < border.left - 1 || box.right > border.right + 1 || box.bottom > border.bottom + 1;
}).map(name);

const layout = { title: document.querySelector("h1").textContent, sections: all("h2").map((h) => h.textContent),
    charts: all("h3").map((h) => h.textContent), lines: drawn("svg .line"), bars: drawn("svg .fill"),
    steady: all(".steady li").length, causes: all(".failures li").length,
    bad: all("#telemetry .bad").length, rows: all("table.readings > tbody > tr").length,
    ground: light(style.backgroundColor), ink: light(style.color), overlaps, overflows,
    height: document.documentElement.scrollHeight,
    tooWide: document.documentElement.scrollWidth - innerWidth, scripts: all("script").length };
document.body.textContent = "";
document.title = JSON.stringify(layout);
