#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""A tension coupon for CalculiX, with fibres at an angle to the load.

    python3 coupon.py mesh CARD      writes coupon.inp, which includes the material card (N, mm, tonne)
    python3 coupon.py picture        draws coupon.png from the results of "ccx coupon"

The coupon is 100 x 10 x 1 mm. One end is held along x, the other moved by 0.1 mm, and both are free
to move sideways: so the stress is the same everywhere, and stress over strain is the ply's modulus
in the direction of the load. The picture needs Matplotlib (Debian: python3-matplotlib).
"""

import math
import re
import sys
from pathlib import Path

LENGTH, WIDTH, THICKNESS = 100.0, 10.0, 1.0  # mm
CELLS = (50, 5, 1)  # elements along x, y, z
ANGLE = 30.0  # degrees from the load to the fibres
STRETCH = 0.1  # mm
TEMPERATURE = 296.15  # K, from start to end: no thermal strain is added
SHOWN_TIMES = 50  # displacements in the picture


def node_number(i, j, k):
    return 1 + i + (CELLS[0] + 1) * (j + (CELLS[1] + 1) * k)


def grid(cells):
    return [
        (i, j, k)
        for k in range(cells[2])
        for j in range(cells[1])
        for i in range(cells[0])
    ]


def points():
    """Coordinates by node number."""
    return {
        node_number(i, j, k): (
            LENGTH * i / CELLS[0],
            WIDTH * j / CELLS[1],
            THICKNESS * k / CELLS[2],
        )
        for i, j, k in grid([count + 1 for count in CELLS])
    }


def elements():
    """Corners of each element, in the order that C3D8 has them."""
    around = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0), (0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 1, 1)]
    return [
        [node_number(i + di, j + dj, k + dk) for di, dj, dk in around] for i, j, k in grid(CELLS)
    ]


def listed(name, nodes):
    return [f"*NSET, NSET={name}"] + [f"{node}," for node in nodes]


def mesh(card):
    material = re.search(r"\*MATERIAL, NAME=(\S+)", Path(card).read_text()).group(1)
    cosine, sine = math.cos(math.radians(ANGLE)), math.sin(math.radians(ANGLE))
    nodes = points()
    lines = [f"*INCLUDE, INPUT={card}", "*NODE, NSET=ALL"]
    lines += [f"{node}, {x}, {y}, {z}" for node, (x, y, z) in nodes.items()]
    lines += ["*ELEMENT, TYPE=C3D8, ELSET=COUPON"]
    lines += [
        f"{number}, " + ", ".join(map(str, corners))
        for number, corners in enumerate(elements(), start=1)
    ]
    lines += listed("HELD", [node for node, (x, _, _) in nodes.items() if x == 0])
    lines += listed("MOVED", [node for node, (x, _, _) in nodes.items() if x == LENGTH])
    # Axis 1 of the ply, then a vector that with it spans the plane of the ply.
    lines += ["*ORIENTATION, NAME=PLY", f"{cosine!r}, {sine!r}, 0, {-sine!r}, {cosine!r}, 0"]
    lines += [f"*SOLID SECTION, ELSET=COUPON, MATERIAL={material}, ORIENTATION=PLY"]
    lines += ["*INITIAL CONDITIONS, TYPE=TEMPERATURE", f"ALL, {TEMPERATURE}"]
    lines += ["*STEP", "*STATIC", "*BOUNDARY", "HELD, 1, 1", f"MOVED, 1, 1, {STRETCH}"]
    # One corner is held sideways, and its neighbour above as well: no stress follows from that.
    lines += [f"{node_number(0, 0, 0)}, 2, 3", f"{node_number(0, CELLS[1], 0)}, 3, 3"]
    lines += [f"{node_number(CELLS[0], 0, 0)}, 3, 3"]
    lines += ["*NODE PRINT, NSET=ALL", "U", "*NODE PRINT, NSET=HELD, TOTALS=ONLY", "RF"]
    lines += ["*NODE FILE", "U", "*EL FILE", "S, E", "*END STEP"]
    Path("coupon.inp").write_text("\n".join(lines) + "\n")


def results():
    """Displacements by node number, and the force along x that holds the coupon."""
    text = Path("coupon.dat").read_text()
    table, rest = text.split("total force")
    displacements = {}
    for line in table.splitlines():
        words = line.split()
        if len(words) == 4 and words[0].isdigit():
            displacements[int(words[0])] = [float(word) for word in words[1:]]
    force = float(rest.splitlines()[2].split()[0])
    return displacements, force


def picture():
    import matplotlib

    matplotlib.use("Agg")
    from matplotlib import pyplot

    displacements, force = results()
    nodes = points()
    figure, axes = pyplot.subplots(figsize=(9, 3), layout="constrained")
    for corners in elements():
        face = [corners[corner] for corner in (0, 1, 2, 3, 0)]
        axes.plot(*zip(*[nodes[node][:2] for node in face]), color="0.8", linewidth=0.8)
        moved = [
            [nodes[node][axis] + SHOWN_TIMES * displacements[node][axis] for axis in (0, 1)]
            for node in face
        ]
        axes.plot(*zip(*moved), color="tab:blue", linewidth=0.8)
    stress = -force / (WIDTH * THICKNESS)
    modulus = stress / (STRETCH / LENGTH)
    axes.set(
        title=f"Fibres at {ANGLE:g} degrees: stress {stress:.2f} MPa, modulus {modulus / 1e3:.3f} GPa",
        xlabel=f"x [mm] (displacements times {SHOWN_TIMES})",
        ylabel="y [mm]",
        aspect="equal",
    )
    figure.savefig("coupon.png", dpi=120)
    print(f"modulus at {ANGLE:g} degrees: {modulus:.1f} MPa")


def main(arguments):
    if arguments[:1] == ["mesh"] and len(arguments) == 2:
        mesh(arguments[1])
    elif arguments == ["picture"]:
        picture()
    else:
        print(__doc__.splitlines()[0], file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
