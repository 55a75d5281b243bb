# SPDX-License-Identifier: BSD-3-Clause
"""Tests of python/lamcraft.py."""

import dataclasses
import math
import re
import shutil
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

from material_folders import ROOT, material_folders

sys.path.insert(0, str(ROOT / "python"))
import lamcraft

UNI = material_folders()["uni_everything"]
WOVEN = material_folders()["satin_5h"]


def is_number(text):
    try:
        float(text)
    except ValueError:
        return False
    return True


def numbers_in_file(path):
    """Each number of a data file, but for the numbers that only tell what stands where."""
    root = ElementTree.parse(path).getroot()
    counts = Counter()
    for element in root.iter():
        for name, text in element.attrib.items():
            if name not in ("set", "version", "number") and is_number(text):
                counts[float(text)] += 1
    return counts


def numbers_in(record):
    """Each number that can be reached from a record."""
    if isinstance(record, bool) or record is None or isinstance(record, (str, Path)):
        return Counter()
    if isinstance(record, (int, float)):
        return Counter([float(record)])
    if dataclasses.is_dataclass(record):
        return numbers_in([getattr(record, entry.name) for entry in dataclasses.fields(record)])
    if isinstance(record, dict):
        return numbers_in(list(record.values()))
    if hasattr(record, "tolist"):
        return numbers_in(record.tolist())
    return sum((numbers_in(entry) for entry in record), Counter())


class Folder(unittest.TestCase):
    """A folder of one's own, with the files of a golden case."""

    def copy_of(self, source):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        target = Path(holder.name) / "my material"
        shutil.copytree(source, target)
        return target


class EveryNumberHasAPlace(Folder):
    def test_in_all_data_files(self):
        self.assertGreaterEqual(len(material_folders()), 18)
        for name, folder in material_folders().items():
            with self.subTest(folder=name):
                material = lamcraft.load(folder)
                missing = numbers_in_file(folder / "mdata.xml") - numbers_in(material)
                self.assertEqual(missing, Counter())

    def test_in_the_fatigue_file_of_a_ply(self):
        found = 0
        for folder in material_folders().values():
            material = lamcraft.load(folder)
            if material.is_woven or not (folder / "fdata.xml").exists():
                continue
            found += 1
            missing = numbers_in_file(folder / "fdata.xml") - numbers_in(material)
            self.assertEqual(missing, Counter())
        self.assertGreater(found, 0)


