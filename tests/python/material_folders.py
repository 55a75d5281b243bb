# SPDX-License-Identifier: BSD-3-Clause
"""Material folders to read: those of every golden case and every example, solved with the stand-in
library, which answers with a number of its own in each place; and every example solved with the
engine."""

import atexit
import functools
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"

PROGRAM = os.environ["LAMCRAFT_PROGRAM"]
KIT = os.environ["LAMKIT_PROGRAM"]
FAKE_FOLDER = os.environ["LAMCRAFT_FAKE_FOLDER"]
ENGINE_FOLDER = os.environ["LAMCRAFT_ENGINE_FOLDER"]


def decks():
    """Decks by the names of their folders."""
    found = {deck.parent.name: deck for deck in sorted(GOLDEN.glob("*/deck.qdk"))}
    found.update({deck.stem: deck for deck in sorted(EXAMPLES.glob("*.qdk"))})
    return found


def settings_of(deck):
    """The environment variables that a golden case asks for."""
    file = deck.parent / "settings.txt"
    lines = file.read_text().splitlines() if deck.name == "deck.qdk" and file.exists() else []
    return dict(line.split("=", 1) for line in lines)


def solve(deck, target, library=FAKE_FOLDER):
    """Runs the program; the folder, or None when the program wrote no data."""
    target.mkdir(parents=True)
    environment = {**os.environ, **settings_of(deck), "LD_LIBRARY_PATH": library}
    subprocess.run([PROGRAM, deck, target], env=environment, capture_output=True, timeout=300)
    return target if (target / "mdata.xml").exists() else None


def solve_all(chosen, library):
    """Folders with data, by name, in a place that is removed at the end."""
    holder = Path(tempfile.mkdtemp())
    atexit.register(shutil.rmtree, holder)
    solved = {name: solve(deck, holder / name, library) for name, deck in chosen.items()}
    return {name: folder for name, folder in solved.items() if folder is not None}


@functools.lru_cache(maxsize=None)
def material_folders():
    """What the stand-in library makes of every deck."""
    return solve_all(decks(), FAKE_FOLDER)


@functools.lru_cache(maxsize=None)
def example_folders():
    """What the engine makes of every example."""
    return solve_all({deck.stem: deck for deck in EXAMPLES.glob("*.qdk")}, ENGINE_FOLDER)


def lamkit(*arguments):
    """Runs lamkit."""
    return subprocess.run([KIT, *arguments], capture_output=True, text=True, timeout=300)
