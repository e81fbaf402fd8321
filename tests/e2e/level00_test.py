"""The training range in the real program, and its files."""
import os
import subprocess
import unittest

from case import ROOT, GameTest, find_record, place_on_window
from driver import tap, wait_until

MENU_LEVEL = "Level Editor/Levels/MainMenu/MainMenu.json"
LEVEL = "Level Editor/Levels/Level00/Level00.json"
MUSIC = "maintheme03.ogg"

MOVED = 12  # mean change of a region from which a body has gone; the floor under it and noise make less
STILL = 3  # mean change of a region in which nothing moves


class TrainingRange(GameTest):
    """The menu's objects are the level's, so that the way that leads to the menu leads here."""

    def setUp(self):
        super().setUp()
        level = self.read_json(LEVEL)
        self.records = self.read_json(level["Objects"])["GameObjFactory"]
        self.write_json(MENU_LEVEL, {"Objects": level["Objects"], "Background": level["Background"]})
        self.game = self.start()
        self.window = self.game.wait_for_window()
        self.corner = place_on_window((-930, 510), (60, 60))
        splash = self.window.picture().crop(*self.corner)
        for _ in range(4):
            tap("space")
        wait_until(lambda: self.window.picture().crop(*self.corner).difference(splash) > MOVED, "the wall")

    def region(self, record):
        """The rectangle of the window that a thing covers when the level starts."""
        transform = record["Transform"]
        return place_on_window(transform["m_pos"][:2], transform["m_scale"][:2])

    def moving(self):
        """The regions of the bodies that start with a velocity."""
        return [self.region(record) for record in self.records
                if "RigidBody" in record and any(record["RigidBody"]["m_vel"])]

    def sparks(self):
        """How many pixels above the fountain are bright and warm."""
        x, y = find_record(self.records, "fountain")["Transform"]["m_pos"][:2]
        area = self.window.picture().crop(*place_on_window((x, y + 90), (200, 140))).data
        return sum(1 for i in range(0, len(area), 3) if area[i] > 150 and area[i] > area[i + 2] + 60)

    def open_files(self):
        folder = f"/proc/{self.game.process.pid}/fd"
        for name in os.listdir(folder):
            try:
                yield os.readlink(f"{folder}/{name}")
            except FileNotFoundError:
                pass

    def test_it_lives_and_ends_in_order(self):
        first = self.window.picture()
        regions = self.moving()
        self.assertGreaterEqual(len(regions), 8)

        def changed():
            now = self.window.picture()
            gone = [r for r in regions if now.crop(*r).difference(first.crop(*r)) > MOVED]
            return now if len(gone) >= len(regions) // 2 else None
        later = wait_until(changed, "half of the bodies elsewhere")
        change = later.crop(*self.corner).difference(first.crop(*self.corner))
        self.assertLess(change, STILL, "the wall stands")

        wait_until(lambda: self.sparks() > 60, "sparks above the fountain")
        wait_until(lambda: any(path.endswith("/" + MUSIC) for path in self.open_files()), "the music's file")
        self.assertNotIn("not found", self.game.output())

        self.window.close()
        self.assert_orderly_end(self.game)

    def test_the_map_is_traced_once(self):
        plan = self.read_json(self.read_json(LEVEL)["TileMap"])
        cells = "".join(f"{cell}, " for row in plan["TileMap"] for cell in row)
        self.assertEqual(self.game.output().splitlines().count(cells), 1)
        self.window.close()
        self.game.wait_for_end()


class Files(unittest.TestCase):

    def test_they_are_what_the_maker_makes(self):
        made = subprocess.run([str(ROOT / "tools/levelmaker"), "--check"], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True)
        self.assertEqual(made.returncode, 0, made.stdout)


if __name__ == "__main__":
    unittest.main()
