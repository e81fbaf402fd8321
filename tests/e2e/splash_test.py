"""The splash screen and the way into the menu."""
import time
import unittest

from case import (MENU, SPLASH, WINDOW, Fader, GameTest, background, difference_from_sprite, find_record,
                  place_on_window)
from driver import tap, wait_until

LOGOS = ("zarn_logo", "team_logo", "game_logo", "start")
TITLE_HEIGHT = 200  # where the menu's title comes to rest (world units above the middle)
TITLE_NEAR = 25  # the title at its place differs by 13, for want of whole pixels; 10 units off by 60


class Splash(GameTest):

    def setUp(self):
        super().setUp()
        records = self.read_json(SPLASH)["GameObjFactory"]
        sprites = {}
        for name in LOGOS:
            record = find_record(records, name)
            place = record["Transform"]
            sprites[name] = (record["Render"]["m_tex"],
                             place_on_window(place["m_pos"], place["m_scale"]))
        self.fader = Fader(background(*WINDOW), sprites)
        self.game = self.start()
        self.window = self.game.wait_for_window()

    def opacities(self):
        return self.fader.opacities(self.window.picture())

    def wait_for_logo(self, name, others_gone=True):
        """Waits until a logo is well visible; the other logos are then not."""
        def visible():
            shown = self.opacities()
            return shown if shown[name] > 0.5 else None
        shown = wait_until(visible, f"{name} visible")
        for other in LOGOS[:3]:
            if others_gone and other != name:
                self.assertLess(shown[other], 0.1, f"{other} beside {name}: {shown}")

    def title_is_up(self):
        record = find_record(self.read_json(MENU)["GameObjFactory"], "game_logo")
        place = place_on_window((0, TITLE_HEIGHT), record["Transform"]["m_scale"])
        return difference_from_sprite(self.window.picture(), record["Render"]["m_tex"], place) < TITLE_NEAR

    def test_first_logo_fades_in_by_itself(self):
        seen = []

        def full():
            seen.append(self.opacities()["zarn_logo"])
            return seen[-1] > 0.85
        wait_until(full, "the first logo")
        between = [value for value in seen if 0.1 < value < 0.8]
        self.assertGreaterEqual(len(between), 2, f"no fade: {seen}")
        self.assertEqual(between, sorted(between), "the logo comes steadily")

    def test_logos_follow_each_other_without_a_key_and_the_prompt_blinks(self):
        for name in ("zarn_logo", "team_logo", "game_logo"):
            self.wait_for_logo(name)
        wait_until(lambda: self.opacities()["start"] > 0.9, "the prompt")
        self.assertGreater(self.opacities()["game_logo"], 0.9, "the last logo stays")
        wait_until(lambda: self.opacities()["start"] < 0.1, "the prompt gone")
        wait_until(lambda: self.opacities()["start"] > 0.9, "the prompt again")

    def test_each_key_skips_one_stage(self):
        self.wait_for_logo("zarn_logo")
        tap("space")
        self.wait_for_logo("team_logo")
        tap("Return")
        self.wait_for_logo("game_logo")
        tap("a")
        wait_until(lambda: self.opacities()["game_logo"] > 0.9, "the last logo in full")
        self.assertFalse(self.title_is_up(), "three keys do not reach the menu")
        tap("space")
        wait_until(self.title_is_up, "the menu's title")

    def test_four_quick_presses_reach_the_menu(self):
        for _ in range(4):
            tap("space")
        wait_until(self.title_is_up, "the menu's title")
        corner = (20, 20, 200, 120)
        shown = self.window.picture().crop(*corner)
        self.assertLess(shown.difference(background(*WINDOW).crop(*corner)), 6, "the background")
        time.sleep(1)
        self.assertTrue(self.title_is_up(), "the menu stays")


if __name__ == "__main__":
    unittest.main()
