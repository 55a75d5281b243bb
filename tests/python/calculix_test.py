# SPDX-License-Identifier: BSD-3-Clause
"""Holds cards to CalculiX: one element under six loads and a temperature, whose strains must give the
constants of the data file back."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from material_folders import ROOT, example_folders, lamkit

sys.path.insert(0, str(ROOT / "python"))
import lamcraft

# Seven digits in a result are five in the eighth at most; a ratio of two has twice that.
TOLERANCE = 1e-6

COMPONENTS = ["11", "22", "33", "12", "13", "23"]  # as CalculiX prints them
AXES = {"11": (0, 0), "22": (1, 1), "33": (2, 2), "12": (0, 1), "13": (0, 2), "23": (1, 2)}
CORNERS = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0), (0, 0, 1), (1, 0, 1), (1, 1, 1), (0, 1, 1)]


def nodal_forces(component, stress):
    """Forces on the corners of a unit cube that make a uniform stress, by node and direction."""
    forces = {}
    i, j = AXES[component]
    for normal, direction in {(i, j), (j, i)}:
        for node, corner in enumerate(CORNERS, start=1):
            sign = 1.0 if corner[normal] == 1 else -1.0
            forces[node, direction + 1] = forces.get((node, direction + 1), 0.0) + sign * stress / 4
    return forces


def model(card, name, temperature, reference, stress):
    """A unit cube, free of strain at the reference temperature, at another one, then loaded."""
    lines = [card, "*NODE, NSET=ALL"]
    lines += [f"{node}, {x}., {y}., {z}." for node, (x, y, z) in enumerate(CORNERS, start=1)]
    lines += ["*ELEMENT, TYPE=C3D8, ELSET=CUBE", "1, 1, 2, 3, 4, 5, 6, 7, 8"]
    lines += [f"*SOLID SECTION, ELSET=CUBE, MATERIAL={name}"]
    lines += ["*INITIAL CONDITIONS, TYPE=TEMPERATURE", f"ALL, {reference!r}"]
    # Six degrees of freedom hold the cube without a force.
    lines += ["*BOUNDARY", "1, 1, 3", "2, 2, 3", "4, 3, 3"]
    for component in [None] + COMPONENTS:
        lines += ["*STEP", "*STATIC", "*TEMPERATURE", f"ALL, {temperature!r}", "*CLOAD, OP=NEW"]
        forces = nodal_forces(component, stress) if component else {}
        lines += [f"{node}, {axis}, {force!r}" for (node, axis), force in sorted(forces.items())]
        lines += ["*EL PRINT, ELSET=CUBE", "S, E, ME"]
        lines += ["*EL PRINT, ELSET=CUBE, TOTALS=ONLY", "EMAS", "*END STEP"]
    return "\n".join(lines) + "\n"


def run_calculix(text):
    """What CalculiX says, and its results."""
    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / "cube.inp").write_text(text)
        result = subprocess.run(
            ["ccx", "cube"], cwd=folder, capture_output=True, text=True, timeout=120
        )
        return result.stdout + result.stderr, (Path(folder) / "cube.dat").read_text()


def tables(results, title):
    """The first point of each table with this title: six components a step."""
    found = []
    for block in re.split(r"\n (?=[a-z])", results):
        if block.lstrip().startswith(title):
            row = [line for line in block.splitlines()[1:] if line.strip()][0]
            found.append([float(number) for number in row.split()[2:]])
    return found


def compliances(results):
    """Strains for each kelvin (the first step), and columns of the compliance."""
    stresses = tables(results, "stresses")
    mechanical = tables(results, "mechanical strains")
    columns = []
    for place, (stress, strain) in enumerate(zip(stresses[1:], mechanical[1:])):
        engineering = [value * (1 if entry < 3 else 2) for entry, value in enumerate(strain)]
        columns.append([value / stress[place] for value in engineering])
    return columns


class Cube(unittest.TestCase):
    def expect_near(self, value, expected, what):
        self.assertLessEqual(abs(value / expected - 1), TOLERANCE, f"{what}: {value}, {expected}")

    def expect_compliance(self, columns, ply, stress_unit):
        moduli = [ply.E11, ply.E22, ply.E33, ply.G12, ply.G13, ply.G23]
        for place, modulus in enumerate(moduli):
            self.expect_near(1 / columns[place][place], modulus / stress_unit, COMPONENTS[place])
        ratios = {(0, 1): ply.v12, (0, 2): ply.v13, (1, 2): ply.v23}
        for (first, second), ratio in ratios.items():
            loaded = columns[first]
            self.expect_near(-loaded[second] / loaded[first], ratio, f"v{first + 1}{second + 1}")
        for place, column in enumerate(columns):
            for entry, value in enumerate(column):
                is_coupled = entry == place or (entry < 3 and place < 3)
                if not is_coupled:
                    self.assertLess(abs(value), 1e-9 * abs(column[place]))

    def expect_expansion(self, results, environment, material):
        change = environment.temperature - material.reference_temperature
        self.assertGreater(abs(change), 1.0)
        strains = tables(results, "strains")[0]
        for strain, name in zip(strains, ("A11", "A22", "A33")):
            self.expect_near(strain / change, getattr(environment.lamina, name), name)

    def expect_material_back(self, folder, environment, units):
        material = lamcraft.load(folder)
        stress_unit, density_unit = {"si": (1.0, 1.0), "mm-t-s": (1e6, 1e12)}[units]
        arguments = ["--for", "calculix", "--units", units, "--force"]
        card = lamkit("card", folder, *arguments)
        self.assertIn(card.returncode, (0, 1, 2), card.stderr)
        name = re.search(r"\*MATERIAL, NAME=(.*)", card.stdout).group(1)
        text = model(
            card.stdout,
            name,
            environment.temperature,
            material.reference_temperature,
            1e-3 * environment.lamina.E22 / stress_unit,
        )
        said, results = run_calculix(text)
        self.assertNotRegex(said, r"(?i)warning|error")
        self.expect_compliance(compliances(results), environment.lamina, stress_unit)
        self.expect_expansion(results, environment, material)
        mass = float(re.search(r"total mass for set CUBE.*\n\s*\n\s*(\S+)", results).group(1))
        self.expect_near(mass, material.density / density_unit, "density")

    def test_gives_every_example_back_at_every_temperature(self):
        self.assertEqual(len(example_folders()), 11)
        for name, folder in example_folders().items():
            for environment in lamcraft.load(folder).environments:
                for units in ("si", "mm-t-s"):
                    with self.subTest(name=name, temperature=environment.temperature, units=units):
                        self.expect_material_back(folder, environment, units)


if __name__ == "__main__":
    unittest.main()
