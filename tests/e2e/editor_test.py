"""The level editor in its window, with real keys, a real mouse and real drops of files: a level from nothing."""
import os
import shutil
import subprocess
import unittest

from case import OUTPUT, PROGRAM, ROOT, GameTest
from authorsession import ENEMIES, FIRST_TURN, HAZARD_MOVED, PLAYERS, RENAMED, AuthorSession
from driver import wait_until
from editordriver import PATIENCE

NAME = "FromNothing"
DROP_SOURCE = os.environ.get("CARAPACE_DROP_SOURCE", ROOT / "build/dev/tests/carapace_dropfiles")


class EditorTest(GameTest):

    def open_editor(self, name):
        self.session = AuthorSession(PROGRAM, self.directory, self.logs, name)
        self.addCleanup(self.session.end)
        self.addCleanup(self.keep_picture)


class Author(EditorTest):

    def test_makes_a_level_from_nothing_that_the_game_plays(self):
        self.open_editor(NAME)
        session = self.session
        session.begin()
        session.lay_floor()
        session.place_units()
        session.place_hazard()
        session.move_hazard()
        session.rename_unit()
        session.save()
        self.expect_level(RENAMED, HAZARD_MOVED)
        first_name = self.undo_once()
        self.redo_once(first_name)
        self.expect_level(RENAMED, HAZARD_MOVED)
        session.play()
        session.come_back()
        self.assertEqual(session.quit(), 0)
        self.expect_level(RENAMED, HAZARD_MOVED)
        self.expect_game_plays_it()

    def objects(self):
        """The records of the saved level below its root."""
        roots = self.read_json(f"Level Editor/Levels/{NAME}/Entity/Units.json")["GameObjFactory"]
        return next(root for root in roots if "GameController" in root)["Childs"]

    def floor(self):
        tiles = self.read_json(f"Level Editor/Levels/{NAME}/Map/tiles.json")["GameObjFactory"]
        return [tile for tile in tiles if tile["Render"]["m_tile"]]

    def expect_level(self, name, hazard):
        """The saved level has the floor, the units where they were put, and the hazard, whose twin lies with it."""
        objects = self.objects()
        places = {key: [tuple(own["Transform"]["m_pos"][:2]) for own in objects if key in own]
                  for key in ("Player", "Enemy", "EnvironmentDamage")}
        for found, wanted in ((places["Player"], PLAYERS), (places["Enemy"], ENEMIES)):
            self.assertEqual(len(found), len(wanted))
            for place, want in zip(sorted(found), sorted(wanted)):
                self.assert_near(place, want)
        self.assertEqual(len(places["EnvironmentDamage"]), 2)
        self.assertEqual(*places["EnvironmentDamage"])
        self.assert_near(places["EnvironmentDamage"][0], hazard)
        self.assertIn(name, [own["name"] for own in objects if "Player" in own])
        self.assertEqual(len(self.floor()), 8 * 15)

    def assert_near(self, place, wanted):
        """Within half a cell, to which a drop of the mouse is exact."""
        self.assertLess(max(abs(a - b) for a, b in zip(place, wanted)), 30, (place, wanted))

    def undo_once(self):
        self.session.editor.key("ctrl", "z")
        self.session.save()
        names = [own["name"] for own in self.objects() if "Player" in own]
        self.assertNotIn(RENAMED, names)
        return names

    def redo_once(self, names):
        self.session.editor.key("ctrl", "y")
        self.session.save()
        self.assertIn(RENAMED, [own["name"] for own in self.objects() if "Player" in own])
        self.assertNotEqual([own["name"] for own in self.objects() if "Player" in own], names)

    def expect_game_plays_it(self):
        self.logs = OUTPUT / (self.id() + ".game")
        game = self.start(arguments=["--level", f"Level Editor/Levels/{NAME}/{NAME}.json"])
        game.wait_for_window()
        game.wait_for_line(FIRST_TURN, patience=PATIENCE)
        self.assertEqual(game.errors(), "")


class Drops(EditorTest):

    def test_of_a_picture_and_a_sound_import_them_once(self):
        self.open_editor(NAME)
        self.session.begin()
        desk = self.directory / "desk"
        desk.mkdir()
        picture, sound = desk / "beetle hull.png", desk / "clank.ogg"
        shutil.copy(ROOT / "Resources/Textures/Tile_Wall.png", picture)
        shutil.copy(next((ROOT / "Resources/Sound").rglob("*.ogg")), sound)
        self.drop(picture, sound)
        imported = [self.directory / "Resources/Textures" / file.name for file in (picture, sound)]
        wait_until(lambda: all(file.exists() for file in imported), "the imported files")
        for file, original in zip(imported, (picture, sound)):
            self.assertEqual(file.read_bytes(), original.read_bytes())
        self.assertNotIn("File Exist!", self.session.lines())
        self.session.save()
        textures = self.read_json("Resources/Textures/graphics.json")["texPath"]
        self.assertEqual([path for path in textures if "beetle" in path], [picture.name])
        self.drop(picture)
        self.session.wait_for_line("File Exist!")
        self.assertEqual(self.session.quit(), 0)

    def drop(self, *files):
        """Drops files over a panel, as a file manager does."""
        editor = self.session.editor
        x, y = editor.left + 300, editor.top + 950
        editor.move((300, 950))
        subprocess.run([str(DROP_SOURCE), editor.window.id, str(x), str(y), *map(str, files)], check=True, timeout=120)


if __name__ == "__main__":
    unittest.main()
