"use strict";

// What a file holds is only ever put in as text, never as a part of the page.

const mostBytes = 64 * 1024 * 1024; // as the server has it
const atOnce = 200; // entries of a list before "Show more"

const byId = (id) => document.getElementById(id);

/** An element with properties and children; strings become text. */
function make(tag, properties = {}, ...children) {
  const element = Object.assign(document.createElement(tag), properties);
  element.append(...children.filter((child) => child !== null));
  return element;
}

const numbers = new Intl.NumberFormat("en");

function counted(count, noun, plural = noun + "s") {
  return `${numbers.format(count)} ${count === 1 ? noun : plural}`;
}

// Asking

/** Sends the file along with each question, for nobody keeps it. */
async function ask(question, file) {
  if (file.size > mostBytes) {
    throw new Error("This file is larger than 64 MB. Please use cardwright on the command line for it.");
  }
  let answer;
  try {
    answer = await fetch(question, {
      method: "POST",
      headers: { "Content-Type": "application/octet-stream" },
      body: file,
    });
  } catch {
    throw new Error("Nobody answers. Is cardwright serve still running, and the file still there?");
  }
  if (!answer.ok) {
    throw new Error((await answer.text()).trim());
  }
  return answer;
}

function tell(text) {
  byId("status").textContent = text;
}

function complain(problem) {
  byId("problem").textContent = problem === null ? "" : problem.message;
  byId("problem").hidden = problem === null;
}

// Lists

/** Shows a list piece by piece. */
function showList(place, items, showSome, ifEmpty) {
  place.replaceChildren();
  if (items.length === 0) {
    place.append(make("p", { className: "quiet" }, ifEmpty));
    return;
  }
  let shown = 0;
  const showMore = () => {
    place.querySelector(":scope > button")?.remove();
    showSome(items.slice(shown, shown + atOnce));
    shown = Math.min(shown + atOnce, items.length);
    if (shown < items.length) {
      const rest = numbers.format(items.length - shown);
      const button = make("button", { type: "button" }, `Show more (${rest} left)`);
      button.addEventListener("click", showMore);
      place.append(button);
    }
  };
  showMore();
}

/** Says so where the server sent the beginning of a list only. */
function noteRest(place, list) {
  if (list.count > list.items.length) {
    const first = numbers.format(list.items.length);
    place.append(make("p", { className: "quiet" },
      `These are the first ${first} of ${numbers.format(list.count)}.`));
  }
}

// What was repaired

function side(title, name, excerpt) {
  const text = make("pre", { dir: "auto" }, excerpt.lead);
  if (excerpt.changed !== "") {
    text.append(make("mark", {}, excerpt.changed.replaceAll("\n", "↵\n")));
  }
  text.append(excerpt.trail);
  if (text.textContent === "") {
    text.append(make("span", { className: "quiet" }, "nothing"));
  }
  return make("div", { className: name }, make("h4", {}, title), text);
}

function repairEntry(repair) {
  const entry = make("article", { className: "repair" },
    make("h3", {}, repair.what + " ",
      make("span", { className: "quiet" }, `card ${repair.card}, line ${repair.line}`)));
  if (repair.code !== "separators") {
    entry.append(make("div", { className: "sides" },
      side("before", "before", repair.before), side("after", "after", repair.after)));
  }
  return entry;
}

function showRepairs(look) {
  const place = byId("repairs");
  showList(place, look.repairs.items,
    (repairs) => place.append(...repairs.map(repairEntry)),
    "Nothing had to be repaired.");
  noteRest(place, look.repairs);
  if (look.droppedBytes > 0) {
    place.prepend(make("p", {},
      `${counted(look.droppedBytes, "byte")} left out that no character of ${look.encoding} has.`));
  }
  if (look.foreignLine) {
    place.prepend(make("p", {},
      `Nothing was repaired, for line ${look.foreignLine.line} stands outside of the cards: `,
      make("q", {}, look.foreignLine.text)));
  }
  if (look.unusedLines.count > 0) {
    const lines = make("ul", {}, ...look.unusedLines.items.slice(0, atOnce).map((line) =>
      make("li", {}, `line ${line.line} (${line.reason}): `, make("q", {}, line.text))));
    place.append(make("details", {},
      make("summary", {}, `${counted(look.unusedLines.count, "line")} could not be used`), lines));
  }
}

