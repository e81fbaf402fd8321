"""The owners of the data files, as docs/data.md names them: every file has one, and every maker's check passes."""
import json
import pathlib
import re
import subprocess
import sys
import typing
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/data.md"
FOLDERS = ("Resources", "Level Editor/Levels", "assets/images/previews")


class Row(typing.NamedTuple):
    pattern: str
    owner: str
    source: str

    def matches(self, path):
        parts = re.split(r"(\*\*|\*)", self.pattern)
        wild = {"**": ".*", "*": "[^/]*"}
        return re.fullmatch("".join(wild.get(part) or re.escape(part) for part in parts), path) is not None


def read_rows():
    cells = r"\| `([^`]+)` \| `?([^`|]+?)`? \| (?:`([^`]+)` )?\|"
    table = PAGE.read_text().split("\n\n## ")[0]
    return [Row(*(cell or "" for cell in found)) for found in re.findall(rf"^{cells}$", table, re.M)]


def run_maker(owner, option):
    return subprocess.run([sys.executable, ROOT / owner, option], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


ROWS = read_rows()
MAKERS = sorted({row.owner for row in ROWS if row.owner.startswith("tools/")})
FILES = sorted(path.relative_to(ROOT).as_posix()
               for folder in FOLDERS for path in (ROOT / folder).rglob("*") if path.is_file())


class Data(unittest.TestCase):

    def test_every_line_of_the_table_is_read(self):
        lines = PAGE.read_text().split("\n\n## ")[0].count("\n| `")
        self.assertEqual(len(ROWS), lines)
        self.assertGreater(len(MAKERS), 0)

    def test_every_file_has_one_owner(self):
        self.assertGreater(len(FILES), 0)
        for path in FILES:
            self.assertEqual(len([row for row in ROWS if row.matches(path)]), 1, f"{path}: rows of docs/data.md")

    def test_every_row_has_files(self):
        for row in ROWS:
            if row.owner != "the build":  # which may not have been configured yet
                self.assertTrue(any(row.matches(path) for path in FILES), f"{row.pattern} matches no file")

    def test_every_owner_is_a_maker_a_person_or_the_build(self):
        for row in ROWS:
            self.assertIn(row.owner, (*MAKERS, "a person", "the build"))

    def test_every_source_exists_and_a_person_has_none(self):
        for row in ROWS:
            if row.owner == "a person":
                self.assertEqual(row.source, "", row.pattern)
            else:
                self.assertTrue((ROOT / row.source).is_file(), f"{row.pattern} is made from {row.source}")

    def test_a_maker_makes_the_files_of_its_rows_and_no_others(self):
        for maker in MAKERS:
            owned = [path for path in FILES if any(row.matches(path) for row in ROWS if row.owner == maker)]
            self.assertEqual(sorted(run_maker(maker, "--list").stdout.splitlines()), owned, maker)

    def test_the_check_of_every_maker_passes(self):
        for maker in MAKERS:
            with self.subTest(maker=maker):
                done = run_maker(maker, "--check")
                self.assertEqual(done.returncode, 0, done.stdout)

    def test_the_textures_are_listed_in_the_order_of_the_images(self):
        listed = json.loads((ROOT / "Resources/Textures/graphics.json").read_text())["texPath"]
        self.assertEqual(listed, run_maker("tools/render_images", "--list").stdout.splitlines())


if __name__ == "__main__":
    unittest.main()
