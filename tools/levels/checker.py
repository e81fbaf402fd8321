"""The rules of levels, asked of the program that has them: carapace_checklevel, which is built beside the tests."""
import os
import pathlib
import subprocess
import sys
import tempfile

from maker import ROOT

NAMED_BY = "CARAPACE_CHECKLEVEL"  # the variable that names the program; without it the newest build is taken
DEPTH = 3  # folders on the path of a level
BUILDS = "build/*/tests/carapace_checklevel"


def find_program():
    named = os.environ.get(NAMED_BY)
    found = [pathlib.Path(named)] if named else sorted(ROOT.glob(BUILDS), key=lambda path: path.stat().st_mtime)
    if not found or not found[-1].is_file():
        sys.exit(f"{found[-1] if found else BUILDS} is not there, and it has the rules of levels. Build it: "
                 "cmake --preset dev && cmake --build --preset dev --target carapace_checklevel")
    return found[-1]


def problems(texts):
    """What is wrong with the level that has these texts, by their paths: a line for each problem."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in texts.items():
            file = pathlib.Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        level = pathlib.Path(folder, *pathlib.Path(next(iter(texts))).parts[:DEPTH])
        done = subprocess.run([find_program(), level], cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if done.returncode not in (0, 1):
        sys.exit(f"{find_program()} failed: {done.stderr}")
    return done.stdout.splitlines()


def errors(lines):
    """Those of the lines without which the level could be played."""
    return [line for line in lines if line.split(": ")[1] == "error"]