// What is wrong

function findingRow(finding) {
  const times = finding.count > 1 ? ` (${counted(finding.count, "time")})` : "";
  return make("tr", {},
    make("td", { className: "place" }, `line ${finding.line}, column ${finding.column}`),
    make("td", { className: "severity" },
      make("span", { className: finding.severity }, finding.severity)),
    make("td", {}, finding.text + times + " ", make("code", {}, finding.code)));
}

function showFindings(findings) {
  const place = byId("findings");
  let rows = null;
  showList(place, findings.items, (some) => {
    if (rows === null) {
      rows = make("tbody");
      const heads = ["Where", "How bad", "What"].map((name) => make("th", { scope: "col" }, name));
      place.append(make("table", {}, make("thead", {}, make("tr", {}, ...heads)), rows));
    }
    rows.append(...some.map(findingRow));
  }, "Nothing is wrong with it.");
  noteRest(place, findings);
}

// The cards

function cardEntry(card) {
  const table = make("dl");
  const bookkeeping = make("dl");
  for (const row of card.rows.items) {
    const remarks = row.remarks.length === 0
      ? null : make("span", { className: "quiet" }, ` (${row.remarks.join(", ")})`);
    (row.isBookkeeping ? bookkeeping : table).append(
      make("dt", {}, row.label), make("dd", { dir: "auto" }, row.value, remarks));
  }
  const entry = make("article", { className: "card" },
    make("h3", { dir: "auto" }, card.name === "" ? "(without a name)" : card.name,
      card.species === "" ? null : make("span", { className: "quiet" }, ` ${card.species}`)));
  if (table.hasChildNodes()) {
    entry.append(table);
  }
  if (bookkeeping.hasChildNodes()) {
    entry.append(make("details", {},
      make("summary", { className: "quiet" }, "Bookkeeping"), bookkeeping));
  }
  noteRest(entry, card.rows);
  return entry;
}

function holds(card, words) {
  const texts = [card.name, ...card.rows.items.map((row) => row.value)];
  return texts.some((text) => text.toLowerCase().includes(words));
}

function showCards(cards) {
  const place = byId("cards");
  const words = byId("filter").value.trim().toLowerCase();
  const found = words === "" ? cards.items : cards.items.filter((card) => holds(card, words));
  showList(place, found,
    (some) => place.append(...some.map(cardEntry)),
    words === "" ? "There are no cards in it." : "No card holds this.");
  noteRest(place, cards);
}

// What converting changes

function changeEntry(change) {
  const part = change.part ? `, ${change.part}` : "";
  const target = change.target ? ` → ${change.target}` : "";
  const saysNothing = change.text === "" || change.text === change.property;
  const text = saysNothing ? null : make("q", { className: "quiet" }, change.text);
  return make("li", {}, `card ${change.card}: ${change.property}${part} `, text, target);
}

function showChanges({ changes, losses, unusedLines }) {
  const place = byId("changes");
  const groups = new Map();
  for (const change of changes.items) {
    const group = groups.get(change.what) ?? { isLoss: change.isLoss, changes: [] };
    group.changes.push(change);
    groups.set(change.what, group);
  }
  place.replaceChildren();
  if (losses > 0) {
    place.append(make("p", {},
      `${counted(losses, "thing")} cannot come along as ${losses === 1 ? "it is" : "they are"}.`));
  }
  if (unusedLines > 0) {
    place.append(make("p", {},
      `${counted(unusedLines, "line")} that could not be used ${unusedLines === 1 ? "is" : "are"} left out.`));
  }
  if (losses + unusedLines === 0) {
    place.append(make("p", {}, "Nothing is lost by this."));
  }
  const sorted = [...groups].sort(([, a], [, b]) => Number(b.isLoss) - Number(a.isLoss));
  for (const [what, group] of sorted) {
    const list = make("ul");
    const summary = make("summary", {},
      make("span", { className: group.isLoss ? "loss" : "" }, what),
      ` (${numbers.format(group.changes.length)})`);
    const details = make("details", {}, summary, list);
    place.append(details);
    showList(details, group.changes, (some) => list.append(...some.map(changeEntry)), "");
    details.prepend(summary, list);
  }
  noteRest(place, changes);
}

