"""The program that has the rules of levels: what it answers, and that docs/levels.md lists all rules."""
import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest
import unittest.mock

from makers import LEVEL01, ROOT, make_level
from levels import checker

FILES = make_level(LEVEL01)
UNITS = "Level Editor/Levels/Level01/Entity/Units.json"


def run(*arguments, folder=ROOT):
    return subprocess.run([checker.find_program(), *arguments], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)


def root_index(file):
    """The place of the object that runs a level among the objects of its file."""
    return next(k for k, own in enumerate(file["GameObjFactory"]) if "GameController" in own)


def without(name):
    """The files of the first level without one child of the object that runs it."""
    file = json.loads(FILES[UNITS])
    root = file["GameObjFactory"][root_index(file)]
    root["Childs"] = [own for own in root["Childs"] if own["name"] != name]
    return {**FILES, UNITS: json.dumps(file)}


class Rules(unittest.TestCase):

    def test_the_shipped_levels_are_sound(self):
        done = run()
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_an_error_fails_and_names_rule_and_place(self):
        with tempfile.TemporaryDirectory() as folder:
            for path, text in {**FILES, UNITS: re.sub(r'"m_health": [0-9]+', '"m_health": 0', FILES[UNITS], count=1)}.items():
                file = pathlib.Path(folder, path)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            level = pathlib.Path(folder, "Level Editor/Levels/Level01")
            for name in (str(level), f"{level}/"):
                done = run(name)
                self.assertEqual((done.returncode, done.stdout),
                                 (1, "Level01: error: level/player1 starts without health "
                                     f"[unit-health, at {root_index(json.loads(FILES[UNITS]))}/0]\n"))

    def test_a_warning_is_told_and_does_not_fail(self):
        lines = checker.problems(without("ui_turn"))
        self.assertEqual(lines, ["Level01: warning: the level has no element ui_turn [interface-missing]"])
        self.assertEqual(checker.errors(lines), [])

    def test_an_error_is_told_from_a_warning(self):
        lines = checker.problems(without("camera"))
        self.assertIn("one-camera", checker.errors(lines)[0])
        self.assertLess(len(checker.errors(lines)), len(lines))

    def test_a_place_without_levels_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(run(folder=folder).returncode, 2)

    def test_a_program_that_is_not_built_is_told_with_what_builds_it(self):
        with unittest.mock.patch.dict(os.environ, {checker.NAMED_BY: "nowhere/carapace_checklevel"}):
            with self.assertRaises(SystemExit) as told:
                checker.find_program()
        self.assertIn("nowhere/carapace_checklevel is not there", told.exception.code)
        self.assertIn("--target carapace_checklevel", told.exception.code)

    def test_the_page_lists_every_rule_with_its_weight(self):
        listed = re.findall(r"^\| `([\w-]+)` \| (error|warning) \|", (ROOT / "docs/levels.md").read_text(), re.M)
        told = [tuple(line.split(": ")[:2]) for line in run("--rules").stdout.splitlines()]
        self.assertGreater(len(told), 50)
        self.assertEqual(sorted(listed), sorted(told))


if __name__ == "__main__":
    unittest.main()