class Ply(unittest.TestCase):
    def setUp(self):
        self.material = lamcraft.load(UNI)
        self.environment = self.material.environments[0]

    def test_head(self):
        self.assertEqual(self.material.name, "Carbon / Epoxy 1")
        self.assertEqual(self.material.density, 1.58)
        self.assertEqual(self.material.reference_temperature, 450.0)
        self.assertEqual(self.material.ply_thickness, 1.27e-4)
        self.assertFalse(self.material.is_woven)
        self.assertEqual([part.name for part in self.material.constituents], ["matrix", "fiber"])
        self.assertEqual(self.material.constituents[1].volume_fraction, 0.61)

    def test_constants_have_the_names_of_the_deck(self):
        fiber = self.environment.fiber
        self.assertEqual((fiber.E11, fiber.E22, fiber.v12, fiber.v23), (39.0, 40.0, 42.0, 44.0))
        self.assertEqual((fiber.G12, fiber.A11, fiber.A33), (45.0, 48.0, 49.0))
        self.assertEqual(self.environment.matrix.E11, 51.0)
        self.assertEqual(self.environment.lamina.E11, 27.0)

    def test_condition_and_fits(self):
        self.assertEqual((self.environment.temperature, self.environment.moisture), (296.0, "dry"))
        self.assertEqual(self.environment.solver.elastic_constants, lamcraft.Fit(75.0, 76.0, 79))
        self.assertEqual(self.environment.solver.thermal_expansion, lamcraft.Fit(77.0, 78.0, 80))

    def test_fatigue_comes_from_the_fatigue_file(self):
        self.assertIsNotNone(self.environment.solver.fatigue)
        constants = self.environment.fatigue
        values = dataclasses.astuple(constants.longitudinal) + dataclasses.astuple(
            constants.transverse
        )
        # The stand-in library numbers what it writes: twelve in a row.
        self.assertEqual(values, tuple(values[0] + place for place in range(12)))

    def test_sn_records_keep_stress_ratio_and_angle_apart(self):
        self.assertEqual(
            self.environment.sn,
            [
                lamcraft.SnRecord(stress=6.001e8, life=1e3, f=10.0, R=0.1, theta=0.0),
                lamcraft.SnRecord(stress=5.002e8, life=1e5, f=9.0, R=-1.0, theta=90.0),
            ],
        )

    def test_what_the_deck_gives(self):
        self.assertEqual(self.environment.strengths.nS11, 1.482e9)
        self.assertEqual(self.environment.invariants.compressiveStrain, 0.066)
        self.assertEqual(self.environment.fracture.GfcC, 9.22e4)
        self.assertEqual(self.environment.cohesive.dmf_dm0, 1.4e-4)
        self.assertEqual([entry.name for entry in self.environment.laminates][1], "CROSS")
        self.assertEqual(self.environment.laminates[0].c2, 1.2)
        self.assertEqual(self.environment.prefail.law.thr, 83.0)
        self.assertEqual(self.environment.prefail.points[2], lamcraft.ShearPoint(6.03e7, 2.03e-2))

    def test_scatter(self):
        scatter = self.material.scatter["ply_thickness"]
        self.assertEqual((scatter.min, scatter.max), (1.2e-4, 1.35e-4))
        normal = scatter.distributions["normal"].parameters
        self.assertEqual(normal, {"mean": 1.27e-4, "stddev": 2e-6})
        self.assertEqual(len(scatter.distributions), 5)
        self.assertEqual(set(self.environment.fiber.scatter), {"E22", "E33"})
        self.assertEqual(set(self.environment.strengths.scatter), {"pS11", "S12", "S13"})


class Weave(unittest.TestCase):
    def setUp(self):
        self.material = lamcraft.load(WOVEN)
        self.states = self.material.environments[0].states

    def test_head(self):
        self.assertTrue(self.material.is_woven)
        self.assertEqual((self.material.harness, self.material.constituent_count), (5, 3))
        names = [part.name for part in self.material.constituents]
        self.assertEqual(names, ["matrixpocket", "fill", "warp", "interface"])
        self.assertIsNone(self.material.constituents[0].type)
        self.assertEqual(self.material.constituents[1].constituents[0].name, "fill_matrix")

    def test_states_tell_what_has_failed(self):
        self.assertEqual([state.number for state in self.states], list(range(1, 19)))
        for state in self.states:
            self.assertEqual(state.number, 1 + state.pocket + 2 * state.fill + 6 * state.warp)
            self.assertIn(state.pocket, (0, 1))
            self.assertIn(state.fill, (0, 1, 2))
            self.assertIn(state.warp, (0, 1, 2))

    def test_constituents_of_a_state(self):
        for state in self.states:
            self.assertEqual(len(state.constituents), 7)
            self.assertEqual(len(state.decompositions), 8)
            self.assertNotIn("interface", state.constituents)

    def test_decompositions_are_where_their_names_say(self):
        root = ElementTree.parse(WOVEN / "mdata.xml").getroot()
        for constituent in root.find("environment").iter("constituent"):
            name = constituent.find("name").get("value")
            for state, element in zip(self.states, constituent.findall("decomp")):
                read = state.decompositions[name]
                for row in range(6):
                    thermal = float(element.find(f"Tstress/D1{row + 1}").get("value"))
                    self.assertEqual(read.thermal_stress[row], thermal)
                    for column in range(6):
                        tag = f"D{row + 1}{column + 1}"
                        stress = float(element.find(f"stress/{tag}").get("value"))
                        strain = float(element.find(f"strain/{tag}").get("value"))
                        self.assertEqual(read.stress[row][column], stress)
                        self.assertEqual(read.strain[row][column], strain)

    def test_without_numpy_matrices_are_lists(self):
        numpy = lamcraft.numpy
        self.addCleanup(setattr, lamcraft, "numpy", numpy)
        lamcraft.numpy = None
        plain = lamcraft.load(WOVEN).environments[0].states[3].decompositions["fill"]
        self.assertIsInstance(plain.stress, list)
        expected = self.states[3].decompositions["fill"]
        self.assertEqual(plain.stress, [list(row) for row in expected.stress])
        self.assertEqual(plain.thermal_strain, list(expected.thermal_strain))