// The page

let file = null; // that is looked at
let cards = null;
let turn = 0; // of what was asked last: late answers to earlier questions are not shown

function wantedVersion() {
  return new FormData(byId("save")).get("to");
}

async function look(chosen) {
  const mine = ++turn;
  complain(null);
  byId("result").hidden = true;
  tell(`Reading ${chosen.name} …`);
  try {
    const answer = await (await ask("look", chosen)).json();
    if (mine !== turn) {
      return;
    }
    file = chosen;
    cards = answer.cards;
    showLook(answer);
  } catch (problem) {
    if (mine === turn) {
      tell("");
      complain(problem);
    }
  }
}

function showLook(answer) {
  byId("save").reset();
  byId("changes").replaceChildren();
  byId("saved").textContent = "";
  byId("filter").value = "";
  byId("name").textContent = file.name;
  const repaired = answer.repairs.count + (answer.droppedBytes > 0 ? 1 : 0);
  const facts = [
    ["#cards-title", counted(answer.cards.count, "card")],
    ["#repairs-title", counted(repaired, "repair")],
    ["#findings-title", counted(answer.findings.count, "mistake")],
  ];
  byId("facts").replaceChildren(
    ...facts.map(([href, text]) => make("li", {}, make("a", { href }, text))));
  showRepairs(answer);
  showFindings(answer.findings);
  showCards(answer.cards);
  byId("search").hidden = answer.cards.items.length < 5;
  byId("result").hidden = false;
  document.body.classList.add("loaded");
  tell("");
  byId("name").focus();
}

async function askForChanges() {
  const mine = ++turn;
  const version = wantedVersion();
  byId("changes").replaceChildren();
  byId("saved").textContent = "";
  complain(null);
  if (version === "") {
    return;
  }
  try {
    const answer = await (await ask(`changes?to=${version}`, file)).json();
    if (mine === turn) {
      showChanges(answer);
    }
  } catch (problem) {
    if (mine === turn) {
      complain(problem);
    }
  }
}

/** What the saved file is called: "contacts-4.0.vcf". */
function savedName(version) {
  const stem = file.name.replace(/\.[^.]*$/, "") || "contacts";
  return `${stem}-${version === "" ? "repaired" : version}.vcf`;
}

async function save() {
  const button = byId("save").querySelector("button");
  const version = wantedVersion();
  complain(null);
  button.disabled = true;
  try {
    const answer = await ask(version === "" ? "result" : `result?to=${version}`, file);
    const link = make("a", {
      href: URL.createObjectURL(await answer.blob()),
      download: savedName(version),
    });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
    byId("saved").textContent =
      `${link.download} is saved where your browser keeps what it downloads.`;
  } catch (problem) {
    complain(problem);
  } finally {
    button.disabled = false;
  }
}

byId("file").addEventListener("change", (event) => {
  const [chosen] = event.target.files;
  if (chosen) {
    look(chosen);
  }
  event.target.value = ""; // so that the same file can be chosen again
});

for (const kind of ["dragenter", "dragover"]) {
  document.addEventListener(kind, (event) => {
    event.preventDefault();
    document.body.classList.add("dragging");
  });
}
document.addEventListener("dragleave", (event) => {
  if (event.relatedTarget === null) {
    document.body.classList.remove("dragging");
  }
});
document.addEventListener("drop", (event) => {
  event.preventDefault();
  document.body.classList.remove("dragging");
  const [chosen] = event.dataTransfer.files;
  if (chosen) {
    look(chosen);
  }
});

byId("save").addEventListener("change", askForChanges);
byId("save").addEventListener("submit", (event) => {
  event.preventDefault();
  save();
});
byId("filter").addEventListener("input", () => showCards(cards));
