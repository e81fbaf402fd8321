"""The first level in the real program, played with real keys and a real mouse."""
import time
import unittest

from level import (LINE_SEEN, LINE_UNSEEN, MUSIC, NEAR, TURN_PATIENCE, LevelTest, angle_between, bearing, distance,
                   is_green, is_red)
from driver import call, tap, wait_until

DIRECTIONS = {"w": (0, 1), "a": (-1, 0), "s": (0, -1), "d": (1, 0)}
ROOM = 180  # the height in the level at which no wall is near
STANDS = 20  # world units from its start at which the middle of an enemy that stands is seen, at most: horns are no part of its body
WALKED = 40  # world units from its start that an enemy on patrol is after its first turn, at least
DRIVE = 15  # world units from its start at which a unit has surely moved
ANGLE = 9  # degrees to which the gun's bearing is read from a picture

MOST_TURNS = 24  # of the player, until a level must be over

SHOWN = 12  # mean change of a part of the picture in which something appeared
UNHURT = 40  # health that leaves a unit without smoke in the few rounds of a test
DIMMED = 0.7  # of its brightness is left to a level that is over, as long as its banner is not there
SAME = 4  # mean change of a part in which nothing did; a unit's light and noise make less


class FirstLevel(LevelTest):

    LEVEL = "Level01"

    def records(self, key):
        """The records of a side's units in the level's file, from the top downwards."""
        root = next(own for own in self.read_json(self.objects_file())["GameObjFactory"] if "GameController" in own)
        return sorted((record for record in root["Childs"] if key in record),
                      key=lambda record: -record["Transform"]["m_pos"][1])

    def start_places(self, key):
        """Where a side's units start, from the top downwards."""
        return [tuple(record["Transform"]["m_pos"][:2]) for record in self.records(key)]

    def set_health(self, key, health):
        def change(record):
            if key in record:
                record[key]["m_health"] = record[key]["m_max_health"] = health
        self.change_units(change)

    def wait_for_all(self):
        """Waits until all units are there."""
        self.watch(lambda view: len(view.units(is_red)) == len(view.units(is_green)) == 2, "two units a side")

    def next_turn(self, turns):
        """Waits for the player's next turn after so many, or until the music stops at the level's end."""
        def event():
            if self.count("Player Unit Select") > turns:
                return "turn"
            return "end" if MUSIC not in self.open_files() else None
        return wait_until(event, "the next turn or the end", TURN_PATIENCE)

    def assert_level_over(self, lost, won, survivors):
        """The music is off, one side is gone, the picture grows dark, and no unit gets a turn."""
        wait_until(lambda: MUSIC not in self.open_files(), "the music's end")
        views = [self.look("level-over")]
        said = self.turns()

        def dimmed():
            """Looks as often as it can: the time between the last sparks and the dimming is short."""
            views.append(self.look())
            return views[-1].picture.brightness() < views[0].picture.brightness() * DIMMED
        wait_until(dimmed, "the dimming")
        self.assertIn(survivors, [len(view.units(won)) for view in views])
        self.assertEqual(views[-1].units(lost), [])
        self.assertEqual(self.turns(), said)
        self.assertTrue(self.game.is_running())

    def unit_near(self, place):
        """The place of the player unit that is nearest to a place."""
        return min(self.players(), key=lambda unit: distance(unit, place))


