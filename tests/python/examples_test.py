# SPDX-License-Identifier: BSD-3-Clause
"""Runs the scripts of python/examples."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "python" / "examples"
GOLDEN = ROOT / "tests" / "golden"
PLY = GOLDEN / "examples" / "ge1-glass-epoxy" / "engine"
OTHER_PLY = GOLDEN / "examples" / "eglass-my750" / "engine"


def run(script, *arguments):
    command = [sys.executable, EXAMPLES / script, *arguments]
    return subprocess.run(command, capture_output=True, text=True, timeout=120)


class SnCurve(unittest.TestCase):
    def test_draws_every_test_and_a_line_an_angle(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "curve.svg"
            result = run("sn_curve.py", PLY, picture)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            drawn = picture.read_text()
        sys.path.insert(0, str(ROOT / "python"))
        import lamcraft

        environments = lamcraft.load(PLY).environments
        tests = [test for entry in environments for test in entry.sn]
        self.assertGreater(len(tests), 50)
        # Circles stand once in a definition a series and are used once a test (and in the legend).
        series = {
            (entry.temperature, test.theta, test.R) for entry in environments for test in entry.sn
        }
        circles = [line for line in drawn.splitlines() if "<use" in line and "stroke: #" in line]
        marks = [line for line in circles if "fill: #" in line]
        self.assertEqual(len(marks), len(tests) + len(series))

    def test_says_when_there_is_nothing_to_draw(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "curve.svg"
            result = run("sn_curve.py", OTHER_PLY, picture)
            self.assertEqual(result.returncode, 1)
            self.assertIn("has no S-N tests", result.stderr)
            self.assertFalse(picture.exists())


class Compare(unittest.TestCase):
    def test_shows_constants_side_by_side(self):
        result = run("compare.py", GOLDEN / "examples" / "as4-3501-6" / "engine", OTHER_PLY)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        lines = result.stdout.splitlines()
        self.assertEqual(lines[0], "as4-3501-6 and eglass-my750 at 296.15 K, ambient")
        modulus = [line.split() for line in lines if "E11" in line][0]
        self.assertEqual(modulus, ["E11", "[Pa]", "1.26e+11", "4.56e+10", "-63.8", "%"])
        self.assertEqual(len([line for line in lines if line.startswith("    ")]), 36)

    def test_says_when_the_conditions_differ(self):
        result = run("compare.py", PLY, OTHER_PLY)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, "no temperature and moisture that both have\n")

    def test_names_a_folder_that_is_not_there(self):
        result = run("compare.py", PLY, GOLDEN / "nowhere")
        self.assertEqual(result.returncode, 1)
        self.assertIn("nowhere", result.stderr)


if __name__ == "__main__":
    unittest.main()
