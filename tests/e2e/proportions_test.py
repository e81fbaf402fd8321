"""Windows of other proportions: all that is needed lies in them, and each button answers to the mouse."""
import unittest

from case import find_record
from driver import tap
from player import HEIGHT, read_objects
from session import Session

SIZES = {"4 to 3": (960, 720), "16 to 10": (1152, 720), "21 to 9": (1680, 720)}

SCREENS = {
    "menu": ("menu_play", "menu_howtoplay", "menu_glossary", "menu_credits", "menu_quit"),
    "levels": ("menu_level_01", "menu_level_02", "menu_level_03", "menu_level_04", "menu_level_back"),
    "pause": ("ui_pause_resume", "ui_pause_options", "ui_pause_howtoplay", "ui_pause_glossary", "ui_pause_credits",
              "ui_pause_quittomenu", "ui_pause_quit"),
}
IN_PLAY = ("ui_controls", "ui_round_plate", "ui_goal", "ui_energy_plate", "ui_energy", "ui_weapon0_plate", "ui_cycle_left",
           "ui_cycle_right", "ui_weapon1_plate", "ui_undo", "ui_skip")


class Proportions(Session):

    def test_each_button_answers_and_nothing_is_cut_off(self):
        for name, size in SIZES.items():
            with self.subTest(proportions=name):
                self.visit(size)

    def visit(self, size):
        self.begin(size)
        self.objects = read_objects(self.directory, "MainMenu")
        for _ in range(4):
            tap("space")
        self.check("menu", size)
        self.player.click("menu_play")
        self.check("levels", size)
        self.player.click("menu_level_01")
        self.player.turn_to("Level01")
        self.objects = read_objects(self.directory, "Level01")
        self.wait_for_turn(1)
        self.look(f"play-{size[0]}")
        for name in IN_PLAY:
            self.assert_inside(name, size)
        tap("Escape")
        self.check("pause", size)
        self.window.close()
        self.assert_orderly_end(self.game)

    def check(self, screen, size):
        for button in SCREENS[screen]:
            self.assert_inside(button, size)
            self.player.wait_for(button)
        self.look(f"{screen}-{size[0]}")

    def assert_inside(self, name, size):
        """An object of the screen lies in the window with its whole width and height."""
        place = find_record(self.objects, name)["Transform"]
        for axis, limit in ((0, HEIGHT * size[0] / size[1]), (1, HEIGHT)):
            self.assertLessEqual(abs(place["m_pos"][axis]) + place["m_scale"][axis] / 2, limit / 2, name)


if __name__ == "__main__":
    unittest.main()
