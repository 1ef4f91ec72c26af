#include "SheetTemplate.h"

namespace host {

const char* const sheetHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>TITLE</title>
<style>
* { box-sizing: border-box; }
body { margin: 0; font: 14px/1.4 Inter, system-ui, sans-serif; color: #1c1c1e; background: #f2f2f7; }
header { position: sticky; top: 0; left: 0; z-index: 3; display: flex; gap: 16px; align-items: center;
  height: 52px; overflow-x: auto; white-space: nowrap; padding: 8px 16px; background: #fff; border-bottom: 1px solid #c8c7cc; }
header h1 { margin: 0; font-size: 17px; }
header label { color: #6d6d72; }
header select { font: inherit; margin-left: 4px; max-width: 200px; }
#count { margin-left: auto; color: #6d6d72; }
h2 { position: sticky; top: 52px; left: 0; z-index: 2; margin: 0; padding: 8px 16px; font-size: 15px;
  background: #e5e5ea; height: 38px; }
h2 small { font-weight: normal; color: #6d6d72; }
table { border-collapse: separate; border-spacing: 10px 6px; padding: 0 6px 12px; }
thead th { position: sticky; top: 90px; z-index: 1; padding: 4px; font-weight: 600; background: #f2f2f7; }
tbody th { position: sticky; left: 0; z-index: 1; padding: 4px 8px; font-weight: 600; text-align: left;
  vertical-align: top; white-space: nowrap; background: #f2f2f7; }
tbody th small { display: block; font-weight: normal; color: #6d6d72; }
td { vertical-align: top; }
.thumb { display: block; width: 132px; padding: 0; border: 0; background: #dcdce0; cursor: zoom-in;
  box-shadow: 0 1px 3px #0003; }
.thumb img { display: block; width: 100%; }
.thumb:focus-visible { outline: 3px solid #007aff; }
.changed { outline: 3px solid #e0002b; }
.change { display: flex; flex-wrap: wrap; gap: 16px; padding: 12px 16px; }
.change figure { margin: 0; }
.change .thumb { width: 220px; }
figcaption { color: #6d6d72; padding-bottom: 4px; }
.where { padding: 10px 16px 0; }
.none { padding: 16px; color: #6d6d72; }
#full { width: 100%; height: 100%; max-width: none; max-height: none; margin: 0; border: 0; overflow: auto;
  padding: 48px 16px 16px; background: #000c; text-align: center; cursor: zoom-out; }
#full p { position: fixed; top: 0; left: 0; right: 0; margin: 0; padding: 12px; color: #fff; background: #000a; }
#full img { box-shadow: 0 2px 12px #000; }
</style>
</head>
<body>
<header><h1>TITLE</h1><span id="filters"></span><span id="count"></span></header>
<main></main>
<dialog id="full" aria-label="Picture"><p></p><img alt=""></dialog>
<noscript>The pictures are shown by a script that is part of this page.</noscript>
)";

const char* const sheetScript = R"(<script>
"use strict";
const sheet = JSON.parse(document.getElementById("sheet").textContent);
const pictures = JSON.parse(document.getElementById("pictures").textContent);
const fields = ["state", "page", "title", "phone", "scale", "locale", "id", "width", "height"];
const entryOf = list => Object.fromEntries(fields.map((name, index) => [name, list[index]]));
const entries = sheet.entries.map(entryOf);
const comparison = sheet.comparison;
const keyOf = entry => [entry.state, entry.page, entry.phone, entry.scale, entry.locale].join("\n");
const changedKeys = new Set(comparison ? comparison.changed.map(change => keyOf(entryOf(change[1]))) : []);
const main = document.querySelector("main");
const full = document.getElementById("full");

function element(name, properties = {}, ...children) {
  const made = Object.assign(document.createElement(name), properties);
  made.append(...children);
  return made;
}

const viewer = new IntersectionObserver(seen => {
  for (const { target, isIntersecting } of seen) {
    if (!isIntersecting) continue;
    target.src = "data:image/png;base64," + pictures[target.dataset.picture];
    viewer.unobserve(target);
  }
}, { rootMargin: "600px" });

function describe(entry) {
  return `${entry.state}, ${entry.page}. ${entry.title}: ${entry.phone} at ${entry.scale}x, ${entry.locale}`
    + (changedKeys.has(keyOf(entry)) ? ", changed" : "");
}

let shown = [], place = 0;
function openFull(list, index) {
  shown = list;
  place = (index + list.length) % list.length;
  const { id, entry, note } = shown[place];
  const image = full.querySelector("img");
  image.alt = full.querySelector("p").textContent = (note ? note + ": " : "") + describe(entry);
  image.src = "data:image/png;base64," + pictures[id];
  image.style.width = entry.width / entry.scale + "px";
  if (!full.open) full.showModal();
}
full.onclick = () => full.close();
full.addEventListener("keydown", event => {
  if (event.key === "ArrowRight") openFull(shown, place + 1);
  if (event.key === "ArrowLeft") openFull(shown, place - 1);
});

function thumb(list, item) {
  const index = list.push(item) - 1;
  const image = element("img", { alt: describe(item.entry) });
  image.dataset.picture = item.id;
  image.style.aspectRatio = item.entry.width + " / " + item.entry.height;
  const button = element("button", { className: "thumb", title: describe(item.entry), type: "button" }, image);
  button.onclick = () => openFull(list, index);
  viewer.observe(image);
  return button;
}

const filters = ["state", "phone", "scale", "locale"].map(name => {
  const values = [...new Set(entries.map(entry => entry[name]))];
  const select = element("select", {}, element("option", { value: "", textContent: "all" }),
    ...values.map(value => element("option", { value, textContent: name === "scale" ? value + "x" : value })));
  select.onchange = show;
  document.getElementById("filters").append(
    element("label", {}, name[0].toUpperCase() + name.slice(1), select), " ");
  return { name, select };
});
const isWanted = entry => filters.every(({ name, select }) => !select.value || String(entry[name]) === select.value);

function showComparison() {
  const section = element("section", {}, element("h2", {}, "Compared with the earlier sheet ",
    element("small", {}, comparison.summary)));
  const groups = new Map();
  for (const [before, after, difference] of comparison.changed) {
    const pair = { before: entryOf(before), after: entryOf(after), difference };
    if (!isWanted(pair.after)) continue;
    const key = pair.before.id + pair.after.id;
    if (!groups.has(key)) groups.set(key, []);
    groups.get(key).push(pair);
  }
  const list = [];
  for (const pairs of groups.values()) {
    const { before, after, difference } = pairs[0];
    const more = pairs.length > 1 ? ` and ${pairs.length - 1} more that look the same` : "";
    section.append(element("div", { className: "where" }, describe(after) + more));
    const figure = (note, id, entry) =>
      element("figure", {}, element("figcaption", {}, note), thumb(list, { id, entry, note }));
    section.append(element("div", { className: "change" }, figure("Before", before.id, before),
      figure("After", after.id, after), figure("Difference", difference, after)));
  }
  for (const [note, kind] of [["New", "added"], ["Gone", "gone"]]) {
    const wanted = comparison[kind].map(entryOf).filter(isWanted);
    if (!wanted.length) continue;
    const most = 60;
    section.append(element("div", { className: "where" }, `${note}: ${wanted.length}`
      + (wanted.length > most ? `, of which these are the first ${most}` : "")));
    section.append(element("div", { className: "change" }, ...wanted.slice(0, most).map(entry =>
      element("figure", {}, element("figcaption", {}, describe(entry)), thumb(list, { id: entry.id, entry, note })))));
  }
  main.append(section);
}

function show() {
  viewer.disconnect();
  main.replaceChildren();
  if (comparison) showComparison();
  const wanted = entries.filter(isWanted);
  document.getElementById("count").textContent = `${wanted.length} of ${entries.length} pictures`;
  const locales = [...new Set(wanted.map(entry => entry.locale))];
  const groups = new Map();
  for (const entry of wanted) {
    const key = entry.state + "\n" + entry.page;
    if (!groups.has(key)) groups.set(key, { first: entry, rows: new Map() });
    const rows = groups.get(key).rows, row = entry.phone + "\n" + entry.scale;
    if (!rows.has(row)) rows.set(row, new Map());
    rows.get(row).set(entry.locale, entry);
  }
  if (!wanted.length)
    main.append(element("p", { className: "none" }, "No picture is like that."));
  const list = [];
  for (const { first, rows } of groups.values()) {
    const body = element("tbody");
    for (const [row, cells] of rows) {
      const [phone, scale] = row.split("\n");
      const line = element("tr", {}, element("th", { scope: "row" }, phone, element("small", {}, scale + "x")));
      for (const locale of locales) {
        const entry = cells.get(locale);
        const cell = element("td");
        if (entry) {
          const button = thumb(list, { id: entry.id, entry });
          if (changedKeys.has(keyOf(entry))) button.classList.add("changed");
          cell.append(button);
        }
        line.append(cell);
      }
      body.append(line);
    }
    const head = element("thead", {}, element("tr", {}, element("th"),
      ...locales.map(locale => element("th", { scope: "col" }, locale))));
    main.append(element("section", {}, element("h2", {}, first.state + " ",
      element("small", {}, `${first.page}. ${first.title}`)), element("table", {}, head, body)));
  }
}
show();
</script>
</body>
</html>
)";

}