class Round(FirstLevel):

    def setUp(self):
        super().setUp()

        def make_room(record):
            """Turns the enemies away, and puts the upper unit where it can drive in all directions."""
            place = record["Transform"]
            if "Enemy" in record:
                place["m_rotate"] = place["m_world_rotate"] = 0
            elif place["m_pos"][1] > 0:
                place["m_pos"][1] = place["m_world_pos"][1] = ROOM
        self.change_units(make_room)
        self.start_level()

    def test_a_round_and_a_half_with_every_key(self):
        self.point_at((0, 300))
        self.look("start")
        self.check_the_enemies_first_move()
        unit = self.wait_for_aim(1)
        self.check_energy(unit)
        self.check_directions(unit)
        self.check_aim(unit)
        enemies = self.enemies()
        self.check_other_weapon(unit)
        self.fire_at(enemies[0], 1)
        self.fire_at(enemies[1], 2)
        self.check_the_enemies_shots(enemies)
        self.check_skipping()
        self.window.close()
        self.assert_orderly_end(self.game)

    def check_the_enemies_first_move(self):
        self.wait_for_aim(1)
        said = self.turns()
        self.assertNotIn("Enemy Shoot", said)
        self.assertEqual(said.count("Enemy Aim"), 2)
        view = self.look("after-the-enemies")
        enemies, players = view.units(is_red), view.units(is_green)
        starts = self.start_places("Enemy")
        self.assertEqual(len(enemies), len(starts))
        walk = ["AIComp" in record for record in self.records("Enemy")]
        self.assertIn(True, walk)
        for enemy, start, walks in zip(enemies, starts, walk):
            far = distance(enemy, start)
            self.assertTrue(far > WALKED if walks else far < STANDS, f"it is {far:.0f} units from its start; on patrol: {walks}")
            gun = view.gun_bearing(enemy)
            self.assertLess(min(angle_between(gun, bearing(enemy, player)) for player in players), ANGLE,
                            f"{enemy} points to {gun} and not to one of {players}")
        for player, start in zip(players, self.start_places("Player")):
            self.assertLess(distance(player, start), NEAR)

    def check_energy(self, start):
        """A held key drives until the energy is gone; R gives the place and the energy back."""
        call("xdotool", "keydown", "d")
        try:
            wait_until(lambda: self.unit_near(start)[0] > start[0] + DRIVE, "the unit in motion")
            end = self.wait_for_stop(start)
        finally:
            call("xdotool", "keyup", "d")
        self.look("energy-gone")
        self.assertLess(abs(end[1] - start[1]), NEAR)
        for key in ("d", "a"):
            call("xdotool", "keydown", key)
            time.sleep(1)
            call("xdotool", "keyup", key)
            self.assertLess(distance(self.unit_near(end), end), NEAR, f"{key} without energy")
        tap("r")
        wait_until(lambda: distance(self.unit_near(start), start) < NEAR, "the unit back at its start")
        self.look("move-undone")

    def wait_for_stop(self, start):
        """Waits until the unit stays in its place for a second in which the game was not asleep; returns the place."""
        def stopped():
            before = self.unit_near(start)
            time.sleep(1)
            for mouse in ((0, 300), (-100, -60)):
                self.point_at(mouse)
                self.watch(lambda view: view.line_gain(self.unit_near(start), self.mouse) > LINE_SEEN, "the aim line")
            after = self.unit_near(start)
            return after if distance(before, after) < 2 else None
        return wait_until(stopped, "the unit at rest")

    def check_directions(self, start):
        for key, (x, y) in DIRECTIONS.items():
            def progress():
                now = self.unit_near(start)
                return (now[0] - start[0]) * x + (now[1] - start[1]) * y
            call("xdotool", "keydown", key)
            try:
                wait_until(lambda: progress() > DRIVE, f"the unit driven by {key}")
            finally:
                call("xdotool", "keyup", key)
            end = self.wait_for_stop(start)
            along = progress()
            self.assertLess(distance(end, (start[0] + along * x, start[1] + along * y)), NEAR, key)
            tap("r")
            wait_until(lambda: distance(self.unit_near(start), start) < NEAR, f"the unit back after {key}")

    def check_aim(self, unit):
        """The line and the gun follow the mouse."""
        upper, lower = (-100, 300), (-100, -60)
        for place, other in ((upper, lower), (lower, upper)):
            self.point_at(place)
            self.watch(lambda view: view.line_gain(unit, place) > LINE_SEEN, "the aim line at the mouse")
            self.watch(lambda view: angle_between(view.gun_bearing(unit), bearing(unit, place)) < ANGLE, "the gun at the mouse")
            view = self.look("aim")
            self.assertLess(view.line_gain(unit, other), LINE_UNSEEN, "the line is at the mouse alone")

    def check_other_weapon(self, unit):
        """Q shows a label above the unit and another gun, which stays when the label has gone."""
        self.point_at((unit[0], unit[1] - 400))
        time.sleep(1)
        before = self.look("first-weapon")
        gun, label = (unit[0], unit[1] - 30), (unit[0], unit[1] + 140)
        tap("q")

        def change(view, middle, width, height):
            return view.crop(middle, width, height).difference(before.crop(middle, width, height))
        self.watch(lambda view: change(view, label, 160, 80) > SHOWN, "the weapon's label")
        self.look("weapon-label")
        self.watch(lambda view: change(view, label, 160, 80) < SAME, "the label gone")
        self.watch(lambda view: change(view, gun, 40, 50) > SHOWN, "the other gun")
        self.look("second-weapon")

    def fire_at(self, enemy, times):
        """The selected unit shoots at a place."""
        self.point_at(enemy)
        unit = self.wait_for_aim(times)
        self.fire()
        self.wait_for_shot([(unit, enemy)], f"player-shot-{times}")
        self.assertEqual(self.count("Player Shoot"), times)

    def check_the_enemies_shots(self, enemies):
        """An enemy fires where a player stood when it took its aim."""
        self.wait_for("Enemy Shoot")
        players = self.start_places("Player")
        self.wait_for_shot([(enemies[0], player) for player in players], "enemy-shot")
        self.wait_for("Player Unit Select", 3)
        self.assertEqual(self.count("Enemy Shoot"), 2)
        self.look("round-2")

    def check_skipping(self):
        for times in (3, 4):
            self.wait_for_aim(times)
            tap("f")
        self.wait_for("Player Turn End", 2)
        self.assertEqual(self.count("Player Shoot"), 2, "F fires nothing")