class Refusals(Folder):
    def expect_refusal(self, folder, reason):
        with self.assertRaisesRegex(lamcraft.FolderError, reason) as caught:
            lamcraft.load(folder)
        self.assertIn(str(folder), str(caught.exception))

    def test_a_folder_that_is_not_there(self):
        self.expect_refusal(UNI.parent / "nowhere", "no such folder")

    def test_a_folder_without_data(self):
        folder = self.copy_of(UNI)
        (folder / "mdata.xml").unlink()
        self.expect_refusal(folder, "mdata.xml cannot be read")

    def test_files_that_are_cut_off(self):
        whole = (WOVEN / "mdata.xml").read_text()
        for part in (0, 1, 40, 400, len(whole) // 2, len(whole) - 8):
            folder = self.copy_of(WOVEN)
            (folder / "mdata.xml").write_text(whole[:part])
            with self.subTest(part=part):
                self.expect_refusal(folder, "mdata.xml is not whole")

    def test_a_fatigue_file_that_is_cut_off(self):
        folder = self.copy_of(UNI)
        whole = (folder / "fdata.xml").read_text()
        (folder / "fdata.xml").write_text(whole[: len(whole) // 2])
        self.expect_refusal(folder, "fdata.xml is not whole")

    def test_a_fatigue_file_of_another_material(self):
        folder = self.copy_of(UNI)
        text = (folder / "fdata.xml").read_text()
        (folder / "fdata.xml").write_text(text.replace("Carbon / Epoxy 1", "Carbon / Epoxy 2"))
        self.expect_refusal(folder, "another material")

    def test_a_file_of_something_else(self):
        folder = self.copy_of(UNI)
        (folder / "mdata.xml").write_text("<html><body/></html>")
        self.expect_refusal(folder, "root is <html>")

    def test_every_element_that_is_missing(self):
        text = (UNI / "mdata.xml").read_text()
        for tag in ("density", "VF", "E11", "pS11", "sheardeg", "name", "elastic_constants", "c1"):
            folder = self.copy_of(UNI)
            damaged = re.sub(rf"\b{tag}\b", "other", text)
            self.assertNotEqual(damaged, text)
            (folder / "mdata.xml").write_text(damaged)
            with self.subTest(tag=tag):
                self.expect_refusal(folder, "mdata.xml is no data file of lamcraft")

    def test_text_in_place_of_a_number(self):
        folder = self.copy_of(UNI)
        text = (UNI / "mdata.xml").read_text()
        (folder / "mdata.xml").write_text(text.replace(" 1.58000000000000E+00", "heavy"))
        self.expect_refusal(folder, "heavy")


class NumbersThatAreNotFinite(Folder):
    def test_are_read(self):
        folder = self.copy_of(WOVEN)
        text = (folder / "mdata.xml").read_text()
        place = text.index('<D11 value="') + len('<D11 value="')
        for spelled in ("                  NAN", "                 -NAN"):
            (folder / "mdata.xml").write_text(text[:place] + spelled + text[place + 21 :])
            pocket = lamcraft.load(folder).environments[0].states[0].decompositions["matrixpocket"]
            self.assertTrue(math.isnan(pocket.stress[0][0]))
        (folder / "mdata.xml").write_text(text[:place] + " " * 17 + "-INF" + text[place + 21 :])
        pocket = lamcraft.load(folder).environments[0].states[0].decompositions["matrixpocket"]
        self.assertEqual(pocket.stress[0][0], -math.inf)


if __name__ == "__main__":
    unittest.main()
