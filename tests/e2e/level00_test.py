"""The training range in the real program."""
import copy
import time
import unittest

from case import find_record
from level import MUSIC, LevelTest, is_green, is_yellow
from driver import tap, wait_until

MOVED = 12  # mean change of a region from which a body has gone; the floor under it and noise make less
STILL = 3  # mean change of a region in which nothing moves

PLAYERS = 4
WINDOW = (800, 450)  # many turns are played, and a software renderer keeps up with it
WEAPONS = {f"Projectile{kind}"
           for kind in ("Default", "Bounce", "Explosion", "Pierce", "Push", "Swap", "Vacuum")}
LABEL_ABOVE, LABEL_BELOW = 140, -75  # from a unit's middle to a weapon's label
UPPER = 300  # above it, units have their labels below them
SHOWN = 12  # mean change of the place where a weapon's label appears
AHEAD = 300  # world units to the right of a unit at which it shoots


class TrainingRange(LevelTest):

    LEVEL = "Level00"

    def setUp(self):
        super().setUp()
        self.level = self.read_json(self.objects_file())
        self.records = self.level["GameObjFactory"]

    def begin(self):
        """Starts the level; returns the first picture with all of the player's units."""
        self.start_level(WINDOW)
        return self.watch(lambda view: len(view.units(is_green)) == PLAYERS and view, "the player's units")

    def see_the_start(self):
        """The first view of the level without velocities: on a fast machine things move before the first look."""
        still = copy.deepcopy(self.level)
        for record in still["GameObjFactory"]:
            if "RigidBody" in record:
                record["RigidBody"]["m_vel"] = [0, 0, 0]
        self.write_json(self.objects_file(), still)
        view = self.begin()
        self.window.close()
        self.game.wait_for_end()
        self.write_json(self.objects_file(), self.level)
        return view

    def region(self, view, record):
        """The part of the view where a thing is when the level starts."""
        transform = record["Transform"]
        return view.crop(transform["m_pos"][:2], *transform["m_scale"][:2])

    def moving(self):
        """The bodies that start with a velocity."""
        return [record for record in self.records if "RigidBody" in record and any(record["RigidBody"]["m_vel"])]

    def sparks(self, view):
        """How many pixels above the fountain are bright and warm."""
        x, y = find_record(self.records, "fountain")["Transform"]["m_pos"][:2]
        area = view.crop((x, y + 90), 200, 140).data
        return sum(1 for i in range(0, len(area), 3) if area[i] > 150 and area[i] > area[i + 2] + 60)

    def test_things_bounce_and_rest_and_all_weapons_are_fired(self):
        start = self.see_the_start()
        self.begin()
        self.check_movement(start)
        self.assertNotIn("not found", self.game.output())
        self.wait_for("Player Unit Select")
        said = self.turns()
        self.assertEqual(said.count("Enemy Unit Select"), 3)
        self.assertNotIn("Enemy Shoot", said)
        self.check_rest()
        self.check_armament()
        for turn in range(1, PLAYERS + 1):
            self.shoot(turn, "first")
        for turn in range(PLAYERS + 1, 2 * PLAYERS):
            self.shoot(turn, "second")
        self.wait_for_aim(2 * PLAYERS)
        tap("f")
        self.wait_for("Player Turn End", 2)
        self.wait_for("Enemy Turn Begin", 3 * 2 + 1)
        self.assertEqual(self.count("Player Shoot"), 2 * PLAYERS - 1)
        said = self.turns()
        begins = [index for index, line in enumerate(said) if line == "Enemy Turn Begin"]
        self.assertEqual(said[:begins[3 * 2]].count("Enemy Shoot"), 3, "each enemy fires once before the third round")
        self.look("third-round")
        self.window.close()
        self.assert_orderly_end(self.game)

    def check_armament(self):
        """The first weapons of all units and the second ones of all but the last are all kinds of weapons."""
        units = [record for record in find_record(self.records, "level")["Childs"] if "Player" in record]
        self.assertEqual(len(units), PLAYERS)
        carried = [[part for weapon in (0, 1)
                    for part in find_record(unit["Childs"], f"Weapon{weapon}Projectile") if part in WEAPONS]
                   for unit in units]
        fired = [first for first, _ in carried] + [second for _, second in carried[:-1]]
        self.assertEqual(set(fired), WEAPONS)
        self.assertEqual(len(fired), len(WEAPONS))

    def check_movement(self, start):
        """Things leave their places, the wall stands, sparks rise, and the music's file is open."""
        bodies = self.moving()
        self.assertGreaterEqual(len(bodies), 8)
        wall = ((-420, 180), 60, 60)  # away from the units, whose lights grow brighter in their turns

        left = set()  # bodies seen elsewhere at some time: another one may come to rest in a place

        def changed(view):
            left.update(number for number, body in enumerate(bodies)
                        if self.region(view, body).difference(self.region(start, body)) > MOVED)
            return view if len(left) >= len(bodies) // 2 else None
        later = self.watch(changed, "half of the bodies elsewhere")
        self.look("things-in-motion")
        self.assertLess(later.crop(*wall).difference(start.crop(*wall)), STILL, "the wall stands")
        self.watch(lambda view: self.sparks(view) > 30, "sparks above the fountain")
        wait_until(lambda: MUSIC in self.open_files(), "the music's file")

    def check_rest(self):
        """The player's turn begins when nothing but sparks moves."""
        before = self.look("at-rest")
        time.sleep(1)
        after = self.look()
        for middle in ((-600, 200), (300, 250), (650, 0)):
            change = after.crop(middle, 400, 300).difference(before.crop(middle, 400, 300))
            self.assertLess(change, STILL, f"around {middle}")

    def shoot(self, turn, weapon):
        """The selected unit shoots to the right; for its second weapon Q is pressed, which shows a label."""
        self.point_at((-400, 0))
        unit = self.wait_for_aim(turn)
        if weapon == "second":
            label = ((unit[0], unit[1] + (LABEL_BELOW if unit[1] > UPPER else LABEL_ABOVE)), 140, 60)
            before = self.look()
            tap("q")
            self.watch(lambda view: view.crop(*label).difference(before.crop(*label)) > SHOWN, "the weapon's label")
        target = (unit[0] + AHEAD, unit[1])
        self.point_at(target)
        self.watch(lambda view: self.marks(view, target), "the aiming mark to the right")
        self.look(f"aim-{turn}")
        self.fire()
        self.assertEqual(self.count("Player Shoot"), turn)
        time.sleep(0.2)
        self.look(f"shot-{turn}")

    @staticmethod
    def marks(view, place):
        """True if the yellow of the aiming mark is seen around a place; paint and things lie below the line to it."""
        reach = range(-30, 31, 3)
        return any(is_yellow(*view.colour((place[0] + dx, place[1] + dy))) for dx in reach for dy in reach)

    def test_the_map_is_traced_once(self):
        self.begin()
        plan = self.read_json(self.read_json(self.level_file())["TileMap"])
        cells = "0, " * plan["Width"] * plan["Height"]
        self.assertEqual(self.game.output().splitlines().count(cells), 1)
        self.window.close()
        self.game.wait_for_end()


if __name__ == "__main__":
    unittest.main()
