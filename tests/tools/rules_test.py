"""The rules of levels: the first level passes, and is refused after each change that would keep it from going on."""
import copy
import json
import unittest

from makers import LEVEL01, ROOT, make_level
from levels import rules

FILES = make_level(LEVEL01)
RECORDS = json.loads(FILES["Level Editor/Levels/Level01/Entity/Units.json"])["GameObjFactory"]
MAP = json.loads(FILES["Level Editor/Levels/Level01/Map/Level01.json"])

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
        # A push carries it 90 units, and it arrives 60 units before a point.
        self.enemy["Enemy"]["m_waypoints"] = [[660, 275, 1], [660, 120, 1]]
        self.assertEqual(self.faults(), [])
        self.enemy["Enemy"]["m_waypoints"] = [[660, 265, 1], [660, 120, 1]]
        self.assert_only_fault("level/enemy1 reaches each next waypoint before its pushes are spent, and its move would never end")
        self.enemy["Enemy"].update(m_waypoints=[[660, 360, 1], [660, 120, 1]], m_move_limit=2 / 60 - 0.005)
        self.assert_only_fault("level/enemy1 reaches each next waypoint before its pushes are spent, and its move would never end")

    def test_one_long_leg_ends_the_move(self):
        self.enemy["Enemy"]["m_waypoints"] = [[660, 360, 1], [660, 270, 1], [660, 100, 1]]
        self.assertEqual(self.faults(), [])

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

    def test_a_thing_that_walks_for_ever(self):
        self.add(PUCK, Waypoint={"m_path": [[0, 0, 1], [90, 0, 1]], "m_limit": 5.0})
        self.assert_only_fault("puck is a Waypoint that never stands still, and every turn waits for that")

    def test_a_thing_whose_walk_has_no_time_stands_still(self):
        self.add(PUCK, Waypoint={"m_path": [[0, 0, 1], [90, 0, 1]], "m_limit": 0.0})
        self.assertEqual(self.faults(), [])


if __name__ == "__main__":
    unittest.main()
