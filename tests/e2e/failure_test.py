"""The messages to the user when the program cannot start."""
import shutil
import signal
import unittest

from case import SETTINGS, GameTest
from driver import ask, box_is_shown, tap, wait_until
from player import Player

LOG = "log_file.log"
TIME = r"\[\w{3} \w{3} [ \d]\d \d\d:\d\d:\d\d \d{4}\] "
LEVEL = "Level Editor/Levels/Level03/Level03.json"
NO_WINDOW = {"DISPLAY": None, "WAYLAND_DISPLAY": None, "SDL_VIDEODRIVER": None}
SETTING_KEYS = ("name", "title", "Activate_Console", "Activate_ImGui", "fullscreen", "winwidth", "winheight")
DEAD_DISPLAY = ":987"


class Failure(GameTest):

    def close_box(self, title):
        """Waits for a box and closes it as a user does, with the Return key."""
        wait_until(lambda: box_is_shown(title), f"the box \"{title}\"")
        self.assertTrue(self.game.is_running(), "the program waits for the user")
        wait_until(lambda: box_is_shown(title) and ask("xdotool", "getwindowfocus").strip() != "1",
                   "focus of the box")
        tap("Return")

    def assert_failed_with(self, pattern):
        """The program ended with failure, and wrote the sentence to standard error."""
        self.assertNotEqual(self.game.wait_for_end(), 0)
        self.assertRegex(self.game.errors(), pattern)
        self.assertNotIn("Program Ending", self.game.output())

    def assert_not_found(self, path):
        """The first file that cannot be found at the start is named in the log, in a box and on standard error."""
        self.game = self.start()
        self.assert_reported(path)

    def assert_reported(self, path):
        self.close_box("Error")
        line = path.replace(".", r"\.") + r"file not found \(jsonunserializer\.cpp, Line \d+\)"
        self.assert_failed_with(line)
        self.assertRegex((self.directory / LOG).read_text(), "^" + TIME + line + "\n$")

    def test_arguments_that_are_not_understood_are_answered_with_the_use(self):
        for arguments in (["nonsense"], ["--level"], ["--level", "a", "b"]):
            with self.subTest(arguments=arguments):
                self.game = self.start(arguments=arguments)
                self.assertEqual(self.game.wait_for_end(), 2)
                self.assertIn("usage: carapace [--level FILE ", self.game.errors())
                self.assertEqual(self.game.output(), "")

    def test_help_is_printed_without_a_display(self):
        self.game = self.start(NO_WINDOW, ["--help"])
        self.assertEqual(self.game.wait_for_end(), 0)
        self.assertIn("usage: carapace [--level FILE ", self.game.output())
        self.assertEqual(self.game.errors(), "")

    def test_a_level_that_is_not_there_is_said_before_a_window_opens(self):
        path = "Level Editor/Levels/None/None.json"
        self.game = self.start(NO_WINDOW, ["--level", path])
        self.assertEqual(self.game.wait_for_end(), 2)
        self.assertEqual(self.game.errors(), f'carapace: cannot open the level file "{path}"\n')
        self.assertEqual(self.game.output(), "")

    def test_an_orderly_run_writes_nothing_to_standard_error(self):
        self.game = self.start({"mesa_glthread": None, "MESA_DEBUG": None})
        window = self.game.wait_for_window()
        window.close()
        self.assert_orderly_end(self.game)
        self.assertEqual(self.game.errors(), "")

    def test_a_missing_settings_file_is_logged_and_shown(self):
        (self.directory / SETTINGS).unlink()
        self.assert_not_found(SETTINGS)

    def test_missing_data_are_logged_and_shown(self):
        shutil.rmtree(self.directory / "Resources")
        self.assert_not_found("Resources/CollisionInfo.json")

    def choose_the_level(self):
        """Chooses the third level in the menu."""
        self.game = self.start()
        player = Player(self.directory, self.game.wait_for_window())
        player.turn_to("MainMenu")
        for _ in range(4):
            tap("space")
        player.wait_for("menu_play")
        player.click("menu_play")
        player.wait_for("menu_level_03")
        player.press()

    def test_a_missing_level_is_logged_and_shown_when_the_menu_leads_to_it(self):
        (self.directory / LEVEL).unlink()
        self.choose_the_level()
        self.assert_reported(LEVEL)

    def test_a_missing_objects_file_is_named_when_the_menu_leads_to_its_level(self):
        objects = self.read_json(LEVEL)["Objects"]
        (self.directory / objects).unlink()
        self.choose_the_level()
        self.assert_reported(objects)

    def test_a_broken_level_is_reported_when_the_menu_leads_to_it(self):
        (self.directory / LEVEL).write_text('{"TileMap": ')
        self.choose_the_level()
        self.assert_reported("")

    def test_a_broken_settings_file_counts_as_one_without_keys(self):
        (self.directory / SETTINGS).write_text('{"name": ')
        self.game = self.start()
        for key in SETTING_KEYS:
            wait_until(lambda: f"Cant find Key: {key}\n" in self.game.output(), f"the line on {key}")
        wait_until(lambda: ask("xdotool", "search", "--onlyvisible", "--class", "carapace"), "a window")
        self.game.process.send_signal(signal.SIGTERM)
        self.assert_orderly_end(self.game)

    def test_without_a_display_the_program_says_so_and_ends(self):
        self.game = self.start(NO_WINDOW)
        self.assert_failed_with("(?i)display")

    def test_a_display_that_does_not_answer_is_said_and_ends_the_program(self):
        for driver in (None, "x11"):
            with self.subTest(driver=driver):
                self.game = self.start({**NO_WINDOW, "DISPLAY": DEAD_DISPLAY, "SDL_VIDEODRIVER": driver})
                self.assert_failed_with("(?i)display")

    def test_an_opengl_that_is_too_old_is_said_and_ends_the_program(self):
        self.game = self.start({"MESA_GL_VERSION_OVERRIDE": "2.1"})
        self.close_box("Carapace")
        self.assert_failed_with("OpenGL 3.3")


if __name__ == "__main__":
    unittest.main()
