#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Draws the S-N tests of a material folder: python3 sn_curve.py FOLDER PICTURE

One colour an angle and stress ratio, the points as measured and the straight line of least squares
through log10(life). The ending of PICTURE (.svg, .png, .pdf) chooses its format. Needs Matplotlib
(Debian: python3-matplotlib), and lamcraft.py on the path of Python or in the folder above.
"""

import math
import sys
from collections import defaultdict
from pathlib import Path

import matplotlib

matplotlib.use("Agg")
from matplotlib import pyplot

sys.path.append(str(Path(__file__).resolve().parent.parent))
import lamcraft


def straight_line(tests):
    """Intercept and slope of log10(life) over the stress' magnitude; None for a single stress."""
    stresses = [abs(test.stress) for test in tests]
    lives = [math.log10(test.life) for test in tests]
    mean_stress = sum(stresses) / len(tests)
    mean_life = sum(lives) / len(tests)
    spread = sum((stress - mean_stress) ** 2 for stress in stresses)
    if spread == 0:
        return None
    slope = (
        sum((s - mean_stress) * (life - mean_life) for s, life in zip(stresses, lives)) / spread
    )
    return mean_life - slope * mean_stress, slope


def draw(axes, material):
    series = defaultdict(list)
    for environment in material.environments:
        for test in environment.sn:
            series[environment.temperature, environment.moisture, test.theta, test.R].append(test)
    for (temperature, moisture, theta, ratio), tests in series.items():
        label = f"{temperature:g} K {moisture}, {theta:g} degrees, R = {ratio:g}"
        lives = [test.life for test in tests]
        points = axes.plot(lives, [abs(test.stress) / 1e6 for test in tests], "o", label=label)
        line = straight_line(tests)
        if line is not None:
            ends = [min(abs(t.stress) for t in tests), max(abs(t.stress) for t in tests)]
            axes.plot(
                [10 ** (line[0] + line[1] * stress) for stress in ends],
                [stress / 1e6 for stress in ends],
                color=points[0].get_color(),
            )
    return len(series)


def main(arguments):
    if len(arguments) != 2:
        print(__doc__.splitlines()[0], file=sys.stderr)
        return 2
    try:
        material = lamcraft.load(arguments[0])
    except lamcraft.FolderError as error:
        print(error, file=sys.stderr)
        return 1
    figure, axes = pyplot.subplots(figsize=(8, 6), layout="constrained")
    if draw(axes, material) == 0:
        print(f"{arguments[0]}: {material.name} has no S-N tests", file=sys.stderr)
        return 1
    axes.set(title=material.name, xlabel="Life [cycles]", ylabel="Largest stress [MPa]")
    axes.set_xscale("log")
    axes.legend()
    figure.savefig(arguments[1])
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
