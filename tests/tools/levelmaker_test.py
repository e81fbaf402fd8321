"""The level maker: what it makes of a description, and what it refuses."""
import json
import unittest

from makers import LEVEL01, make_level


class LevelMaker(unittest.TestCase):
    def assert_refused(self, text, *words):
        """The description is refused with a message that has all these words."""
        self.assertNotEqual(text, LEVEL01, "the description was not changed")
        with self.assertRaises(SystemExit) as refused:
            make_level(text)
        for word in words:
            self.assertIn(word, str(refused.exception))

    def test_a_unit_has_its_shots_and_marks(self):
        files = make_level(LEVEL01)
        objects = json.loads(files["Level Editor/Levels/Level01/Entity/Units.json"])["GameObjFactory"]
        unit = next(child for child in objects[0]["Childs"] if "Player" in child)
        names = [child["name"] for child in unit["Childs"]]
        for name in ("Weapon0Barrel", "Weapon1Projectile", "ui_selected", "hp_font", "unit_damaged"):
            self.assertEqual(names.count(name), 1, name)

    def test_a_mover_without_a_path(self):
        self.assert_refused(LEVEL01.replace("waypoints = [[660, 360], [660, 120]]", "walks = true"),
                            "enemy1", "AIComp without a path")

    def test_one_waypoint(self):
        self.assert_refused(LEVEL01.replace("[[660, 360], [660, 120]]", "[[660, 360]]"), "enemy1", "one waypoint")

    def test_neighbouring_waypoints(self):
        self.assert_refused(LEVEL01.replace("[[660, 360], [660, 120]]", "[[660, 130], [660, 120]]"), "enemy1",
                            "arrival distance")

    def test_a_side_without_units(self):
        self.assert_refused(LEVEL01.replace('side = "player"', 'side = "enemy"'), "no Player", "first step")
        text = LEVEL01.replace('side = "enemy"', 'side = "player"').replace("waypoints", "# waypoints")
        self.assert_refused(text, "no Enemy", "first step")

    def test_a_unit_without_health(self):
        self.assert_refused(LEVEL01.replace("health = 4", "health = 0", 1), "player1", "without health")

    def test_a_player_without_energy(self):
        self.assert_refused(LEVEL01.replace("health = 4", "health = 4\nenergy = 0", 1), "player1", "no energy")

    def test_a_unit_in_a_wall(self):
        self.assert_refused(LEVEL01.replace("at = [-720, 240]", "at = [-930, 240]"), "player1", "in a wall")

    def test_a_path_into_a_wall(self):
        self.assert_refused(LEVEL01.replace("[[660, 360]", "[[660, 510]"), "enemy1", "walks")

    def test_an_unknown_weapon_side_or_hazard(self):
        self.assert_refused(LEVEL01.replace('["BASIC", "BOUNCE"]', '["BASIC", "LASER"]', 1), "player1", "two weapons")
        self.assert_refused(LEVEL01.replace('side = "player"', 'side = "nobody"', 1), "nobody1", "neither")
        self.assert_refused(LEVEL01 + '\n[[hazards]]\nkind = "fire"\nat = [0, 300]\n', "fire", "none of")

    def test_a_body_that_never_rests(self):
        thing = """
[kinds.puck]
texture = "Env_Drum"
size = [40, 40]
shape = "Circle"
mass = 1.0
inertia = 1.0
rest = 1.0

[[things]]
kind = "puck"
at = [0, -200]
"""
        self.assert_refused(LEVEL01 + thing, "puck", "never rest")

    def test_a_texture_that_is_not_listed(self):
        self.assert_refused(LEVEL01.replace('texture = "Tile_Wall"', 'texture = "Tile_Wool"') +
                            '\n[kinds.a]\ntexture = "Nothing"\nsize = [9, 9]\nshape = "Box"\n\n'
                            '[[things]]\nkind = "a"\nat = [0, 0]\n', "Nothing", "graphics.json")


if __name__ == "__main__":
    unittest.main()
