"""Windows of other proportions: all that a player needs lies in them, looks as in the usual window, and answers to the mouse."""
import unittest

from case import WORLD, find_record
from driver import tap
from player import read_objects
from session import HOLE, HOLE_ABOVE_PANEL, Session

IN_PLAY = ("ui_energy_frame", "ui_energy", "ui_weapon_ground0", "ui_weapon_ground1", "ui_cycle_left", "ui_cycle_right", "ui_undo",
           "ui_skip")
PREVIEW = (286, 18, 790, 548)  # its image is not scaled alike


class Proportions(Session):

    def test_four_to_three(self):
        self.visit((960, 720))

    def test_sixteen_to_ten(self):
        self.visit((1152, 720))

    def test_twenty_one_to_nine(self):
        self.visit((1680, 720))

    def visit(self, size):
        self.begin(size)
        self.visit_the_menu()
        self.visit_a_level()
        self.window.close()
        self.assert_orderly_end(self.game)
        self.assertEqual(self.moments.failures, [])

    def visit_the_menu(self):
        self.assert_buttons_inside()
        self.skip_the_splash()
        self.player.hover("menu_play")
        self.expect("menu-hover", [HOLE])
        for page, back in (("menu_howtoplay", "menu_back"), ("menu_glossary", "menu_glossary_back")):
            self.player.click(page)
            self.expect(page)
            self.player.click(back)
        self.player.click("menu_play")
        self.player.hover("menu_level_01")
        self.expect("levels-1", [PREVIEW, HOLE_ABOVE_PANEL])
        self.player.press()

    def visit_a_level(self):
        self.player.turn_to("Level01")
        self.assert_buttons_inside()
        objects = read_objects(self.directory, "Level01")
        for name in IN_PLAY:
            self.assert_inside(name, find_record(objects, name)["Transform"])
        self.expect_level("Level01", 1)
        tap("Escape")
        self.player.hover("ui_pause_resume")
        self.expect("pause")

    def assert_buttons_inside(self):
        for name, place in self.player.buttons.items():
            self.assert_inside(name, place)

    def assert_inside(self, name, place):
        """An object of the screen lies in the window with its whole width and height."""
        width, height = self.window.size()
        for axis, limit in ((0, WORLD[1] * width / height), (1, WORLD[1])):
            self.assertLessEqual(abs(place["m_pos"][axis]) + place["m_scale"][axis] / 2, limit / 2, name)


if __name__ == "__main__":
    unittest.main()
