# SPDX-License-Identifier: BSD-3-Clause
"""Holds the schemas of docs/ to what the program writes."""

import copy
import json
import subprocess
import tempfile
import unittest
from pathlib import Path

import jsonschema

from material_folders import EXAMPLES, ROOT, example_folders, lamkit, material_folders

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
        self.assertEqual(len(example_folders()), 11)
        for name, folder in example_folders().items():
            with self.subTest(name=name):
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


def validator_of(name):
    schema = json.loads((ROOT / "docs" / name).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


class CardSchema(unittest.TestCase):
    def card_of(self, folder, *arguments):
        result = lamkit("card", folder, "--for", "json", "--force", *arguments)
        self.assertIn(result.returncode, (0, 1, 2), result.stderr)
        return json.loads(result.stdout)

    def test_takes_the_cards_of_examples(self):
        validator = validator_of("card.schema.json")
        for name, folder in example_folders().items():
            for units in ("si", "mm-t-s"):
                with self.subTest(name=name, units=units):
                    validator.validate(self.card_of(folder, "--units", units))

    def test_takes_the_card_of_a_ply_with_everything(self):
        card = self.card_of(material_folders()["uni_everything"])
        validator_of("card.schema.json").validate(card)
        environment = card["temperatures"][0]
        for part in ("critical_invariants", "fracture", "cohesive", "shear"):
            self.assertIn(part, environment)
        self.assertEqual(len(environment["sn_tests"]), 2)
        self.assertIn("fatigue", environment["constituents"][0])
        self.assertEqual(
            card["ply_thickness"],
            {
                "value": 1.27e-4,
                "unit": "m",
                "min": 1.2e-4,
                "max": 1.35e-4,
                "distributions": {"normal": {"mean": 1.27e-4, "stddev": 2e-6}},
            },
        )

    def test_refuses_other_documents(self):
        validator = validator_of("card.schema.json")
        whole = self.card_of(example_folders()["im7-8552"])
        damages = [
            lambda card: card.pop("units"),
            lambda card: card.update(verdict="fine"),
            lambda card: card.update(temperatures=[]),
            lambda card: card["density"].pop("unit"),
            lambda card: card["density"].update(value="1580"),
            lambda card: card["temperatures"][0]["composite"][0]["properties"].pop("G23"),
        ]
        for number, damage in enumerate(damages):
            card = copy.deepcopy(whole)
            damage(card)
            with self.subTest(number=number):
                self.assertFalse(validator.is_valid(card))


class RunSchema(unittest.TestCase):
    def test_takes_what_solve_writes(self):
        validator = validator_of("run.schema.json")
        with tempfile.TemporaryDirectory() as folder:
            refused = Path(folder) / "refused.qdk"
            refused.write_text("*MATERIALS\n")
            result = lamkit(
                "solve", EXAMPLES / "im7-8552.qdk", refused, "--results", Path(folder) / "out"
            )
            self.assertEqual(result.returncode, 2, result.stderr)
            for name in ("im7-8552", "refused"):
                record = json.loads((Path(folder) / "out" / name / "run.json").read_text())
                validator.validate(record)
                self.assertFalse(validator.is_valid({**record, "verdict": "fine"}))


if __name__ == "__main__":
    unittest.main()
