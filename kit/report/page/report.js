// SPDX-License-Identifier: BSD-3-Clause
// Builds the page from its data. Everything is drawn at once, and again when the units or the width
// change. Numbers in the data are in newton, metre and kelvin.
"use strict";
(() => {
const DATA = JSON.parse(document.getElementById("data").textContent);
const PROPERTIES = ["E11", "E22", "E33", "v12", "v13", "v23", "G12", "G13", "G23", "A11", "A22", "A33"];
const COLORS = ["#4269d0", "#e07a1f", "#3ca951", "#d0417e", "#8f5be0", "#1f9ea8", "#9c6b4e", "#77808f"];
const PSI = 6894.757293168;
const UNITS = {
  "SI": {
    modulus: [1e-9, "GPa"], stress: [1e-6, "MPa"], expansion: [1e6, "10⁻⁶/K"], ratio: [1, "–"],
    density: [1, "kg/m³"], temperature: [(kelvin) => kelvin, "K"],
  },
  "N-mm": {
    modulus: [1e-6, "N/mm²"], stress: [1e-6, "N/mm²"], expansion: [1e6, "10⁻⁶/K"], ratio: [1, "–"],
    density: [1e-9, "kg/mm³"], temperature: [(kelvin) => kelvin, "K"],
  },
  "inch-pound": {
    modulus: [1e-6 / PSI, "Msi"], stress: [1e-3 / PSI, "ksi"], expansion: [1e6 / 1.8, "10⁻⁶/°F"],
    ratio: [1, "–"], density: [1 / 27679.90471, "lb/in³"],
    temperature: [(kelvin) => kelvin * 1.8 - 459.67, "°F"],
  },
};
const VERDICTS = {
  good: "Good: nothing speaks against using this material.",
  doubtful: "Doubtful: read the warnings before you use this material.",
  bad: "Bad: do not use this material.",
};
let system = "SI";
let width = 640;
let chartCount = 0;

// ---- numbers and elements

const unit = (quantity) => UNITS[system][quantity][1];
const scaled = (value, quantity) => {
  const factor = UNITS[system][quantity][0];
  return value === null ? NaN : typeof factor === "function" ? factor(value) : value * factor;
};
const digits = (value) => (Number.isFinite(value) ? String(Number(value.toPrecision(7))) : "no number");
const short = (value) => (Number.isFinite(value) ? String(Number(value.toPrecision(4))) : "no number");
const quantityOf = (name) => ({ v: "ratio", A: "expansion" })[name[0]] ?? "modulus";
const temperatureText = (kelvin) => `${Number(scaled(kelvin, "temperature").toPrecision(5))} ${unit("temperature")}`;

function element(tag, attributes = {}, ...children) {
  const node = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) node.setAttribute(name, value);
  node.append(...children);
  return node;
}

function table(head, rows) {
  const line = (tag, cells) =>
    element("tr", {}, ...cells.map((cell) => {
      const marked = typeof cell === "object";
      return element(tag, marked ? { class: "marked" } : {}, marked ? cell.text : cell);
    }));
  return element("div", { class: "scroll", tabindex: "0", role: "region", "aria-label": head[0] },
    element("table", {},
      element("thead", {}, line("th", head)),
      element("tbody", {}, ...rows.map((row) => line("td", row)))));
}

function legend(entries) {
  return element("ul", { class: "legend" }, ...entries.map(([name, color, kind]) =>
    element("li", {}, element("span", { class: kind ?? "mark", style: `border-color:${color}` }), name)));
}

// A chart with its numbers in a table below it.
function figure(title, caption, entries, plots, head, rows) {
  chartCount += 1;
  const details = element("details", { id: `numbers-${chartCount}` },
    element("summary", {}, "Numbers"), table(head, rows));
  return element("figure", { "data-chart": title },
    element("h4", {}, title), element("figcaption", {}, caption), legend(entries), ...plots, details);
}

function draw(label, options, marks) {
  const svg = Plot.plot({
    width, marginLeft: 58, marginRight: 18, marginBottom: 42, marginTop: 26, ariaLabel: label,
    style: { background: "transparent", fontSize: "12px" }, ...options, marks,
  });
  // An image has one name; those of its groups are no one's to read.
  svg.setAttribute("role", "img");
  for (const group of svg.querySelectorAll("g")) {
    group.removeAttribute("aria-label");
    group.removeAttribute("aria-description");
  }
  return svg;
}

// ---- the charts of an environment

function startValues(environment) {
  const elastic = environment.start.filter((row) => row.quantity !== "expansion");
  const expansions = environment.start.filter((row) => row.quantity === "expansion");
  const [predicted, fitted] = COLORS;
  const panel = (rows, label, of) => {
    const at = (key) => (row) => of(row, row[key]);
    const ends = (choose) => (row) => choose(of(row, row.predicted), of(row, row.measured), of(row, row.fitted));
    const told = (word, key) => (row) =>
      `${row.name} ${word}: ${short(scaled(row[key], row.quantity))} ${unit(row.quantity)}\n${label} ${short(of(row, row[key]))}`;
    return draw("Ply from start values, measured and fitted", {
      height: 52 + 26 * rows.length + 20, x: { label, grid: true, nice: true, ticks: Math.max(3, Math.floor(width / 90)) },
      y: { label: null, domain: rows.map((row) => row.name), type: "point", padding: 0.6 },
    }, [
      Plot.link(rows, { x1: ends(Math.min), x2: ends(Math.max), y1: "name", y2: "name", stroke: "currentColor", strokeOpacity: 0.4, strokeWidth: 2 }),
      Plot.dot(rows, { x: at("measured"), y: "name", symbol: "plus", stroke: "currentColor", strokeWidth: 2, r: 7, className: "series-measured", title: told("measured", "measured"), tip: true }),
      Plot.dot(rows, { x: at("predicted"), y: "name", stroke: predicted, strokeWidth: 2, r: 5, className: "series-start", title: told("from start values", "predicted"), tip: true }),
      Plot.dot(rows, { x: at("fitted"), y: "name", fill: fitted, r: 4, className: "series-fitted", title: told("fitted", "fitted"), tip: true }),
    ]);
  };
  const plots = [];
  if (elastic.length > 0) plots.push(panel(elastic, "per cent of the measured value", (row, value) => (100 * value) / row.measured));
  if (expansions.length > 0) plots.push(panel(expansions, `expansion [${unit("expansion")}]`, (row, value) => scaled(value, "expansion")));
  return figure("Start values", "Do the start values of fibre and matrix explain the ply?",
    [["ply from start values", predicted], ["measured ply (+)", "currentColor", "line"], ["fitted ply", fitted]], plots,
    ["Constant", "Unit", "From start values", "Measured", "Fitted", "Start off by [%]"],
    environment.start.map((row) => [row.name, unit(row.quantity),
      ...["predicted", "measured", "fitted"].map((key) => digits(scaled(row[key], row.quantity))),
      digits(100 * (row.predicted / row.measured - 1))]));
}

function changes(environment) {
  const rows = environment.constants;
  const [color] = COLORS;
  const plot = draw("Moves of the fitted constants in widths", {
    height: 60 + 22 * rows.length, marginLeft: 84,
    x: { label: "move from the start value [widths]", grid: true, nice: true, ticks: Math.max(3, Math.floor(width / 90)) },
    y: { label: null, domain: rows.map((row) => row.name), type: "point", padding: 0.6 },
  }, [
    Plot.ruleX([0], { stroke: "currentColor" }),
    Plot.link(rows, { x1: (row) => row.z - row.deviationInWidths, x2: (row) => row.z + row.deviationInWidths, y1: "name", y2: "name", stroke: color, strokeWidth: 2, className: "series-deviation" }),
    Plot.dot(rows, { x: "z", y: "name", fill: color, r: 4, className: "series-move", tip: true,
      title: (row) => `${row.name}: ${short(row.z)} widths\n± ${short(row.deviationInWidths)}\nresolution ${short(row.resolution)}` }),
  ]);
  const distance = environment.distance === undefined ? "" : ` Together they are ${short(environment.distance)} standard deviations from the start.`;
  const node = figure("Start values: what the fit changed",
    `Each constant of fibre and matrix in widths of its start value, with its standard deviation. Resolution: how much of it the tests tell, 1 all, 0 nothing.${distance}`,
    [["fitted constant", color], ["standard deviation", color, "line"]], [plot],
    ["Constant", "Unit", "Start", "Fitted", "Standard deviation", "Move [widths]", "Resolution"],
    rows.map((row) => [row.name, unit(row.quantity),
      ...["start", "fitted", "deviation"].map((key) => digits(scaled(row[key], row.quantity))),
      digits(row.z), digits(row.resolution)]));
  node.querySelector("details").open = true;
  return node;
}

function ply(environment) {
  const rows = environment.offAxis.map(([angle, E, G, v]) => ({ angle, E, G, v }));
  const [first, second, third] = COLORS;
  const line = (key, quantity, color) => Plot.line(rows, {
    x: "angle", y: (row) => scaled(row[key], quantity), stroke: color, strokeWidth: 2, className: `series-${key}`, tip: true,
    title: (row) => `${key} at ${row.angle}°: ${short(scaled(row[key], quantity))} ${unit(quantity)}`,
  });
  const x = { label: "angle between load and axis 1 [degrees]", ticks: [0, 15, 30, 45, 60, 75, 90] };
  const plots = [
    draw("Moduli over the angle", { height: 260, x, y: { label: `modulus [${unit("modulus")}]`, grid: true, zero: true, nice: true } },
      [line("E", "modulus", first), line("G", "modulus", second)]),
    draw("Poisson's ratio over the angle", { height: 170, x, y: { label: "Poisson's ratio [–]", grid: true, nice: true, ticks: 5 } },
      [line("v", "ratio", third)]),
  ];
  const node = figure("Ply", "Young's modulus E, shear modulus G and Poisson's ratio v of the ply under a load at an angle.",
    [["E", first, "line"], ["G", second, "line"], ["v", third, "line"]], plots,
    ["Angle [degrees]", `E [${unit("modulus")}]`, `G [${unit("modulus")}]`, "v [–]"],
    rows.map((row) => [String(row.angle), digits(scaled(row.E, "modulus")), digits(scaled(row.G, "modulus")), digits(row.v)]));
  node.append(table(["Strength", `Value [${unit("stress")}]`],
    environment.strengths.map((row) => [row.name, digits(scaled(row.value, "stress"))])));
  return node;
}

function shear(environment) {
  const { points, law, g12 } = environment.shear;
  const [measured, fitted, linear] = COLORS;
  const stress = (value) => scaled(value, "stress");
  const highest = Math.max(...points.map((point) => point[1]));
  const line = [[0, 0], [highest / g12, highest]];
  const strain = { label: "shear strain [%]", nice: true, ticks: Math.max(3, Math.floor(width / 90)) };
  const plots = [
    draw("Shear stress over shear strain", { height: 260, x: strain, y: { label: `shear stress [${unit("stress")}]`, grid: true, nice: true } }, [
      Plot.line(line, { x: (d) => 100 * d[0], y: (d) => stress(d[1]), stroke: linear, strokeDasharray: "5 4", className: "series-G12" }),
      Plot.line(law, { x: (d) => 100 * d[0], y: (d) => stress(d[1]), stroke: fitted, strokeWidth: 2, className: "series-law" }),
      Plot.dot(points, { x: (d) => 100 * d[0], y: (d) => stress(d[1]), stroke: measured, r: 4, className: "series-measured", tip: true,
        title: (d) => `measured: ${short(stress(d[1]))} ${unit("stress")} at ${short(100 * d[0])} %` }),
    ]),
    draw("Measured stress less that of the law", { height: 150, x: strain, y: { label: `measured less law [${unit("stress")}]`, grid: true, nice: true, ticks: 4 } }, [
      Plot.ruleY([0], { stroke: "currentColor" }),
      Plot.ruleX(points, { x: (d) => 100 * d[0], y1: 0, y2: (d) => stress(d[2]), stroke: measured }),
      Plot.dot(points, { x: (d) => 100 * d[0], y: (d) => stress(d[2]), fill: measured, r: 3, className: "series-residual" }),
    ]),
  ];
  return figure("Shear", "The measured curve, the nonlinear law of the data file, and G12 of the fitted ply.",
    [["measured", measured], ["law", fitted, "line"], ["G12", linear, "line"]], plots,
    ["Strain [%]", `Measured [${unit("stress")}]`, `Measured less law [${unit("stress")}]`],
    points.map((d) => [digits(100 * d[0]), digits(stress(d[1])), digits(stress(d[2]))]));
}

function lives(environment) {
  const { series, recomputed } = environment.lives;
  const stress = (value) => scaled(value, "stress");
  const name = (one) => `${short(one.angle)}°, R = ${short(one.ratio)}${one.frequency > 0 ? `, curve at ${short(one.frequency)} Hz` : ""}`;
  const marks = series.flatMap((one, index) => {
    const color = COLORS[index % COLORS.length];
    const x = (d) => d[0];
    const y = (d) => stress(d[1]);
    return [
      Plot.line(one.curve, { x, y, stroke: color, strokeWidth: 2, className: `curve-${index}` }),
      Plot.dot(one.tests, { x, y, stroke: color, r: 4, className: `series-${index}`, tip: true,
        title: (d) => `${name(one)}\n${short(stress(d[1]))} ${unit("stress")}\n${d[0].toExponential(2)} cycles` }),
    ];
  });
  const plot = draw("Stress over life", {
    height: 340, x: { type: "log", label: "life [cycles]", ticks: Math.max(3, Math.floor(width / 110)), tickFormat: "~e" },
    y: { type: "log", label: `largest stress [${unit("stress")}]`, grid: true, ticks: 6, tickFormat: "~r" },
  }, marks);
  const caption = "Tests, and the lives that the engine's fatigue law gives." +
    (recomputed ? " The constants of a weave stand in no file: the engine fitted them again here." : "");
  const node = figure("S-N", caption, series.map((one, index) => [name(one), COLORS[index % COLORS.length]]), [plot],
    ["Series", "Life [cycles]", `Stress [${unit("stress")}]`],
    series.flatMap((one) => one.tests.map((d) => [name(one), digits(d[0]), digits(stress(d[1]))])));
  node.append(table(["Series", "Tests", "Scatter of log10(life)"],
    series.map((one) => [name(one), String(one.tests.length), one.scatter === null ? "no curve" : digits(one.scatter)])));
  return node;
}

function damageStates(environment) {
  const intact = environment.states[0].properties;
  const shown = ["E11", "E22", "E33", "G12", "G13", "G23"];
  const left = (state, name) => (100 * state.properties[PROPERTIES.indexOf(name)]) / intact[PROPERTIES.indexOf(name)];
  const words = (number) => {
    const code = number - 1;
    const tow = ["intact", "matrix failed", "failed"];
    return `pocket ${code % 2 ? "failed" : "intact"}, fill ${tow[Math.floor(code / 2) % 3]}, warp ${tow[Math.floor(code / 6)]}`;
  };
  const marks = shown.flatMap((name, index) => [
    Plot.line(environment.states, { x: "state", y: (state) => left(state, name), stroke: COLORS[index], strokeOpacity: 0.35 }),
    Plot.dot(environment.states, { x: "state", y: (state) => left(state, name), fill: COLORS[index], r: 3.5, className: `series-${name}`, tip: true,
      title: (state) => `${name} in state ${state.state}\n${words(state.state).replaceAll(", ", "\n")}\n${short(left(state, name))} % left` }),
  ]);
  const plot = draw("Stiffness left in each damage state", {
    height: 280, x: { type: "point", label: "damage state", tickFormat: String }, y: { label: "stiffness left [%]", grid: true, zero: true },
  }, marks);
  return figure("Damage states", "Stiffness left in each damage state, in per cent of the intact weave.",
    shown.map((name, index) => [name, COLORS[index]]), [plot],
    ["State", "What has failed", ...shown.map((name) => `${name} [%]`)],
    environment.states.map((state) => [String(state.state), words(state.state), ...shown.map((name) => digits(left(state, name)))]));
}

// ---- several environments or materials

function overTemperature(material) {
  const moistures = [...new Set(material.environments.map((environment) => environment.moisture))];
  const names = ["E11", "E22", "G12", "v12"];
  const temperature = (environment) => scaled(environment.temperature, "temperature");
  const plots = names.map((name) => {
    const quantity = quantityOf(name);
    const y = (environment) => scaled(environment.lamina[PROPERTIES.indexOf(name)], quantity);
    return draw(`${name} over temperature`, {
      height: 170, x: { label: `temperature [${unit("temperature")}]`, nice: true, ticks: Math.max(3, Math.floor(width / 110)) },
      y: { label: `${name} [${unit(quantity)}]`, domain: rangeOf(material.environments.map(y)), grid: true, nice: true, ticks: 4 },
    }, moistures.flatMap((moisture, index) => {
      const rows = material.environments.filter((environment) => environment.moisture === moisture)
        .sort((a, b) => a.temperature - b.temperature);
      return [
        Plot.line(rows, { x: temperature, y, stroke: COLORS[index] }),
        Plot.dot(rows, { x: temperature, y, fill: COLORS[index], r: 4, className: `series-${moisture}`, tip: true,
          title: (environment) => `${name}, ${moisture}, ${temperatureText(environment.temperature)}\n${short(y(environment))} ${unit(quantity)}` }),
      ];
    }));
  });
  return figure("Environments", "Constants of the ply over temperature, a line for each moisture.",
    moistures.map((moisture, index) => [moisture, COLORS[index]]), plots,
    [`Temperature [${unit("temperature")}]`, "Moisture", ...PROPERTIES.map((name) => `${name} [${unit(quantityOf(name))}]`)],
    material.environments.map((environment) => [digits(temperature(environment)), environment.moisture,
      ...PROPERTIES.map((name, index) => digits(scaled(environment.lamina[index], quantityOf(name))))]));
}

// The range of an axis; values that agree to a thousandth get some air, not an axis of their rounding.
function rangeOf(values) {
  const low = Math.min(...values);
  const high = Math.max(...values);
  const air = Math.abs(high) * 0.05;
  return high - low > 1e-3 * Math.abs(high) ? [low, high] : [low - air, high + air];
}

// Whether a constant of the fibre is farther from that of the first environment than its width
// allows: a fibre does not know temperature or moisture.
function differs(first, environment, index) {
  const constant = (first.constants ?? []).find((row) => row.name === `fiber ${PROPERTIES[index]}`);
  return constant !== undefined && Math.abs(environment.fiber[index] - first.fiber[index]) > constant.width;
}

function sideBySide(columns) {
  const head = ["Constant", ...columns.map(({ material, environment }) =>
    `${material.name}, ${temperatureText(environment.temperature)}, ${environment.moisture}`)];
  const rows = ["fiber", "matrix"].flatMap((phase) => PROPERTIES.map((name, index) => [
    `${phase} ${name} [${unit(quantityOf(name))}]`,
    ...columns.map(({ material, environment }) => {
      const text = digits(scaled(environment[phase][index], quantityOf(name)));
      const isMarked = phase === "fiber" && differs(material.environments[0], environment, index);
      return isMarked ? { text: `${text} (differs)` } : text;
    }),
  ]));
  return table(head, rows);
}

// ---- the page

function environmentPart(material, environment) {
  const title = `${temperatureText(environment.temperature)}, ${environment.moisture}`;
  const part = element("section", { class: "environment" },
    element("h3", {}, `Environment ${environment.number}: ${title}`),
    element("p", { class: "remark" }, `Error of the mechanical fit ${short(environment.mechanicalError)}, of the thermal fit ${short(environment.thermalError)}, both relative; ${environment.iterations} iterations.`));
  if (environment.start && environment.start.length > 0) part.append(startValues(environment));
  if (environment.constants) part.append(changes(environment));
  if (!environment.constants) {
    part.append(element("p", { class: "remark" }, material.hasDeck
      ? "The engine has no model of this fit, so there is nothing to say about its start values."
      : "Without a readable deck copy (input.qdk) nobody knows the start values: how far the fit moved, and how sure it is, cannot be said."));
  }
  part.append(ply(environment));
  if (environment.shear) part.append(shear(environment));
  if (environment.lives) part.append(lives(environment));
  if (environment.states) part.append(damageStates(environment));
  return part;
}

function findingsList(material) {
  if (material.findings.length === 0) return "";
  const weights = ["error", "warning", "note"];
  const sorted = [...material.findings].sort((a, b) => weights.indexOf(a.severity) - weights.indexOf(b.severity));
  const place = (finding) => {
    const text = `environment ${finding.environment}: `;
    return finding.environment > 0 && !finding.message.startsWith(text) ? text : "";
  };
  return element("ul", { class: "findings" }, ...sorted.map((finding) =>
    element("li", {},
      element("strong", { class: finding.severity }, finding.severity),
      ` ${place(finding)}${finding.message} [${finding.rule}]`)));
}

function materialPart(material) {
  const part = element("section", { class: "material" }, element("h2", {}, material.name),
    element("p", { class: "about" }, `${material.woven ? "Weave" : "Unidirectional ply"}, density ${short(scaled(material.density, "density"))} ${unit("density")}, free of thermal stress at ${temperatureText(material.referenceTemperature)}; folder ${material.folder}`),
    element("p", { class: `verdict ${material.verdict}` }, VERDICTS[material.verdict]),
    findingsList(material));
  const shown = material.environments.length;
  if (shown < material.total) {
    part.append(element("p", { class: "remark" }, `${shown} of ${material.total} environments are shown.`));
  }
  part.append(...material.environments.map((environment) => environmentPart(material, environment)));
  if (shown > 1) {
    part.append(element("h3", {}, "Environments"), overTemperature(material),
      sideBySide(material.environments.map((environment) => ({ material, environment }))));
  }
  return part;
}

function render() {
  const open = new Map([...document.querySelectorAll("details")].map((node) => [node.id, node.open]));
  chartCount = 0;
  const content = element("div", { id: "content" }, ...DATA.materials.map(materialPart));
  if (DATA.materials.length > 1) {
    content.append(element("h2", {}, "Side by side"),
      sideBySide(DATA.materials.flatMap((material) => material.environments.slice(0, 1).map((environment) => ({ material, environment })))));
  }
  document.getElementById("content")?.remove();
  document.getElementById("report").append(content);
  for (const node of content.querySelectorAll("details")) {
    if (open.has(node.id)) node.open = open.get(node.id);
  }
}

function fit() {
  const main = document.getElementById("report");
  const wanted = Math.max(300, Math.min(760, main.clientWidth - 32));
  if (wanted !== width) {
    width = wanted;
    render();
  }
}

function start() {
  const choices = Object.keys(UNITS).map((name) => {
    const input = element("input", { type: "radio", name: "units", value: name });
    input.checked = name === system;
    input.addEventListener("change", () => { system = name; render(); });
    return element("label", {}, input, ` ${name}`);
  });
  const main = document.getElementById("report");
  main.append(element("h1", {}, DATA.title), element("p", { class: "about" }, `Written by lamkit ${DATA.lamkit}`),
    element("fieldset", { class: "units" }, element("legend", {}, "Units"), ...choices));
  width = Math.max(300, Math.min(760, main.clientWidth - 32));
  render();
  addEventListener("resize", fit);
  addEventListener("beforeprint", () => { width = 640; render(); });
  addEventListener("afterprint", fit);
}

start();
})();
