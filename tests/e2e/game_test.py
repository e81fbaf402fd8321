"""The whole game in one session, from the splash screen to the quit button, with real keys and a real mouse."""
import unittest

from case import MENU, difference_from_sprite, find_record, place_on_window
from driver import tap, wait_until
from ears import LOUD, MOMENT, SILENT
from level import LINE_SEEN, MUSIC, TURN_PATIENCE
from player import REST
from session import HOLE, HOLE_ABOVE_PANEL, Session

PREVIEW_NEAR = 12  # mean difference of a preview from its image, for want of whole pixels

# What the masks hide, in world units: x, y, width, height.
PREVIEW = (286, 18, 790, 548)  # it shows the levels
AROUND_QUESTION = [(-682, 0, 556, 964), (682, 0, 556, 964), (0, 352, 808, 264), (0, -312, 808, 340)]
AROUND_END = [(-782, 0, 356, 964), (782, 0, 356, 964), (-410, -221, 388, 522), (410, -221, 388, 522)]
EXAMPLES = [(-660, -45, 100, 100), (160, 130, 170, 150), (160, -75, 200, 200)]  # they move

MENU_PAGES = (("menu_howtoplay", "menu_back"), ("menu_credits", "menu_credits_back"), ("menu_quit", "menu_quit_no"))
PAUSE_PAGES = (("ui_pause_howtoplay", "ui_pause_howtoplay_back"), ("ui_pause_credits", "ui_pause_credits_back"),
               ("ui_pause_quittomenu", "ui_pause_quittomenu_no"), ("ui_pause_quit", "ui_quit_no"))
AROUND = {"menu_quit": [(0, 380, 720, 320)], "ui_pause_quittomenu": AROUND_QUESTION, "ui_pause_quit": AROUND_QUESTION}


