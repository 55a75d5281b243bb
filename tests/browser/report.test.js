// SPDX-License-Identifier: BSD-3-Clause
// Opens reports in Chromium and holds them to their data. LAMKIT_REPORTS names a folder of pages: one
// for each material, and all.html for all of them. LAMKIT_PICTURES, if set, gets screenshots.

import assert from "node:assert/strict";
import fs from "node:fs";
import os from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";
import { createRequire } from "node:module";
import { chromium } from "playwright-core";

const reports = process.env.LAMKIT_REPORTS;
const pictures = process.env.LAMKIT_PICTURES;
const axe = fs.readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const pages = fs.readdirSync(reports).filter((name) => name.endsWith(".html")).sort();
const materials = pages.filter((name) => name !== "all.html");

let context;
let profile;

before(async () => {
  profile = fs.mkdtempSync(path.join(os.tmpdir(), "chromium-"));
  context = await chromium.launchPersistentContext(profile, {
    executablePath: "/usr/bin/chromium",
    headless: true,
    viewport: { width: 1280, height: 900 },
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
      "--disable-background-networking", "--disable-component-update", "--disable-sync"],
  });
});

after(async () => {
  await context?.close();
  fs.rmSync(profile, { recursive: true, force: true });
});

// A page with what it said on the console and what it asked of a network.
async function open(name, width = 1280, colorScheme = "light") {
  const page = await context.newPage();
  page.faults = [];
  page.on("console", (message) => page.faults.push(message.text()));
  page.on("pageerror", (error) => page.faults.push(String(error)));
  page.on("request", (request) => {
    if (!/^(file|data):/.test(request.url())) page.faults.push(request.url());
  });
  await page.emulateMedia({ colorScheme });
  await page.setViewportSize({ width, height: 900 });
  await page.goto(`file://${path.join(reports, name)}`);
  return page;
}

const dataOf = (page) => page.evaluate(() => JSON.parse(document.getElementById("data").textContent));

// How many marks each group of a class has, in the order of the page.
const marksOf = (page, group) => page.$$eval(`figure .${group}`, (groups) =>
  groups.map((node) => node.querySelectorAll("path, circle, line").length));

const finite = (values) => values.every((value) => Number.isFinite(value));

