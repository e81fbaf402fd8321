"""The window: its modes, its focus, and the crosshair."""
import time
import unittest

from case import SETTINGS, WINDOW, GameTest, background
from driver import SCREEN, call, move_mouse, tap, wait_until

CROSSHAIR = 44  # edge of a square around the crosshair in the shipped window (pixels)


class Window(GameTest):

    def setUp(self):
        super().setUp()
        self.empty_splash()

    def start_and_wait(self):
        self.game = self.start()
        self.window = self.game.wait_for_window()

    def assert_covers_the_screen(self):
        wait_until(lambda: self.window.rectangle() == (0, 0, *SCREEN), "a window as large as the screen")
        right = (1400, 100, 400, 500)  # far outside the window's place
        expected = background(*SCREEN).crop(*right)
        wait_until(lambda: self.window.picture().crop(*right).difference(expected) < 6,
                   "the picture on the whole screen")

    def assert_windowed(self):
        wait_until(lambda: self.window.size() == WINDOW, "the window's own size")
        self.assertFalse(self.window.is_full_screen())
        expected = background(*WINDOW)
        area = (20, 20, 600, 500)
        wait_until(lambda: self.window.picture().crop(*area).difference(expected.crop(*area)) < 6,
                   "the picture in the window")

    def test_f6_covers_the_screen_and_the_next_f6_brings_the_window_back(self):
        self.start_and_wait()
        self.assert_windowed()
        for _ in range(2):
            tap("F6")
            self.assert_covers_the_screen()
            tap("F6")
            self.assert_windowed()

    def test_a_start_in_full_screen_needs_two_presses_to_leave_it(self):
        settings = self.read_json(SETTINGS)
        settings["fullscreen"] = True
        self.write_json(SETTINGS, settings)
        self.start_and_wait()
        self.assert_covers_the_screen()
        tap("F6")
        time.sleep(1)
        self.assert_covers_the_screen()
        tap("F6")
        self.assert_windowed()

    def test_losing_the_focus_minimises_the_window_until_the_user_brings_it_back(self):
        self.start_and_wait()
        self.open_other_window()
        wait_until(self.window.is_minimised, "the window minimised")
        time.sleep(1)
        self.assertTrue(self.window.is_minimised(), "it does not come back by itself")
        self.window.activate()
        wait_until(lambda: not self.window.is_minimised(), "the window back")
        self.assert_windowed()

    def level_starts(self):
        """How often a level was started: each time it prints its grid of tiles."""
        return sum(line.count(", ") > 100 for line in self.game.output().splitlines())

    def test_a_key_held_while_another_window_takes_the_focus_is_not_released_by_the_user(self):
        self.game = self.start(arguments=["--level", "Level Editor/Levels/Level00/Level00.json"])
        self.window = self.game.wait_for_window()
        wait_until(lambda: self.level_starts() == 1, "the level")
        call("xdotool", "keydown", "space")
        self.open_other_window()
        wait_until(self.window.is_minimised, "the window minimised")
        call("xdotool", "keyup", "space")
        self.window.activate()
        wait_until(lambda: not self.window.is_minimised(), "the window back")
        tap("Escape")  # ends the pause, in which a level is not started anew
        time.sleep(2)
        self.assertEqual(self.level_starts(), 1)
        tap("space")
        wait_until(lambda: self.level_starts() == 2, "the level anew")

    def test_leaving_full_screen_by_another_window_comes_back_to_full_screen(self):
        self.start_and_wait()
        tap("F6")
        self.assert_covers_the_screen()
        other, _ = self.open_other_window()
        call("wmctrl", "-i", "-a", other)
        wait_until(self.window.is_minimised, "the window minimised")
        self.window.activate()
        wait_until(self.window.is_full_screen, "full screen again")
        self.assert_covers_the_screen()

    def test_resizing_and_minimising_by_the_user_do_no_harm(self):
        self.start_and_wait()
        for size in ("800,600", "300,900", "1,1", "1600,200"):
            call("wmctrl", "-i", "-r", self.window.id, "-e", f"0,-1,-1,{size}")
            time.sleep(0.3)
        call("wmctrl", "-i", "-r", self.window.id, "-b", "add,maximized_vert,maximized_horz")
        time.sleep(0.5)
        call("wmctrl", "-i", "-r", self.window.id, "-b", "remove,maximized_vert,maximized_horz")
        call("xdotool", "windowminimize", self.window.id)
        wait_until(self.window.is_minimised, "the window minimised")
        self.window.activate()
        self.window.close()
        self.assert_orderly_end(self.game)

    def test_the_user_cannot_make_the_window_smaller_than_it_started(self):
        self.start_and_wait()
        call("wmctrl", "-i", "-r", self.window.id, "-e", "0,-1,-1,1400,800")
        wait_until(lambda: self.window.size() == (1400, 800), "a larger window")
        call("wmctrl", "-i", "-r", self.window.id, "-e", "0,-1,-1,640,360")
        wait_until(lambda: self.window.size() == WINDOW, "the window's own size")

    def test_f10_opens_no_menu_and_stops_nothing(self):
        self.start_and_wait()
        tap("F10")
        time.sleep(0.5)
        tap("F6")
        self.assert_covers_the_screen()

    def crosshair_at(self, x, y):
        """True if the window shows something else than the background around a client position."""
        corner = (x - CROSSHAIR // 2, y - CROSSHAIR // 2, CROSSHAIR, CROSSHAIR)
        shown = self.window.picture().crop(*corner)
        return shown.difference(background(*WINDOW).crop(*corner)) > 8

    def test_the_crosshair_follows_the_mouse(self):
        self.start_and_wait()
        left, top = self.window.rectangle()[:2]
        places = ((300, 200), (900, 150), (640, 600))
        for place in places:
            move_mouse(left + place[0], top + place[1])
            wait_until(lambda: self.crosshair_at(*place), f"the crosshair at {place}")
            for other in places:
                self.assertEqual(self.crosshair_at(*other), other == place, f"{other}, mouse at {place}")


if __name__ == "__main__":
    unittest.main()
