"""The check of the floors: what it refuses in a small house of its own."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

TABLE = """
| folder | what | headers | sources | uses |
|---|---|---|---|---|
| `core/base` | ground | 0 | 0 | |
| `objects` | objects | 2 | 2 | `core/base` |
| `physics` | service | 4 | 4 | `objects` `game` |
| `game` | play | 3 | 5 | `objects` `game/shots` |
| `game/shots` | shots | 5 | 5 | `game` |
"""

HOUSE = {
    "core/base/random.h": "",
    "zovassert.h": "",
    "gameobj.h": '#include "core/base/random.h"\n',
    "gameobj.cpp": '#include "zovassert.h"\n',
    "objects/table.h": '#include "gameobj.h"\n',
    "physics/quadtree.h": '#include "objects/table.h"\n',
    "physics/quadtree.cpp": '#include "game/unit.h"\n',
    "game/unit.h": '#include "objects/table.h"\n',
    "game/unit.cpp": '#include "game/shots/shot.h"\n',
    "game/shots/shot.h": "",
    "game/shots/shot.cpp": '#include "game/unit.h"\n',
}


def check(changes, table=TABLE):
    """The exit status and the words of the check for the house with these files changed."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        (root / "docs").mkdir()
        (root / "docs/architecture.md").write_text(table)
        for name, text in (HOUSE | changes).items():
            path = root / "zovengine" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        done = subprocess.run([sys.executable, ROOT / "tools/check_floors", root],
                              capture_output=True, text=True)
        return done.returncode, done.stdout + done.stderr


class CheckFloors(unittest.TestCase):
    def assert_refused(self, changes, sentence, table=TABLE):
        status, words = check(changes, table)
        self.assertEqual(status, 1, words)
        self.assertIn(sentence, words)

    def test_the_house_as_it_stands_passes(self):
        status, words = check({})
        self.assertEqual((status, words), (0, "11 files in 5 folders keep to their floors\n"))

    def test_a_higher_floor_is_refused(self):
        table = TABLE.replace("| 4 | 4 | `objects` `game` |", "| 4 | 4 | `objects` `game` `game/shots` |")
        self.assert_refused({"physics/quadtree.h": '#include "game/shots/shot.h"\n'},
                            "physics/quadtree.h (floor 4) includes game/shots/shot.h (floor 5)", table)

    def test_a_header_may_not_include_what_its_source_may(self):
        self.assert_refused({"game/unit.h": '#include "game/shots/shot.h"\n'},
                            "game/unit.h (floor 3) includes game/shots/shot.h (floor 5)")

    def test_a_folder_that_the_row_does_not_name_is_refused_on_a_lower_floor_too(self):
        self.assert_refused({"game/shots/shot.cpp": '#include "core/base/random.h"\n'},
                            "game/shots/shot.cpp includes core/base/random.h, "
                            "but game/shots does not use core/base")

    def test_a_file_at_the_top_counts_with_its_folder(self):
        self.assert_refused({"gameobj.cpp": '#include "game/unit.h"\n'},
                            "gameobj.cpp includes game/unit.h, but objects does not use game")

    def test_an_unknown_file_at_the_top_has_no_folder(self):
        self.assert_refused({"stray.h": ""}, "stray.h: its folder is not in the table")

    def test_a_folder_without_a_row_is_refused(self):
        self.assert_refused({"music/score.h": ""}, "music/score.h: its folder is not in the table")

    def test_an_include_that_leads_nowhere_is_refused(self):
        self.assert_refused({"objects/table.h": '#include "objects/gone.h"\n'},
                            "objects/table.h includes objects/gone.h, which is not below zovengine/")

    def test_a_use_that_nothing_needs_is_refused(self):
        self.assert_refused({"game/shots/shot.cpp": ""},
                            "the table lets game/shots use game, which no file of it includes")

    def test_a_row_without_files_is_refused(self):
        self.assert_refused({}, "the table has `music`, which has no files",
                            TABLE + "| `music` | none | 1 | 1 | |\n")

    def test_a_circle_of_files_is_refused(self):
        self.assert_refused({"objects/table.h": '#include "objects/list.h"\n',
                             "objects/list.h": '#include "objects/table.h"\n'},
                            "a circle of includes: objects/table.h -> objects/list.h -> objects/table.h")

    def test_a_circle_of_folders_by_their_headers_is_refused(self):
        table = TABLE.replace("| play | 3 |", "| play | 5 |").replace("| service | 4 | 4 |", "| service | 5 | 5 |")
        self.assert_refused({"game/unit.h": '#include "game/shots/shot.h"\n',
                             "game/shots/gun.h": '#include "game/side.h"\n', "game/side.h": ""},
                            "a circle of folders by their headers: game/shots -> game -> game/shots", table)

    def test_a_page_without_a_table_is_refused(self):
        self.assert_refused({}, "docs/architecture.md has no table of floors", "no table here\n")

    def test_a_folder_named_twice_is_refused(self):
        self.assert_refused({}, "the table has `game` twice", TABLE + "| `game` | again | 3 | 5 | |\n")


if __name__ == "__main__":
    unittest.main()
