"""The lists outside the engine that name every weapon and every hazard: a new kind belongs into all of them."""
import json
import pathlib
import re
import unittest

from makers import ROOT
from levels import hazards, shots

WEAPONS = "zovengine/game/shots"
HAZARDS = "zovengine/game/hazards"
KIND = re.compile(r"^class (\w+) final : public ", re.M)
LEVELS = sorted((ROOT / "Level Editor/Levels").glob("*/Entity/Units.json"))


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def kinds(folder):
    """The header of each kind in a folder, by the name of its class."""
    found = {}
    for header in sorted((ROOT / folder).glob("*.h")):
        for name in KIND.findall(header.read_text(encoding="utf-8")):
            found[name] = header
    return found


def records(objects):
    """All object records of a level, children too."""
    for own in objects:
        yield own
        yield from records(own["Childs"])


class Kinds(unittest.TestCase):
    def assert_named(self, names, path, form):
        """The file has the form with each of the names in place of {}."""
        text = read(path)
        for name in sorted(names):
            with self.subTest(name=name, path=path):
                self.assertTrue(form.format(name) in text, "it is missing there")

    def assert_in_pages(self, folder):
        """The classes of a folder stand in the pages of level authors and of developers, and in the fuzzer's words."""
        names = kinds(folder)
        self.assertGreater(len(names), 4, f"the classes in {folder}")
        self.assert_named(names, "docs/formats.md", "{}")
        self.assert_named(names, "docs/rounds.md", "{}")
        self.assert_named(names, "fuzz/words.dict", '\\"{}\\"')

    def assert_placed(self, names, levels):
        """Each component is in at least one of the levels."""
        text = "".join(path.read_text(encoding="utf-8") for path in levels)
        for name in names:
            with self.subTest(name=name):
                self.assertTrue(f'"{name}":' in text, "it is in none of them")


class Weapons(Kinds):
    def test_are_known_to_the_level_maker(self):
        self.assertEqual({kind["component"] for kind in shots.KINDS.values()}, kinds(WEAPONS).keys())
        self.assert_named(kinds(WEAPONS), "zovengine/editor/levelrulesview.cpp", '"{}"')

    def test_are_known_to_authors_and_players(self):
        self.assert_in_pages(WEAPONS)
        self.assert_named(shots.KINDS, "docs/levels.md", "`{}`")
        self.assert_named(shots.KINDS, "docs/playing.md", "| {} |")

    def test_have_their_images(self):
        textures = json.loads(read("Resources/Textures/graphics.json"))
        keys = {pathlib.PurePath(path).stem for path in textures["texPath"]}
        for name, kind in shots.KINDS.items():
            for key in (f"Shot_{kind['image']}", f"Gun_{kind['gun']}_Green", f"Gun_{kind['gun']}_Red"):
                with self.subTest(weapon=name):
                    self.assertIn(key, keys)
        flashes = set()
        for name, header in kinds(WEAPONS).items():
            text = header.read_text(encoding="utf-8")
            label, flash = (re.search(rf'"({kind}_\w+)"', text) for kind in ("WeaponFloat", "Sheet_Fire"))
            flashes.add(flash and flash[1])
            with self.subTest(name=name):
                self.assertIn(label and label[1], keys)
                self.assertIn(flash and flash[1], keys)
        self.assertEqual(len(flashes), len(shots.KINDS), "two weapons share a muzzle flash")

    def test_are_fired_in_the_training_range(self):
        self.assert_placed(kinds(WEAPONS), [path for path in LEVELS if "Level00" in path.parts])
        played = re.search(r"for kind in \((.*?)\)", read("tests/e2e/level00_test.py"))
        self.assertEqual({f"Projectile{name}" for name in re.findall(r'"(\w+)"', played[1])}, kinds(WEAPONS).keys())

    def test_have_tests_of_their_own(self):
        for name in kinds(WEAPONS):
            with self.subTest(name=name):
                self.assertTrue((ROOT / f"tests/game/shots/{name.lower()}_test.cpp").exists())


class Hazards(Kinds):
    def test_are_known_to_the_level_maker(self):
        self.assert_named(kinds(HAZARDS), "tools/levels/hazards.py", '"{}": {{')

    def test_are_known_to_authors(self):
        self.assert_in_pages(HAZARDS)
        self.assert_named(hazards.KINDS, "docs/levels.md", "`{}`")

    def test_are_in_a_level(self):
        self.assert_placed(kinds(HAZARDS), LEVELS)

    def test_can_be_touched(self):
        """An unknown category gets an empty mask when the game runs: nothing would ever meet the hazard."""
        collisions = json.loads(read("Resources/CollisionInfo.json"))
        masks = dict(zip(collisions["str_bm"], collisions["int_bm"]))
        touched = set()
        for level in LEVELS:
            for own in records(json.loads(level.read_text(encoding="utf-8"))["GameObjFactory"]):
                found = kinds(HAZARDS).keys() & own.keys()
                # Examples of the glossary are only looked at.
                if found and "ColliderHolder" in own:
                    touched |= found
                    with self.subTest(level=level.parts[-3], name=own["name"]):
                        self.assertTrue(masks.get(own["ColliderHolder"]["bitmask_category"]), "nothing touches it")
        self.assertEqual(touched, kinds(HAZARDS).keys())

    def test_have_tests_of_their_own(self):
        tests = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "tests/game/hazards").glob("*_test.cpp"))
        for name in kinds(HAZARDS):
            with self.subTest(name=name):
                self.assertTrue(f'#include "game/hazards/{name.lower()}.h"' in tests, "no test includes it")


if __name__ == "__main__":
    unittest.main()
