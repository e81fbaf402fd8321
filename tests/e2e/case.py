"""What the end-to-end tests share: the game with data of its own, and the expected images.

A test gets a copy of the shipped data, starts the release program there, and drives it in a real window. The
program's output and a last screenshot stay in CARAPACE_E2E_OUTPUT, by the test's name.
"""
import functools
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

from driver import Game, Picture, ask, move_mouse, wait_until  # noqa: E402

PROGRAM = pathlib.Path(os.environ.get("CARAPACE_PROGRAM", ROOT / "build/release/carapace"))
OUTPUT = pathlib.Path(os.environ.get("CARAPACE_E2E_OUTPUT", ROOT / "build/e2e"))

WINDOW = (1280, 720)  # the window of the shipped settings
WORLD = (1920, 1080)  # world units that a window of this shape shows; any other has the same height

UNLIT = bytes(value // 2 for value in range(256))  # the background, where no light reaches

SETTINGS = "Resources/Archetypes/WinInit.json"
SPLASH = "Level Editor/Levels/SplashScreen/Entity/Units.json"
MENU = "Level Editor/Levels/MainMenu/Entity/Units.json"

# The lines that an orderly end leaves, in this order, at the end of standard output.
LAST_LINES = [
    "Destructor of WindowSystem", "Destructor of InputSystem", "Destructor of PhysicsSystem",
    "Destructor of ColliderSystem", "Destructor of RenderSystem", "Program Ending"
]


class GameTest(unittest.TestCase):
    """A test with a directory of its own, in which the game's data lies."""

    maxDiff = None

    def setUp(self):
        self.assertTrue(PROGRAM.exists(), f"{PROGRAM} is not built (cmake --build --preset release)")
        place = tempfile.TemporaryDirectory(prefix="carapace-e2e-")
        self.addCleanup(place.cleanup)
        self.directory = pathlib.Path(place.name)
        for part in ("Resources", "Level Editor"):
            shutil.copytree(ROOT / part, self.directory / part)
        self.logs = OUTPUT / self.id()
        shutil.rmtree(self.logs, ignore_errors=True)
        move_mouse(1250, 700)  # so that the crosshair covers nothing that is compared

    def start(self, environment=None, arguments=()):
        """Starts the game; it ends with the test at the latest."""
        game = Game(PROGRAM, self.directory, self.logs, environment, arguments)
        self.addCleanup(game.kill)
        self.addCleanup(self.keep_picture)
        return game

    def keep_picture(self):
        if os.environ.get("DISPLAY"):
            Picture.of_screen().save(self.logs / "last.png")

    def open_other_window(self):
        """Opens a second window, which takes the focus; returns its X id and its process."""
        message = subprocess.Popen(["xmessage", "-title", "Another", "This window takes the focus."])
        self.addCleanup(message.wait)
        self.addCleanup(message.kill)
        found = wait_until(lambda: ask("xdotool", "search", "--onlyvisible", "--name", "^Another$").split(),
                           "the second window")
        return found[0], message

    def read_json(self, name):
        return json.loads((self.directory / name).read_text())

    def write_json(self, name, value):
        (self.directory / name).write_text(json.dumps(value))

    def empty_splash(self):
        """Empties the splash screen: only the background is left, and no key leads to the menu."""
        self.write_json(SPLASH, {"GameObjFactory": []})

    def assert_orderly_end(self, game):
        """The program ends by itself with status 0 and its documented last lines."""
        status = game.wait_for_end()
        self.assertEqual(status, 0, game.errors())
        lines = game.output().splitlines()
        self.assertEqual(lines[-len(LAST_LINES):], LAST_LINES)
        for line in LAST_LINES:
            self.assertEqual(lines.count(line), 1, line)


def find_record(records, name):
    """The record of the object with this name, in a tree of object records."""
    for record in records:
        if record["name"] == name:
            return record
        below = find_record(record.get("Childs", []), name)
        if below is not None:
            return below
    return None


def place_on_window(position, scale, size=WINDOW):
    """The rectangle (x, y, width, height) in client pixels of a sprite in the world."""
    ratio = size[0] / WORLD[0]
    width, height = round(scale[0] * ratio), round(scale[1] * ratio)
    x = round(size[0] / 2 + position[0] * ratio - width / 2)
    y = round(size[1] / 2 - position[1] * ratio - height / 2)
    return x, y, width, height


def scaled_texture(name, width, height):
    """A shipped image in another size, as RGBA bytes."""
    return subprocess.run(
        ["convert", str(ROOT / f"Resources/Textures/{name}.png"), "-resize", f"{width}x{height}!",
         "-depth", "8", "rgba:-"], check=True, stdout=subprocess.PIPE).stdout


@functools.lru_cache(maxsize=None)
def background(width, height):
    """The empty screen in a window of this size, where no light reaches."""
    rgba = scaled_texture("Background_Space", width, height)
    rgb = b"".join(rgba[i:i + 3] for i in range(0, len(rgba), 4))
    return Picture(width, height, rgb.translate(UNLIT))


def difference_from_sprite(picture, texture, place):
    """Mean difference of the window's picture from an opaque sprite, over the pixels that the sprite covers wholly."""
    x, y, width, height = place
    rgba = scaled_texture(texture, width, height)
    shown = picture.crop(x, y, width, height).data
    total = count = 0
    for pixel in range(width * height):
        if rgba[4 * pixel + 3] < 250:
            continue
        for channel in range(3):
            total += abs(rgba[4 * pixel + channel] - shown[3 * pixel + channel])
        count += 3
    assert count > 0, f"{texture} covers no pixel wholly"
    return total / count


class Fader:
    """Estimates the opacities of several sprites from a picture of the window.

    A sprite of opacity a changes a pixel b of the background to b + a * m * (c - b), with the colour c and the cover m
    of its texture. The opacities are the least-squares solution over all pixels that the sprites touch.
    """

    STEP = 5  # every fifth byte is enough

    def __init__(self, backdrop, sprites):
        """`backdrop` is the window without sprites; `sprites` maps a name to (texture, place)."""
        self.names = list(sprites)
        layers = [self._layer(backdrop, *sprites[name]) for name in self.names]
        touched = [i for i in range(0, len(backdrop.data), self.STEP) if any(l[i] for l in layers)]
        self.touched = touched
        self.backdrop = [backdrop.data[i] for i in touched]
        self.layers = [[layer[i] for i in touched] for layer in layers]
        self.products = [[_dot(a, b) for b in self.layers] for a in self.layers]

    @staticmethod
    def _layer(backdrop, texture, place):
        """m * (c - b) for each byte of the backdrop."""
        x, y, width, height = place
        rgba = scaled_texture(texture, width, height)
        layer = [0.0] * len(backdrop.data)
        for pixel in range(width * height):
            cover = rgba[4 * pixel + 3] / 255
            at = ((y + pixel // width) * backdrop.width + x + pixel % width) * 3
            for channel in range(3):
                layer[at + channel] = cover * (rgba[4 * pixel + channel] - backdrop.data[at + channel])
        return layer

    def opacities(self, picture):
        """The opacities by name, 0 to 1 apart from the error of the estimate."""
        change = [picture.data[i] - b for i, b in zip(self.touched, self.backdrop)]
        rights = [_dot(layer, change) for layer in self.layers]
        return dict(zip(self.names, _solve(self.products, rights)))


def _dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def _solve(matrix, rights):
    """Solves a small positive-definite system of linear equations by elimination."""
    rows = [list(row) + [right] for row, right in zip(matrix, rights)]
    count = len(rows)
    for column in range(count):
        for row in range(column + 1, count):
            factor = rows[row][column] / rows[column][column]
            rows[row] = [a - factor * b for a, b in zip(rows[row], rows[column])]
    values = [0.0] * count
    for row in reversed(range(count)):
        rest = sum(rows[row][k] * values[k] for k in range(row + 1, count))
        values[row] = (rows[row][count] - rest) / rows[row][row]
    return values
