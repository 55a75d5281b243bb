# SPDX-License-Identifier: BSD-3-Clause
"""Holds docs/run.schema.json to what lamkit solve writes: run_schema_test.py LAMKIT ROOT."""

import copy
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import jsonschema

LAMKIT, ROOT = (Path(argument) for argument in sys.argv[1:3])
SCHEMA = json.loads((ROOT / "docs" / "run.schema.json").read_text())
REFUSED = "*MATERIAL, TYPE=UNI, SYSTEM=X, NAME=R\n1\n*LAMINNA\n1\n"


class RunSchema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as holder:
            refused = Path(holder) / "refused.qdk"
            refused.write_text(REFUSED)
            decks = [ROOT / "examples" / "ge1-glass-epoxy.qdk", refused]
            results = Path(holder) / "out"
            command = [LAMKIT, "solve", *decks, "--results", results, "--force", "--quiet"]
            subprocess.run(command, stdout=subprocess.DEVNULL, check=False)
            cls.records = [
                json.loads((results / deck.stem / "run.json").read_text()) for deck in decks
            ]

    def test_takes_what_is_written(self):
        for record in self.records:
            jsonschema.validate(record, SCHEMA)
        self.assertEqual(self.records[1]["verdict"], "bad")

    def test_refuses_what_is_not(self):
        for change in ({"schema": 2}, {"sha256": "x"}, {"verdict": "fine"}, {"seconds": "1"},
                       {"more": 1}, {"findings": [{}]}):
            record = copy.deepcopy(self.records[0])
            record.update(change)
            with self.subTest(change=change), self.assertRaises(jsonschema.ValidationError):
                jsonschema.validate(record, SCHEMA)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