class Defeat(FirstLevel):

    def test_a_side_that_only_skips_is_shot_until_none_is_left(self):
        self.set_health("Player", 1)
        self.start_level()
        self.wait_for_all()
        wait_until(lambda: MUSIC in self.open_files(), "the music")
        self.point_at((0, 300))
        turns, living = 0, []
        while self.next_turn(turns) == "turn":
            turns += 1
            self.wait_for_aim(turns)
            living.append(len(self.look(f"turn-{turns}").units(is_green)))
            tap("f")
            self.assertLess(turns, MOST_TURNS)
        self.assert_level_over(is_green, is_red, 2)
        self.assertEqual(living[:2], [2, 2], "no unit dies in the first round")
        self.assertEqual(living, sorted(living, reverse=True))
        said = self.turns()
        self.assertGreaterEqual(said.count("Enemy Shoot"), 2)
        self.assertNotIn("Player Shoot", said)
        self.window.close()
        self.assert_orderly_end(self.game)


class Victory(FirstLevel):

    def setUp(self):
        super().setUp()
        level = self.read_json(self.level_file())
        middles = (tile["Transform"]["m_world_pos"] for tile in self.read_json(level["Tiles"])["GameObjFactory"])
        self.tiles = {(x, y) for x, y, _ in middles}

    def is_wall(self, place):
        """True if a tile lies on the place's cell; the floor's plates lie on none."""
        return tuple(60 * (value // 60) + 30 for value in place) in self.tiles

    def is_clear(self, start, end):
        """True if no wall lies on the path of a shot, taken a little wider than the shot."""
        length = distance(start, end)
        x, y = (end[0] - start[0]) / length, (end[1] - start[1]) / length
        for along in range(0, int(length), 10):
            for aside in (-25, 0, 25):
                place = (start[0] + along * x - aside * y, start[1] + along * y + aside * x)
                if self.is_wall(place):
                    return False
        return True

    def take_turn(self, unit):
        """Shoots at an enemy in sight; without one the turn is skipped. Returns how many shots that makes."""
        targets = [enemy for enemy in self.enemies() if self.is_clear(unit, enemy)]
        if not targets:
            tap("f")
            return 0
        self.point_at(targets[0])
        self.watch(lambda view: view.line_gain(unit, targets[0]) > LINE_SEEN, "the aim")
        self.look("aimed")
        self.fire()
        return 1

    def test_shooting_the_last_enemy_wins_and_space_begins_anew(self):
        self.set_health("Enemy", 1)
        self.start_level()
        self.wait_for_all()
        self.point_at((0, -300))
        turns = shots = 0
        living = []
        while self.next_turn(turns) == "turn":
            turns += 1
            unit = self.wait_for_aim(turns)
            living.append(len(self.enemies()))
            shots += self.take_turn(unit)
            self.point_at((0, -300))
            self.assertLess(turns, MOST_TURNS)
        self.assertEqual(living[0], 2)
        self.assertGreaterEqual(shots, 2)
        self.assertEqual(self.count("Player Shoot"), shots)
        self.assert_level_over(is_red, is_green, 2)
        self.check_restart()
        self.window.close()
        self.assert_orderly_end(self.game)

    def check_restart(self):
        """Space brings all units back, and the enemies' first move."""
        before = len(self.turns())
        tap("space")
        self.wait_for_all()
        wait_until(lambda: MUSIC in self.open_files(), "the music again")
        wait_until(lambda: len(self.turns()) > before + 2, "turns", TURN_PATIENCE)
        self.assertEqual(self.turns()[before:before + 3], ["Enemy Turn Begin", "Enemy Unit Select", "Enemy Aim"])
        self.look("begun-anew")


class Interruptions(FirstLevel):

    def setUp(self):
        super().setUp()
        self.set_health("Player", UNHURT)
        self.start_level()

    def wait_for_walk(self, times):
        """Waits until an enemy walks, after so many selections of enemies since the start."""
        self.wait_for("Enemy Unit Select", times)
        start = self.watch(lambda view: len(view.units(is_red)) == 2 and view.units(is_red), "two enemies")

        def walks(view):
            now = view.units(is_red)
            return len(now) == len(start) and any(distance(*pair) > NEAR for pair in zip(now, start))
        self.watch(walks, "an enemy that walks")

    def assert_paused(self, name):
        time.sleep(1)
        before = self.lower_half(name)
        self.assert_no_turns(1.5)
        self.assertLess(self.lower_half(name).difference(before), 0.05, "nothing moves")

    def lower_half(self, name):
        """The picture without its upper half, where the crosshair turns even in a pause."""
        picture = self.look(name).picture
        return picture.crop(0, picture.height // 2, picture.width, picture.height - picture.height // 2)

    def test_escape_and_a_lost_focus_pause_and_h_ends_the_level(self):
        self.wait_for_walk(1)
        tap("Escape")
        self.assert_paused("paused")
        self.assertEqual(self.count("Enemy Aim"), 0)
        tap("Escape")
        self.wait_for("Enemy Aim", 1)
        self.point_at((0, 300))
        for turn in (1, 2):
            self.wait_for_aim(turn)
            tap("f")
        self.wait_for_walk(3)
        _, message = self.open_other_window()
        wait_until(self.window.is_minimised, "the window minimised")
        self.assert_no_turns(1.5)
        message.kill()
        self.window.activate()
        wait_until(lambda: not self.window.is_minimised(), "the window back")
        self.assert_paused("back-and-paused")
        self.assertEqual(self.count("Enemy Aim"), 2)
        tap("Escape")
        self.wait_for("Player Unit Select", 3)

        self.point_at((0, 300))
        self.wait_for_aim(3)
        tap("h")
        self.assert_level_over(is_red, is_green, 2)
        self.window.close()
        self.assert_orderly_end(self.game)


if __name__ == "__main__":
    unittest.main()
