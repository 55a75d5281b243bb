"""Material folders to read: those of every golden case and every example, solved with the stand-in
library, which answers with a number of its own in each place."""

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


@functools.lru_cache(maxsize=None)
def material_folders():
    """Folders with data, by name; all decks are solved when they are first asked for."""
    holder = Path(tempfile.mkdtemp())
    atexit.register(shutil.rmtree, holder)
    solved = {name: solve(deck, holder / name) for name, deck in decks().items()}
    return {name: folder for name, folder in solved.items() if folder is not None}
