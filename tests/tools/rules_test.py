"""The rules of levels: the first level passes, and is refused after each change that would keep it from going on."""
import copy
import json
import tomllib
import unittest

from makers import LEVEL01, ROOT, level_maker, make_level
from levels import rules

FILES = make_level(LEVEL01)
RECORDS = json.loads(FILES["Level Editor/Levels/Level01/Entity/Units.json"])["GameObjFactory"]
SIZES, CELLS = level_maker.tile_map(tomllib.loads(LEVEL01))
MAP = {**SIZES, "TileMap": CELLS}

PUCK = {
    "name": "puck", "active": True, "components": ["Transform", "RigidBody", "ColliderHolder"],
    "Transform": {"m_pos": [0, 0, 1]},
    "RigidBody": {"m_mass": 1.0, "m_inertia": 1.0, "m_drag": 1.0, "m_angular_drag": 1.0},
    "ColliderHolder": {},
    "Childs": [],
}
HOLE = {"name": "hole", "active": True, "components": ["EnvironmentBlackhole"], "EnvironmentBlackhole": {}, "Childs": []}


class Rules(unittest.TestCase):

    def setUp(self):
        self.records = copy.deepcopy(RECORDS)
        self.by_name = {own["name"]: own for own, _ in rules.walk(self.records)}
        self.player, self.enemy = self.by_name["player1"], self.by_name["enemy1"]

    def faults(self):
        return list(rules.faults("Level01", self.records, MAP, ROOT))

    def assert_only_fault(self, fault):
        self.assertEqual(self.faults(), [f"Level01: {fault}"])

    def add(self, record, **changes):
        """Adds a thing to the level, with the components changed."""
        own = copy.deepcopy(record)
        for name, fields in changes.items():
            own[name] = {**own.get(name, {}), **fields}
        self.records.append(own)

    def test_the_first_level_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_a_state_without_an_animation_never_leaves_its_spawn(self):
        for unit in (self.player, self.enemy):
            del unit["Animation"]
        where = "Level01: level/{} is a unit without Animation: its spawn would never end, and it could never die"
        self.assertEqual(self.faults(), [where.format("player1"), where.format("enemy1")])

    def test_a_unit_without_one_of_its_components(self):
        for component, consequence in rules.UNIT_NEEDS.items():
            with self.subTest(component=component):
                kept = self.enemy.pop(component)
                self.assertIn(f"Level01: level/enemy1 is a unit without {component}: {consequence}", self.faults())
                self.enemy[component] = kept

    def test_a_unit_without_one_of_its_children(self):
        self.enemy["Childs"] = [child for child in self.enemy["Childs"] if child["name"] != "Weapon0Projectile"]
        self.assert_only_fault("level/enemy1 lacks its child Weapon0Projectile")

    def test_a_unit_whose_spawn_is_not_drawn(self):
        fault = "level/enemy1 is a unit whose image is hidden or a tile: its spawn would never end, and it could never die"
        self.enemy["Render"]["m_visible"] = False
        self.assert_only_fault(fault)
        self.enemy["Render"].update(m_visible=True, m_tile=True)
        self.assert_only_fault(fault)

    def test_a_unit_that_is_switched_off(self):
        self.player["active"] = False
        self.assert_only_fault("level/player1 is a unit that starts switched off, and could neither act nor die")

    def test_a_unit_that_starts_dead(self):
        self.player["Player"]["m_alive"] = False
        self.assert_only_fault("level/player1 is a unit that starts dead")

    def test_a_unit_with_an_element_of_its_own(self):
        self.player["UIElement"] = {"m_ui_element_name": "ui_selection_circle"}
        self.assert_only_fault("level/player1 is a unit with a UIElement of its own, which would hold back its turn")

    def test_a_unit_without_health(self):
        for field in ("m_health", "m_max_health"):
            with self.subTest(field=field):
                kept = self.player["Player"][field]
                self.player["Player"][field] = 0
                self.assert_only_fault("level/player1 starts without health")
                self.player["Player"][field] = kept

    def test_a_player_without_energy(self):
        self.player["Player"]["m_movement_limit"] = 0.0
        self.assert_only_fault("level/player1 has no energy to move with")

    def test_a_unit_outside_the_level(self):
        self.records.append(self.by_name["enemy2"])
        self.records[0]["Childs"].remove(self.by_name["enemy2"])
        self.assert_only_fault("enemy2 is a unit, but no child of the object that runs the level")

    def test_a_unit_of_both_sides(self):
        self.player["Enemy"] = copy.deepcopy(self.by_name["enemy2"]["Enemy"])
        self.assertIn("Level01: level/player1 is a Player and an Enemy at once", self.faults())

    def test_a_boss_of_another_name(self):
        self.enemy["Enemy"]["m_boss"] = True
        fault = "Level01: level/enemy1 is a boss, but not named Boss, so a DeathField does not find it"
        self.assertIn(fault, self.faults())
        self.enemy["name"] = "Boss"
        self.assertNotIn("not named Boss", " ".join(self.faults()))

    def test_a_boss_without_one_of_its_children(self):
        self.enemy["Enemy"]["m_boss"] = True
        self.assertIn("Level01: level/enemy1 lacks its child DeathExplosion10", self.faults())

    def test_a_unit_in_a_wall_or_off_the_map(self):
        for place in ([-930, 240], [5000, 0], [0, -5000]):
            with self.subTest(place=place):
                self.player["Transform"]["m_pos"] = [*place, 1]
                self.assert_only_fault(f"level/player1 stands or walks at ({place[0]}, {place[1]}), in a wall or off the map")

    def test_floor_that_lies_open_to_space(self):
        rows = ["#####", "#. ##", "#####"]
        self.assertEqual(list(rules.open_hull("Level01", rows)), ["Level01: the floor in row 1, column 1 lies open to space"])
        self.assertEqual(list(rules.open_hull("Level01", ["####", "#.##", "### "])), [])
        self.assertEqual(len(list(rules.open_hull("Level01", ["####", "#..#", "### "]))), 1, "over a corner")

    def test_a_path_through_a_wall(self):
        self.enemy["Enemy"]["m_waypoints"] = [[930, 120, 1], [660, 120, 1]]
        self.assert_only_fault("level/enemy1 stands or walks at (930, 120), in a wall or off the map")

    def shot(self):
        return next(child for child in self.player["Childs"] if child["name"] == "Weapon0Projectile")

    def test_a_shot_without_a_unit(self):
        self.add(self.shot())
        self.assert_only_fault("Weapon0Projectile is a shot, but no child of a unit")

    def test_a_shot_without_one_of_its_components(self):
        for component in ("Transform", "RigidBody"):
            with self.subTest(component=component):
                kept = self.shot().pop(component)
                self.assertIn(f"Level01: player1/Weapon0Projectile is a shot without {component}", self.faults())
                self.shot()[component] = kept

    def test_a_shot_that_turns_with_its_unit(self):
        self.shot()["Transform"]["m_rotate_with_parent"] = True
        self.assert_only_fault("player1/Weapon0Projectile turns Weapon0Projectile with the unit, "
                               "which would carry it off its path")

    def test_a_shot_with_drag(self):
        self.shot()["RigidBody"]["m_drag"] = 0.1
        self.assert_only_fault("player1/Weapon0Projectile is a shot that drag would stop before its range is out, "
                               "and the turn with it")

    def test_a_path_without_an_aicomp(self):
        del self.enemy["AIComp"]
        self.assert_only_fault("level/enemy1 has a path without an AIComp to walk it")

    def test_an_enemy_with_an_aicomp_and_no_path(self):
        self.enemy["Enemy"]["m_waypoints"] = []
        self.assert_only_fault("level/enemy1 has an AIComp without a path, and its move would never end")

    def test_an_enemy_with_one_waypoint(self):
        del self.enemy["Enemy"]["m_waypoints"][1:]
        self.assert_only_fault("level/enemy1 has one waypoint only, and its move would never end")

    def test_an_enemy_with_two_waypoints_in_one_place(self):
        self.enemy["Enemy"]["m_waypoints"] = [[660, 120, 1]] * 2
        self.assert_only_fault("level/enemy1 has neighbouring waypoints within 60 units, its arrival distance")

    def test_an_enemy_that_reaches_each_waypoint_within_its_pushes(self):
        # A push carries it nearly 90 units. It arrives 60 units before a point, and sets off from as far behind one.
        self.enemy["Enemy"]["m_waypoints"] = [[660, 330, 1], [660, 120, 1]]
        self.assertEqual(self.faults(), [])
        self.enemy["Enemy"]["m_waypoints"] = [[660, 329, 1], [660, 120, 1]]
        self.assert_only_fault("level/enemy1 reaches each next waypoint before its pushes are spent, and its move would never end")
        self.enemy["Enemy"].update(m_waypoints=[[660, 360, 1], [660, 120, 1]], m_move_limit=2 / 60 - 0.005)
        self.assert_only_fault("level/enemy1 reaches each next waypoint before its pushes are spent, and its move would never end")

    def test_one_long_leg_ends_the_move(self):
        self.enemy["Enemy"]["m_waypoints"] = [[660, 360, 1], [660, 270, 1], [660, 50, 1]]
        self.assertEqual(self.faults(), [])

    def test_an_image_without_its_place_or_geometry(self):
        self.add(PUCK, Render={"m_tex": "default", "m_hl_tex": "default"}, iModel={})
        for component in ("Transform", "iModel"):
            with self.subTest(component=component):
                kept = self.records[-1].pop(component)
                self.assert_only_fault(f"puck has a Render without {component}")
                self.records[-1][component] = kept
        self.assertEqual(self.faults(), [])

    def test_a_texture_that_is_not_listed(self):
        self.player["Render"]["m_tex"] = "Nothing"
        self.assert_only_fault("level/player1 shows Nothing, which graphics.json does not list")

    def test_a_sheet_of_no_frames_or_of_too_many(self):
        for frames in (0, 11):
            with self.subTest(frames=frames):
                self.player["Animation"]["m_spawn_frames"] = frames
                self.assert_only_fault(f"level/player1 has a spawn sheet of {frames} frames, not 1 to 10")

    def test_a_sound_without_a_file(self):
        self.player["AudioSource"]["sounds"][0] = "silence.ogg"
        self.assert_only_fault("level/player1 lists the sound silence.ogg, of which there is no file")

    def test_a_level_without_a_controller_or_with_two(self):
        other = copy.deepcopy(self.records[0])
        other["Childs"] = []
        self.records.append(other)
        self.assert_only_fault("has 2 objects with a GameController")
        self.records = [PUCK]
        self.assert_only_fault("has 0 objects with a GameController")

    def test_a_controller_without_its_place_or_its_sounds(self):
        for component in ("Transform", "AudioSource"):
            with self.subTest(component=component):
                kept = self.records[0].pop(component)
                self.assert_only_fault(f"runs on an object without {component}")
                self.records[0][component] = kept

    def test_a_level_without_a_camera_or_with_two(self):
        level = self.records[0]
        cameras = [child for child in level["Childs"] if "Camera" in child]
        level["Childs"] += cameras
        self.assert_only_fault("has not one camera below the object that runs it")
        level["Childs"] = [child for child in level["Childs"] if "Camera" not in child]
        self.assert_only_fault("has not one camera below the object that runs it")

    def test_a_side_without_units(self):
        level = self.records[0]
        for side, name in (("Player", "enemies"), ("Enemy", "players")):
            with self.subTest(left=name):
                units = level["Childs"]
                level["Childs"] = [child for child in units if side not in child]
                self.assert_only_fault(f"has no {side} and would end on its first step")
                level["Childs"] = units

    def test_a_side_of_the_dead(self):
        for name in ("enemy1", "enemy2"):
            self.by_name[name]["Enemy"]["m_alive"] = False
        self.assertIn("Level01: has no Enemy and would end on its first step", self.faults())

    def test_a_body_that_rests(self):
        self.add(PUCK)
        self.assertEqual(self.faults(), [])

    def test_a_body_without_drag(self):
        self.add(PUCK, RigidBody={"m_drag": 0.0})
        self.assert_only_fault("puck is a body without drag, which may never rest, and every turn waits for that")

    def test_a_body_without_angular_drag(self):
        self.add(PUCK, RigidBody={"m_angular_drag": 0.0})
        self.assert_only_fault("puck is a body without angular drag, which may turn for ever, and every turn waits for that")

    def test_a_body_that_cannot_turn_needs_no_angular_drag(self):
        self.add(PUCK, RigidBody={"m_angular_drag": 0.0, "m_inertia": 0.0})
        self.assertEqual(self.faults(), [])

    def test_a_body_that_no_hole_can_swallow(self):
        shapeless = {key: value for key, value in PUCK.items() if key != "ColliderHolder"}
        self.add(shapeless)
        self.assertEqual(self.faults(), [])
        self.add(HOLE)
        self.assert_only_fault("puck is a body without a ColliderHolder, which a black hole would pull to and fro for ever")

    def test_a_hole_without_reach_pulls_nothing(self):
        self.add(PUCK)
        del self.records[-1]["ColliderHolder"]
        self.add(HOLE, EnvironmentBlackhole={"m_suction_range": 0.0})
        self.assertEqual(self.faults(), [])

    def test_a_button_whose_look_is_not_listed(self):
        self.by_name["ui_pause_resume"]["Button"]["m_highlight_tex"] = "Nothing"
        self.assert_only_fault("camera/ui_pause_resume shows Nothing, which graphics.json does not list")

    def test_a_thing_that_walks_for_ever(self):
        self.add(PUCK, Waypoint={"m_path": [[0, 0, 1], [90, 0, 1]], "m_limit": 5.0})
        self.assert_only_fault("puck is a Waypoint that never stands still, and every turn waits for that")

    def test_a_thing_whose_walk_has_no_time_stands_still(self):
        self.add(PUCK, Waypoint={"m_path": [[0, 0, 1], [90, 0, 1]], "m_limit": 0.0})
        self.assertEqual(self.faults(), [])


if __name__ == "__main__":
    unittest.main()
