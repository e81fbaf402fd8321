"""The script that builds and starts the game, in a tree whose programs only write down how they are called."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
CALLED = ("bin/cmake", "tools/setup", "tools/screen", "build/release/carapace")
BUILD = ["setup build", "cmake --preset release", "cmake --build --preset release --target carapace"]


class Play(unittest.TestCase):

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        shutil.copy(ROOT / "play", self.root)
        for name in CALLED:
            program = self.root / name
            program.parent.mkdir(parents=True, exist_ok=True)
            program.write_text(f'#!/bin/sh\necho "{program.name}${{*:+ $*}}" >>"{self.root}/calls"\n')
            program.chmod(0o755)

    def play(self, *arguments, display):
        """Runs the script; returns its exit status and what it wrote to standard error."""
        kept = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment = {**kept, **display, "PATH": f"{self.root}/bin:{kept['PATH']}"}
        done = subprocess.run([self.root / "play", *arguments], env=environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True)
        return done.returncode, done.stderr

    def calls(self):
        record = self.root / "calls"
        return record.read_text().splitlines() if record.exists() else []

    def test_with_a_display_the_game_gets_the_arguments(self):
        for display in ({"DISPLAY": ":9"}, {"WAYLAND_DISPLAY": "wayland-0"}):
            with self.subTest(display=display):
                (self.root / "calls").unlink(missing_ok=True)
                self.assertEqual(self.play("--level", "a b.json", display=display), (0, ""))
                self.assertEqual(self.calls(), [*BUILD, "carapace --level a b.json"])

    def test_without_a_display_a_session_is_played_in_a_virtual_screen(self):
        self.assertEqual(self.play(display={}), (0, ""))
        session = "screen /usr/bin/python3 tools/session build/release/carapace build/shots"
        self.assertEqual(self.calls(), [*BUILD, "setup screen", session])

    def test_without_a_display_arguments_are_refused_before_anything_is_built(self):
        status, words = self.play("--level", "level.json", display={})
        self.assertEqual(status, 2)
        self.assertEqual(words, "play: there is no display here, and the scripted session takes no arguments\n")
        self.assertEqual(self.calls(), [])


if __name__ == "__main__":
    unittest.main()
