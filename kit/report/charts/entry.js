// SPDX-License-Identifier: BSD-3-Clause
// What the reports draw with; everything else of Plot is left out of the bundle.
export { dot, line, link, plot, ruleX, ruleY } from "@observablehq/plot";
