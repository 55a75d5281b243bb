# SPDX-License-Identifier: BSD-3-Clause
"""Runs the commands of docs/cards.md."""

import math
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from material_folders import ENGINE_FOLDER, EXAMPLES, KIT, PROGRAM, ROOT

sys.path.insert(0, str(ROOT / "python"))
import lamcraft


class Guide(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)

    def run_block(self, document):
        """The first block of shell commands, with the built programs on the path."""
        commands = re.search(r"```sh\n(.*?)```", (ROOT / document).read_text(), re.S).group(1)
        bin_folder = self.folder / "bin"
        bin_folder.mkdir()
        (bin_folder / "lamcraft").symlink_to(PROGRAM)
        (bin_folder / "lamkit").symlink_to(KIT)
        (bin_folder / "python3").symlink_to(sys.executable)
        path = f"{bin_folder}:{os.environ['PATH']}"
        environment = {**os.environ, "PATH": path, "LD_LIBRARY_PATH": ENGINE_FOLDER}
        return subprocess.run(
            ["sh", "-e", "-c", commands],
            cwd=self.folder,
            env=environment,
            capture_output=True,
            text=True,
            timeout=300,
        )

    def test_leads_from_deck_to_picture(self):
        shutil.copy(EXAMPLES / "im7-8552.qdk", self.folder)
        shutil.copy(ROOT / "docs" / "coupon" / "coupon.py", self.folder)
        result = self.run_block("docs/cards.md")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertNotRegex((self.folder / "ccx.txt").read_text(), r"(?i)warning|error")
        self.assertEqual((self.folder / "coupon.png").read_bytes()[1:4], b"PNG")

        ply = lamcraft.load(self.folder / "im7").environments[0].lamina
        cosine, sine = math.cos(math.radians(30)), math.sin(math.radians(30))
        flexibility = (
            cosine**4 / ply.E11
            + sine**4 / ply.E22
            + (1 / ply.G12 - 2 * ply.v12 / ply.E11) * (sine * cosine) ** 2
        )
        printed = re.fullmatch(r"modulus at 30 degrees: (\S+) MPa\n", result.stdout).group(1)
        # One digit after the point is printed.
        self.assertAlmostEqual(float(printed), 1e-6 / flexibility, delta=0.06)
        self.assertIn(f"{1e-9 / flexibility:.2f} GPa", (ROOT / "docs" / "cards.md").read_text())


if __name__ == "__main__":
    unittest.main()
