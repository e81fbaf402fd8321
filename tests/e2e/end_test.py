"""How the program ends when all is well."""
import signal
import time
import unittest

from case import GameTest
from driver import tap, wait_until

MASKS = "Resources/CollisionInfo.json"


class End(GameTest):

    def setUp(self):
        super().setUp()
        self.masks = (self.directory / MASKS).read_bytes()
        self.game = self.start()
        self.window = self.game.wait_for_window()

    def tearDown(self):
        self.assertEqual((self.directory / MASKS).read_bytes(), self.masks, "the collision masks")

    def test_closing_the_window_ends_the_program_in_order(self):
        self.window.close()
        self.assert_orderly_end(self.game)

    def test_closing_the_window_in_the_menu_ends_the_program_in_order(self):
        for _ in range(4):
            tap("space")
        time.sleep(2)
        self.window.close()
        self.assert_orderly_end(self.game)

    def test_closing_in_full_screen_ends_the_program_in_order(self):
        tap("F6")
        wait_until(self.window.is_full_screen, "full screen")
        self.window.close()
        self.assert_orderly_end(self.game)

    def test_the_terminate_signal_ends_the_program_in_order(self):
        self.game.process.send_signal(signal.SIGTERM)
        self.assert_orderly_end(self.game)


if __name__ == "__main__":
    unittest.main()