class WholeGame(Session):

    def test_from_the_splash_to_the_quit_button(self):
        self.begin()
        self.skip_the_splash()
        self.ears.wait_for_sound("the menu's music")
        self.visit_the_menu()
        self.choose_a_level()
        self.expect_level("Level01", 1)
        self.visit_the_pause()
        self.restart()
        self.win()
        self.lose()
        self.leave()
        self.assertEqual(self.moments.failures, [])

    def visit_the_menu(self):
        click, hover = self.player.click, self.player.hover
        for page, back in MENU_PAGES:
            click(page)
            self.expect(page, AROUND.get(page, []))
            click(back)
            hover("menu_play")
            self.expect("menu-hover", [HOLE])
        click("menu_glossary")
        self.expect("menu_glossary")
        click("menu_glossary_enviro")
        self.expect("menu_glossary-surroundings", EXAMPLES)
        click("menu_glossary_weapons")
        self.expect("menu_glossary-weapons")
        click("menu_glossary_back")
        hover("menu_play")
        self.expect("menu-hover", [HOLE])

    def choose_a_level(self):
        self.player.click("menu_play")
        for number in range(1, 5):
            self.player.hover(f"menu_level_{number:02}")
            self.expect(f"levels-{number}", [PREVIEW, HOLE_ABOVE_PANEL])
            self.check_preview(f"Menu_Preview_Level{number:02}")
        self.player.click("menu_level_back")
        self.player.hover("menu_play")
        self.expect("menu-hover", [HOLE])
        self.player.click("menu_play")
        self.player.click("menu_level_01")
        self.player.turn_to("Level01")

    def check_preview(self, texture):
        preview = find_record(self.read_json(MENU)["GameObjFactory"], "menu_levelselect_preview")["Transform"]
        place = place_on_window(preview["m_pos"], preview["m_scale"])
        wait_until(lambda: difference_from_sprite(self.window.picture(), texture, place) < PREVIEW_NEAR, texture)

    def visit_the_pause(self):
        click = self.player.click
        tap("Escape")
        self.player.hover("ui_pause_resume")
        self.expect("pause")
        for page, back in PAUSE_PAGES:
            click(page)
            self.expect(page, AROUND.get(page, []))
            click(back)
            self.player.hover("ui_pause_resume")
            self.expect("pause")
        click("ui_pause_glossary")
        self.expect("ui_pause_glossary")
        click("ui_pause_glossary_enviro")
        self.expect("ui_pause_glossary-surroundings", EXAMPLES)
        click("ui_pause_glossary_weapons")
        self.expect("ui_pause_glossary-weapons")
        click("ui_pause_glossary_back")
        self.use_the_switches()
        click("ui_pause_resume")
        self.expect_level("Level01", 1)

    def use_the_switches(self):
        """Each switch silences its half of the sounds, and brings it back."""
        click = self.player.click
        click("ui_pause_options")
        self.expect_options("options")
        self.ears.wait_for_sound("music")
        click("ui_options_music")
        self.expect_options("options-no-music")
        self.ears.wait_for_silence("no music")
        self.assertGreater(self.hear_a_click("options-no-music"), LOUD)
        click("ui_options_sfx")
        self.expect_options("options-no-sound")
        self.assertLessEqual(self.hear_a_click("options-no-sound"), SILENT)
        click("ui_options_sfx")
        self.expect_options("options-no-music")
        self.assertGreater(self.hear_a_click("options-no-music"), LOUD)
        click("ui_options_music")
        self.ears.wait_for_sound("music again")
        self.expect_options("options")
        click("ui_options_back")

    def expect_options(self, name):
        self.player.point_at(REST)
        self.expect(name)

    def hear_a_click(self, name):
        """Leaves the options and comes back to this moment; returns how loud the click on the way out was."""
        self.ears.wait_for_silence("rest before a click")
        start = self.ears.now()
        self.player.click("ui_options_back")
        self.expect("pause-after-options")
        self.ears.wait_for(MOMENT)
        end = self.ears.now()
        self.player.click("ui_pause_options")
        self.expect_options(name)
        return self.ears.loudest(start, end)

    def restart(self):
        """Space begins the level anew."""
        turns = self.count("Player Unit Select")
        tap("space")
        self.expect_level("Level01", turns + 1)

    def win(self):
        """One shot at the only enemy wins; the next level follows."""
        turns = self.count("Player Unit Select")
        unit, target = self.wait_for_turn(turns), self.enemies()[0]
        self.player.point_at(target)
        self.watch(lambda view: view.line_gain(unit, target) > LINE_SEEN, "the aim")
        self.fire()
        self.player.point_at(REST)
        wait_until(lambda: MUSIC not in self.open_files(), "the music's end", TURN_PATIENCE)
        self.expect("victory", AROUND_END)
        self.player.click("ui_end_gotonext")
        self.player.turn_to("Level02")
        self.expect_level("Level02", turns + 1)

    def lose(self):
        """A turn left out lets the enemy shoot the only unit. The buttons then lie higher."""
        turns = self.count("Player Unit Select")
        tap("f")
        self.player.point_at(REST)
        wait_until(lambda: MUSIC not in self.open_files(), "the music's end", TURN_PATIENCE)
        self.expect("defeat", AROUND_END)
        self.player.hover("ui_end_gotonext")  # in whose place the restart is
        self.player.press()
        self.expect_level("Level02", turns + 1)

    def leave(self):
        tap("Escape")
        self.choose("ui_pause_quittomenu")
        self.choose("ui_pause_quittomenu_yes")
        self.player.turn_to("MainMenu")
        self.player.point_at(REST)
        self.expect("menu", [HOLE])
        self.choose("menu_quit")
        self.choose("menu_quit_yes")
        self.assert_orderly_end(self.game)

    def choose(self, button):
        """Clicks on a button once it answers to the mouse."""
        self.player.wait_for(button)
        self.player.press()


if __name__ == "__main__":
    unittest.main()
