"""The scene that the level maker lays out: joined walls, plates by a plan, what drifts in space, and what lies on the floor."""
import json
import re
import unittest

from makers import LEVEL01, ROOT, make_level
from levels import scene

FOLDER = "Level Editor/Levels/Level01"
TILES = {"#": {"texture": "Tile_Wall", "joins": "Wall"}}


def texture(own):
    return own["Render"]["m_tex"]


def place(own):
    return tuple(own["Transform"]["m_pos"][:2])


def records(files, part):
    return json.loads(files[f"{FOLDER}/{part}.json"])["GameObjFactory"]


class Walls(unittest.TestCase):
    def textures(self, *rows):
        level = {"map": {"tile_size": 60, "rows": list(rows)}, "tiles": TILES}
        return {place(own): texture(own) for own in scene.wall_tiles(level, scene.Map(level))}

    def test_a_wall_joins_the_walls_beside_it(self):
        joined = {(-60, 60): "Wall_ES", (0, 60): "Wall_W", (-60, 0): "Wall_N", (60, -60): "Tile_Wall"}
        self.assertEqual(self.textures("##.", "#..", "..#"), joined)

    def test_a_kind_that_does_not_join_has_one_texture(self):
        level = {"map": {"tile_size": 60, "rows": ["##"]}, "tiles": {"#": {"texture": "Rock"}}}
        self.assertEqual([texture(own) for own in scene.wall_tiles(level, scene.Map(level))], ["Rock", "Rock"])

    def test_every_way_to_join_has_an_image(self):
        listed = set(re.findall(r"^(\S+)", (ROOT / "assets/images/images.txt").read_text(), re.M))
        names = {"Wall_" + "".join(side for bit, side in enumerate("NESW") if sides >> bit & 1) for sides in range(1, 16)}
        self.assertEqual({name for name in listed if name.startswith("Wall_")}, names)

    def test_ribs_stick_out_on_the_sides_that_face_space(self):
        level = {"map": {"tile_size": 60, "rows": [" # "]}, "tiles": TILES}
        ribs = [*scene.rib_tiles(scene.Map(level))]
        places = sorted((place(own), own["Transform"]["m_rotate"]) for own in ribs)
        self.assertEqual(places, [((-37.0, 0.0), -90.0), ((37.0, 0.0), 90.0)])


class Floor(unittest.TestCase):
    FLOOR = {"texture": ["Plain", "Worn"], "columns": 3, "rows": 2, "plan": ["g..", "..g"], "plates": {"g": "Glass"},
             "tint": 1, "tint_right": [2, 1, 0]}

    def test_the_plan_chooses_plates_and_the_mixture_fills_the_rest(self):
        laid = [[scene.plate_texture(self.FLOOR, column, row) for column in range(3)] for row in range(2)]
        self.assertEqual((laid[0][0], laid[1][2]), ("Glass", "Glass"))
        self.assertEqual({*laid[0][1:], *laid[1][:2]}, {"Plain", "Worn"})

    def test_the_tint_goes_over_from_left_to_right(self):
        self.assertEqual([scene.plate_tint(self.FLOOR, column) for column in range(3)], [[1, 1, 1], [1.5, 1, 0.5], [2, 1, 0]])

    def test_no_plate_lies_where_the_game_looks_for_a_wall(self):
        tiles = records(make_level(LEVEL01), "Map/tiles")
        walls = [own for own in tiles if texture(own).startswith(("Wall_", "Tile_Wall"))]
        middles = {place(own) for own in tiles if all((p - 30) % 60 == 0 for p in place(own))}
        self.assertEqual(middles, {place(own) for own in walls})

    def test_tiles_that_are_drawn_at_once_stand_together(self):
        """Walls of one texture in as many stretches as there are numbers of lights that reach them."""
        tiles = [texture(own) for own in records(make_level(LEVEL01), "Map/tiles")]
        stretches = sum(a != b for a, b in zip(tiles, tiles[1:]))
        self.assertLess(stretches, len(scene.CLASSES) * len({*tiles}))


class OnTheFloor(unittest.TestCase):
    def setUp(self):
        self.objects = records(make_level(LEVEL01), "Entity/Units")

    def test_it_comes_before_the_object_that_runs_the_level_and_has_no_shape(self):
        names = [own["name"] for own in self.objects]
        before = self.objects[:names.index("level")]
        self.assertEqual({own["name"] for own in before}, {"decal", "shade", "lamp"})
        self.assertFalse([own["name"] for own in before if "ColliderHolder" in own or "RigidBody" in own])

    def test_a_lamp_with_a_look_shines_and_is_seen(self):
        lamps = [own for own in self.objects if own["name"] == "lamp"]
        self.assertTrue(lamps)
        for own in lamps:
            self.assertTrue(own["Render"]["m_visible"] and own["Light"]["m_active"])
            self.assertTrue(texture(own).startswith("Lamp_"))

    def test_paint_over_a_zone_is_refused(self):
        zone = '\n[[hazards]]\nkind = "damage"\nat = [0, 390]\n'
        paint = '\n[[decals]]\ntexture = "Decal_Scorch"\nat = [{}, 390]\nsize = 100\n'
        with self.assertRaises(SystemExit) as refused:
            make_level(LEVEL01 + zone + paint.format(109))
        self.assertIn("lies over a zone", str(refused.exception))
        make_level(LEVEL01 + zone + paint.format(111))

    def test_an_unlit_decal_takes_the_program_without_light_and_comes_before_the_lit_ones(self):
        paint = '\n[[decals]]\ntexture = "Decal_Emblem"\nat = [0, 300]\nsize = 100\nunlit = true\n'
        decals = [own for own in records(make_level(LEVEL01 + paint), "Entity/Units") if own["name"] == "decal"]
        self.assertGreater(len(decals), 1)
        self.assertEqual([own["Render"]["m_shader"] == "default" for own in decals], [True] + [False] * (len(decals) - 1))
        self.assertEqual(texture(decals[0]), "Decal_Emblem")

    def test_a_wall_throws_one_shadow_along_each_row(self):
        level = {"map": {"tile_size": 60, "rows": ["##.", "#..", "..."]}, "tiles": TILES}
        shades = sorted((place(own), own["Transform"]["m_scale"][0], own["Transform"]["m_rotate"])
                        for own in scene.shades(scene.Map(level)))
        self.assertEqual(shades, [((-60.0, -47.0), 60.0, 0.0), ((-13.0, 0.0), 60.0, 90.0), ((0.0, 13.0), 60.0, 0.0),
                                  ((47.0, 60.0), 60.0, 90.0)])


class Space(unittest.TestCase):
    def test_nothing_drifts_in_the_middle_of_a_cell(self):
        text = LEVEL01 + '\n[[space]]\ntexture = "Space_Star"\nat = [30, 30]\nsize = 90\n'
        with self.assertRaises(SystemExit) as refused:
            make_level(text)
        self.assertIn("would be a wall", str(refused.exception))

    def test_what_drifts_lies_below_the_floor(self):
        tiles = [texture(own) for own in records(make_level(LEVEL01), "Map/tiles")]
        last = max(k for k, name in enumerate(tiles) if name.startswith("Space_"))
        self.assertLess(last, min(k for k, name in enumerate(tiles) if not name.startswith("Space_")))


if __name__ == "__main__":
    unittest.main()