for (const name of materials) {
  test(`${name}: each chart has as many marks as there are data`, async () => {
    const page = await open(name);
    const [material] = (await dataOf(page)).materials;
    const environments = material.environments;
    const starts = environments.flatMap((environment) => {
      const rows = environment.start ?? [];
      const groups = [rows.filter((row) => row.quantity !== "expansion"), rows.filter((row) => row.quantity === "expansion")];
      return groups.filter((group) => group.length > 0).map((group) => group.length);
    });
    for (const series of ["series-start", "series-measured", "series-fitted"]) {
      const inStart = await page.$$eval(`figure[data-chart="Start values"] .${series}`, (groups) =>
        groups.map((node) => node.querySelectorAll("path, circle").length));
      assert.deepEqual(inStart, starts, series);
    }
    assert.deepEqual(await marksOf(page, "series-move"),
      environments.filter((environment) => environment.constants).map((environment) => environment.constants.length));
    const curves = environments.filter((environment) => environment.shear);
    assert.deepEqual(
      await page.$$eval('figure[data-chart="Shear"] .series-measured', (groups) => groups.map((node) => node.children.length)),
      curves.map((environment) => environment.shear.points.length));
    assert.deepEqual(await marksOf(page, "series-residual"), curves.map((environment) => environment.shear.points.length));
    const tested = environments.filter((environment) => environment.lives);
    assert.equal((await page.$$('figure[data-chart="S-N"]')).length, tested.length);
    for (const [index, environment] of tested.entries()) {
      const counts = await page.$$eval('figure[data-chart="S-N"]', (figures, place) =>
        [...figures[place].querySelectorAll('[class^="series-"]')].map((node) => node.children.length), index);
      assert.deepEqual(counts, environment.lives.series.map((one) => one.tests.length));
    }
    const woven = environments.filter((environment) => environment.states);
    assert.deepEqual(await marksOf(page, "series-E11"), woven.map(() => 18));
    assert.equal((await page.$$('figure[data-chart="Ply"]')).length, environments.length);
    assert.equal((await page.$$('figure[data-chart="Environments"]')).length, environments.length > 1 ? 1 : 0);
    for (const environment of environments) assert.ok(finite(environment.lamina));
    assert.deepEqual(page.faults, []);
    await page.close();
  });

  test(`${name}: the verdict comes first, in words`, async () => {
    const page = await open(name);
    const [material] = (await dataOf(page)).materials;
    const verdict = await page.textContent(".verdict");
    assert.match(verdict, { good: /^Good/, doubtful: /^Doubtful/, bad: /^Bad/ }[material.verdict]);
    assert.equal((await page.$$(".findings li")).length, material.findings.length);
    await page.close();
  });

  for (const width of [380, 1280]) {
    test(`${name}: no text overlaps another or is cut off at ${width} pixels`, async () => {
      const page = await open(name, width);
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), "the page is too wide");
      const overlaps = await page.evaluate(() => {
        const found = [];
        for (const svg of document.querySelectorAll("figure svg")) {
          const texts = [...svg.querySelectorAll("text")].filter((text) => text.textContent.trim() !== "");
          const boxes = texts.map((text) => text.getBoundingClientRect());
          for (let i = 0; i < boxes.length; ++i) {
            const a = boxes[i];
            if (a.left < 0 || a.right > innerWidth) found.push(`cut off: ${texts[i].textContent}`);
            for (let j = i + 1; j < boxes.length; ++j) {
              const b = boxes[j];
              const across = Math.min(a.right, b.right) - Math.max(a.left, b.left);
              const down = Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top);
              // Lines of text are higher than their letters: a few pixels of air may touch.
              if (across > 1 && down > 4) found.push(`${svg.getAttribute("aria-label")}: ${texts[i].textContent} / ${texts[j].textContent}`);
            }
          }
        }
        return found;
      });
      assert.deepEqual(overlaps, []);
      await page.close();
    });
  }

  test(`${name}: the switch changes numbers and axes`, async () => {
    const page = await open(name);
    const read = () => page.evaluate(() => {
      const ply = document.querySelector('figure[data-chart="Ply"]');
      return { axis: ply.querySelector("svg").textContent, head: ply.querySelectorAll("th")[1].textContent, value: Number(ply.querySelectorAll("td")[1].textContent) };
    });
    const si = await read();
    assert.match(si.axis, /GPa/);
    assert.match(si.head, /GPa/);
    await page.check('input[value="N-mm"]');
    const millimetre = await read();
    assert.match(millimetre.axis, /N\/mm²/);
    // Seven digits are shown.
    assert.ok(Math.abs(millimetre.value / si.value / 1000 - 1) < 1e-6);
    await page.check('input[value="inch-pound"]');
    const inch = await read();
    assert.match(inch.axis, /Msi/);
    assert.ok(Math.abs((si.value / inch.value) / 6.894757293 - 1) < 1e-6);
    assert.deepEqual(page.faults, []);
    await page.close();
  });

  test(`${name}: a tooltip shows under the pointer`, async () => {
    const page = await open(name);
    const mark = page.locator('figure[data-chart="Start values"] .series-start').first().locator("circle, path").first();
    await mark.scrollIntoViewIfNeeded();
    const box = await mark.boundingBox();
    await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
    await page.waitForFunction(() =>
      /from start values: \S+ GPa/.test(document.querySelector('figure[data-chart="Start values"] svg').textContent), null, { timeout: 5000 });
    await page.close();
  });

  for (const scheme of ["light", "dark"]) {
    test(`${name}: axe finds no serious fault, ${scheme}`, async () => {
      const page = await open(name, 1280, scheme);
      await page.evaluate(axe);
      const serious = await page.evaluate(async () => (await window.axe.run()).violations
        .filter((violation) => ["serious", "critical"].includes(violation.impact))
        .map((violation) => `${violation.id}: ${violation.nodes[0].html}`));
      assert.deepEqual(serious, []);
      await page.close();
    });
  }

  test(`${name}: printing gives every chart`, async () => {
    const page = await open(name);
    const count = (await page.$$("figure svg")).length;
    assert.ok(count >= 4);
    await page.emulateMedia({ media: "print" });
    const visible = await page.$$eval("figure svg", (all) => all.filter((svg) => svg.getBoundingClientRect().height > 50).length);
    assert.equal(visible, count);
    const pdf = await page.pdf({ format: "A4" });
    assert.equal(pdf.subarray(0, 4).toString(), "%PDF");
    await page.close();
  });
}

test("all.html: one page for all materials, of at most a megabyte", async () => {
  assert.ok(fs.statSync(path.join(reports, "all.html")).size <= 2 ** 20);
  const page = await open("all.html");
  const data = await dataOf(page);
  assert.equal(data.materials.length, materials.length);
  assert.equal((await page.$$("section.material")).length, materials.length);
  assert.deepEqual(page.faults, []);
  await page.close();
});

test("pictures", { skip: !pictures }, async () => {
  fs.mkdirSync(pictures, { recursive: true });
  for (const name of pages) {
    for (const [width, scheme] of [[380, "light"], [1280, "light"], [1280, "dark"]]) {
      const page = await open(name, width, scheme);
      await page.screenshot({ path: path.join(pictures, `${path.parse(name).name}-${width}-${scheme}.png`), fullPage: true });
      await page.close();
    }
  }
});
