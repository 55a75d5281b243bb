"""Holds the schemas of docs/ to what the program writes."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from material_folders import ENGINE_FOLDER, ROOT, decks, material_folders, solve

SCHEMA = ROOT / "docs" / "mdata.xsd"


def refusal(file):
    """What the schema has against a data file; empty when it takes it."""
    command = ["xmllint", "--noout", "--schema", SCHEMA, file]
    result = subprocess.run(command, capture_output=True, text=True)
    return "" if result.returncode == 0 else result.stderr


class DataFileSchema(unittest.TestCase):
    def expect_valid(self, folder):
        files = sorted(folder.glob("?data.xml"))
        self.assertIn("mdata.xml", [file.name for file in files])
        for file in files:
            self.assertEqual(refusal(file), "", file)

    def test_takes_every_golden_case_and_example(self):
        self.assertGreaterEqual(len(material_folders()), 18)
        for name, folder in material_folders().items():
            with self.subTest(name=name):
                self.expect_valid(folder)

    def test_takes_what_the_engine_writes(self):
        with tempfile.TemporaryDirectory() as holder:
            for name in ("ge1-glass-epoxy", "im7-8552", "plain-weave-glass-vinylester"):
                folder = solve(decks()[name], Path(holder) / name, ENGINE_FOLDER)
                self.assertIsNotNone(folder, name)
                self.expect_valid(folder)

    def test_refuses_what_the_program_does_not_write(self):
        whole = (material_folders()["uni_everything"] / "mdata.xml").read_text()
        number = " 1.58000000000000E+00"
        spellings = {
            number: "1.58",
            'moisture="dry"': 'moisture="damp"',
            'version="6.0"': 'version="5.0"',
            "<density value": "<weight value",
            'set="1"': 'set="19"',
            'iterations="79"': 'iterations="7.9"',
            "<fracture>": "<fracture><GmC value=\" 1.00000000000000E+00\" />",
        }
        for text, wrong in spellings.items():
            with self.subTest(wrong=wrong):
                self.assertIn(text, whole)
                self.assertNotEqual(self.refusal_of(whole.replace(text, wrong)), "")

    def test_takes_numbers_that_are_not_finite(self):
        whole = (material_folders()["uni_everything"] / "mdata.xml").read_text()
        number = " 1.58000000000000E+00"
        for spelled in ("NAN", "-NAN", "INF", "-INF"):
            self.assertEqual(self.refusal_of(whole.replace(number, spelled.rjust(21))), "")
        self.assertNotEqual(self.refusal_of(whole.replace(number, "NaN".rjust(21))), "")

    def refusal_of(self, text):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "mdata.xml"
            file.write_text(text)
            return refusal(file)


if __name__ == "__main__":
    unittest.main()
