"""The level maker: what it makes of a description, what it refuses, and how it treats what an author has changed."""
import contextlib
import io
import json
import pathlib
import tempfile
import unittest
import unittest.mock

from makers import LEVEL01, level_maker, make_level
import maker
from levels.units import unit_record
from pieces import walk

UNITS = "Level Editor/Levels/Level01/Entity/Units.json"
DESCRIPTION = "assets/levels/level01.toml"


def root_of(objects):
    """The object that runs a level."""
    return next(own for own in objects if "GameController" in own)


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
        unit = next(child for child in root_of(objects)["Childs"] if "Player" in child)
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
        self.assert_refused(LEVEL01.replace("health = 5", "health = 0", 1), "player1", "without health")

    def test_a_player_without_energy(self):
        self.assert_refused(LEVEL01.replace("health = 5", "health = 5\nenergy = 0", 1), "player1", "no energy")

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


class AuthoredLevel(unittest.TestCase):
    """A copy of the first level in a repository of its own, as the maker made it."""

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        root = unittest.mock.patch.object(maker, "ROOT", self.root)
        root.start()
        self.addCleanup(root.stop)
        (self.root / DESCRIPTION).parent.mkdir(parents=True)
        (self.root / DESCRIPTION).write_text(LEVEL01)
        self.run_maker()

    def run_maker(self, *arguments):
        """What the maker prints."""
        with contextlib.redirect_stdout(io.StringIO()) as out:
            level_maker.run(list(arguments))
        return out.getvalue()

    def text(self, path=UNITS):
        return (self.root / path).read_text()

    def change(self, change, path=UNITS):
        """Changes a file as its author would."""
        value = json.loads(self.text(path))
        change({own["name"]: own for own, _ in reversed([*walk(value["GameObjFactory"])])})
        (self.root / path).write_text(level_maker.gamejson.text(value))

    def heal(self, by_name):
        by_name["player1"]["Player"]["m_health"] = 3

    def objects(self):
        return {own["name"]: own for own, _ in reversed([*walk(json.loads(self.text())["GameObjFactory"])])}

    def test_a_made_level_passes_and_follows_its_description(self):
        self.run_maker("--check")
        (self.root / DESCRIPTION).write_text(LEVEL01.replace("health = 5", "health = 6"))
        with self.assertRaises(SystemExit) as refused:
            self.run_maker("--check")
        self.assertEqual(refused.exception.code, f"{UNITS} differs from what its maker writes")
        self.run_maker()
        self.assertEqual(self.objects()["player1"]["Player"]["m_health"], 6)
        self.run_maker("--check")

    def test_a_level_that_its_author_changed_is_left_alone_and_passes(self):
        self.change(self.heal)
        before = self.text()
        self.assertEqual(self.run_maker(), "level01 has been changed by its author and is left alone; "
                                           "--start-over level01 makes it anew\n")
        self.assertEqual(self.text(), before)
        self.run_maker("--check")

    def test_a_new_description_does_not_bring_back_what_an_author_changed(self):
        self.change(self.heal)
        (self.root / DESCRIPTION).write_text(LEVEL01.replace("health = 5", "health = 6"))
        before = self.text()
        self.run_maker()
        self.assertEqual(self.text(), before)

    def test_an_authored_level_that_cannot_be_played_fails_the_check(self):
        self.change(lambda by_name: by_name["player1"]["Player"].update(m_health=0))
        with self.assertRaises(SystemExit) as refused:
            self.run_maker("--check")
        objects = json.loads(self.text())["GameObjFactory"]
        self.assertEqual(refused.exception.code, "Level01: error: level/player1 starts without health "
                                                 f"[unit-health, at {objects.index(root_of(objects))}/0]")

    def test_an_authored_level_that_only_looks_wrong_passes(self):
        self.change(lambda by_name: by_name["player1"]["Render"].update(m_tex="Nothing"))
        self.run_maker("--check")

    def test_starting_over_makes_the_level_anew(self):
        before = self.text()
        self.change(self.heal)
        self.run_maker("--start-over", "level01")
        self.assertEqual(self.text(), before)
        self.assertNotIn("left alone", self.run_maker())

    def test_a_file_that_is_missing_is_made(self):
        before = self.text()
        (self.root / UNITS).unlink()
        self.run_maker()
        self.assertEqual(self.text(), before)

    def test_a_made_level_is_renewed_to_the_same_bytes(self):
        before = self.text()
        self.run_maker("--renew", "level01")
        self.assertEqual(self.text(), before)

    def test_renewing_brings_back_what_all_levels_share(self):
        fresh = self.objects()

        def spoil(by_name):
            by_name["ui_turn"]["Font"]["m_colour"] = [0.0, 0.0, 0.0, 1.0]
            by_name["ui_pause_resume"]["Button"]["m_default_tex"] = "default"
            by_name["player1"]["Childs"] = [own for own in by_name["player1"]["Childs"] if own["name"] != "hp_font"]
            by_name["enemy1"]["Childs"][0]["Render"]["m_tex"] = "default"

        self.change(spoil)
        self.run_maker("--renew", "level01")
        self.assertEqual(self.objects(), fresh)

    def test_renewing_takes_away_the_pieces_of_former_interfaces(self):
        fresh = self.objects()

        def age(by_name):
            former = json.loads(json.dumps(by_name["ui_strip_top"]))
            former["name"] = "ui_round_plate"
            by_name["level"]["Childs"].append(former)

        self.change(age)
        self.assertIn("ui_round_plate", self.objects())
        self.run_maker("--renew", "level01")
        self.assertEqual(self.objects(), fresh)

    def test_the_label_of_a_unit_near_the_upper_strip_lies_below_it(self):
        for height, below in ((300, False), (301, True)):
            with self.subTest(height):
                made = [*unit_record({"side": "enemy", "at": [0, height], "health": 1, "weapons": ["BASIC", "PUSH"]}, 1)["Childs"]]
                label = next(own for own in made if own["name"] == "WeaponText")
                self.assertEqual(max(vertex[1] for vertex in label["iModel"]["m_vertices"]) < 0, below)

    def test_renewing_leaves_what_the_author_placed_and_changed(self):
        def work(by_name):
            player = by_name["player1"]
            player["Transform"].update(m_pos=[-600.0, 200.0, 1.0], m_world_pos=[-600.0, 200.0, 1.0], m_rotate=10.0, m_world_rotate=10.0)
            player["Player"]["m_health"] = 2
            player["name"] = "hero"
            by_name["enemy1"]["Enemy"]["m_waypoints"] = [[660.0, 300.0, 1.0], [600.0, 0.0, 1.0]]
            by_name["lamp"]["Light"]["m_diffuseStr"] = 2.0
            level = by_name["level"]["Childs"]
            level.insert(0, {"name": "EnvDamage", "active": True, "components": ["EnvironmentDamage"], "EnvironmentDamage": {}, "Childs": []})
            player["Childs"].append({"name": "flag", "active": True, "components": [], "Childs": []})

        self.change(work)
        authored = self.text()
        self.run_maker("--renew", "level01")
        hero = self.objects()["hero"]
        self.assertEqual(hero["Transform"]["m_pos"], [-600.0, 200.0, 1.0])
        self.assertEqual(hero["Transform"]["m_rotate"], 10.0)
        self.assertEqual(hero["Player"]["m_health"], 2)
        self.assertEqual(hero["Childs"][-1]["name"], "flag")
        self.assertEqual(self.objects()["enemy1"]["Enemy"]["m_waypoints"], [[660.0, 300.0, 1.0], [600.0, 0.0, 1.0]])
        names, before = ([own["name"] for own in root_of(json.loads(text)["GameObjFactory"])["Childs"]] for text in (self.text(), authored))
        self.assertEqual(names, before)
        barrel = next(own for own in hero["Childs"] if own["name"] == "Weapon0Barrel")
        self.assertEqual(round(barrel["Transform"]["m_world_rotate"], 3), 10, "it stands as the unit does")

    def test_renewing_keeps_the_weapons_that_the_author_chose(self):
        def swap(by_name):
            units = by_name["player1"], by_name["enemy2"]
            (first, a), (second, b) = (next((unit, own) for own in unit["Childs"] if own["name"] == "Weapon1Projectile") for unit in units)
            first["Childs"][first["Childs"].index(a)], second["Childs"][second["Childs"].index(b)] = b, a
            self.assertNotEqual(by_name["enemy1"]["Childs"], [])
            for own in by_name["player1"]["Childs"]:
                if own["name"] == "Weapon0Projectile":
                    own["components"] = ["ProjectileSwap" if part == "ProjectileDefault" else part for part in own["components"]]
                    own["ProjectileSwap"] = {key: value for key, value in own.pop("ProjectileDefault").items() if key != "m_damage"}

        self.change(swap)
        self.run_maker("--renew", "level01")
        shots = {own["name"]: own["components"] for own in self.objects()["player1"]["Childs"] if own["name"].endswith("Projectile")}
        self.assertIn("ProjectileSwap", shots["Weapon0Projectile"])
        self.assertIn("ProjectileBounce", shots["Weapon1Projectile"])
        barrel = next(own for own in self.objects()["player1"]["Childs"] if own["name"] == "Weapon0Barrel")
        self.assertEqual(barrel["Render"]["m_tex"], "Gun_Swap_Green")

    def test_a_unit_with_a_weapon_of_its_own_is_left_as_it_is(self):
        def rename(by_name):
            for own in by_name["player1"]["Childs"]:
                if own["name"] == "Weapon0Projectile":
                    for part in ("ProjectileDefault", "RigidBody"):
                        own["components"].remove(part)
                        del own[part]
            by_name["player1"]["Childs"][0]["Render"]["m_hl_tex"] = "default"

        self.change(rename)
        said = self.run_maker("--renew", "level01")
        self.assertIn("Level01: player1 has a weapon that the maker does not know, and is left as it is\n", said)
        self.assertEqual(self.objects()["player1"]["Childs"][0]["Render"]["m_hl_tex"], "default")


if __name__ == "__main__":
    unittest.main()
