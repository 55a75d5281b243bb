#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Compares two material folders: python3 compare.py FOLDER FOLDER

Prints the constants of ply, fibre and matrix side by side, with the second over the first in per
cent, for every temperature and moisture that both have. Needs lamcraft.py on the path of Python or
in the folder above.
"""

import dataclasses
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parent.parent))
import lamcraft

UNITS = {"E": "Pa", "G": "Pa", "v": "-", "A": "1/K"}
CONSTANTS = [
    entry.name for entry in dataclasses.fields(lamcraft.PropertySet) if entry.name != "scatter"
]


def by_condition(material):
    return {(entry.temperature, entry.moisture): entry for entry in material.environments}


def print_sets(title, first, second):
    print(f"  {title}")
    for name in CONSTANTS:
        values = getattr(first, name), getattr(second, name)
        change = f"{100 * (values[1] / values[0] - 1):+9.1f} %" if values[0] else f"{'-':>11}"
        unit = f"[{UNITS[name[0]]}]"
        print(f"    {name} {unit:6}{values[0]:14.5g}{values[1]:14.5g}{change}")


def main(folders):
    if len(folders) != 2:
        print(__doc__.splitlines()[0], file=sys.stderr)
        return 2
    try:
        first, second = (lamcraft.load(folder) for folder in folders)
    except lamcraft.FolderError as error:
        print(error, file=sys.stderr)
        return 1
    others = by_condition(second)
    common = [entry for entry in by_condition(first).items() if entry[0] in others]
    if not common:
        print("no temperature and moisture that both have", file=sys.stderr)
        return 1
    for (temperature, moisture), environment in common:
        print(f"{first.name} and {second.name} at {temperature:g} K, {moisture}")
        other = others[temperature, moisture]
        for part in ("lamina", "fiber", "matrix"):
            print_sets(part, getattr(environment, part), getattr(other, part))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
