"""Compares what a window shows at a moment with the committed picture of that moment.

Both are 640 by 360 pixels, in blocks of 20 by 20. A narrower window is compared with the middle of the committed picture, and the
middle of a wider one with all of it. What moves or depends on the levels is hidden by masks, black rectangles that lie on both;
they are given in world units as (x, y, width, height), from the middle. A picture that does not become like its
committed one is written to the test's output, in the form in which it would be committed, and beside it the difference, brightened.
To renew pictures after a change that is meant, look at what was written and copy it to tests/e2e/pictures.
"""
import pathlib
import subprocess
import time

from driver import TooLate, wait_until

FOLDER = pathlib.Path(__file__).parent / "pictures"
SIZE = (640, 360)
SCALE = SIZE[1] / 1080
BLOCK = 20
FIT = ["-gravity", "center", "-background", "black", "-extent", f"{SIZE[0]}x{SIZE[1]}", "-gravity", "none"]
COLOURS = 256
LARGEST_BLOCK = 12  # the most by which a block may differ in the mean of its bytes
MEAN = 1.5  # the same for the whole picture
PATIENCE = 150.0  # seconds in which a screen must have come, on a loaded machine
SHORT_PATIENCE = 40.0  # the same once a moment has failed: the rest is only to be gathered


def draw_masks(masks):
    """The arguments of ImageMagick that cover parts of a small picture."""
    arguments = ["-fill", "black"]
    for x, y, width, height in masks:
        left, top = SIZE[0] / 2 + (x - width / 2) * SCALE, SIZE[1] / 2 - (y + height / 2) * SCALE
        arguments += ["-draw", f"rectangle {left:.0f},{top:.0f} {left + width * SCALE:.0f},{top + height * SCALE:.0f}"]
    return arguments


def read(picture, masks):
    """The arguments of ImageMagick that read a picture of a window from standard input and make it small."""
    return ["(", "-size", f"{picture.width}x{picture.height}", "-depth", "8", "rgb:-", "-resize", f"x{SIZE[1]}", *FIT,
            *draw_masks(masks), ")"]


def convert(picture, *arguments):
    return subprocess.run(["convert", *arguments], input=picture.data, check=True, stdout=subprocess.PIPE).stdout


def overlay(picture, committed, masks):
    """The arguments of ImageMagick that give the difference of two pictures, as wide as the narrower one; and that width."""
    width = min(SIZE[0], round(picture.width * SIZE[1] / picture.height))
    soft = ["-blur", "0x1.5"]  # the dots of the committed picture's few colours are no difference
    return [*read(picture, masks), *soft, "(", str(committed), *draw_masks(masks), *soft, ")", "-compose", "difference", "-composite",
            "-gravity", "center", "-crop", f"{width}x{SIZE[1]}+0+0", "+repage"], width


def differences(picture, committed, masks):
    """How far the picture is from a committed one: the largest and the mean difference of the blocks, 0 to 255."""
    arguments, width = overlay(picture, committed, masks)
    columns, rows = round(width / BLOCK), SIZE[1] // BLOCK
    blocks = convert(picture, *arguments, "-scale", f"{columns}x{rows}!", "-depth", "8", "rgb:-")
    means = [sum(blocks[i:i + 3]) / 3 for i in range(0, len(blocks), 3)]
    assert len(means) == columns * rows, f"{committed} has another size"
    return max(means), sum(means) / len(means)


class Moments:
    """The moments of one session. What differs is gathered, so that one run shows all of it."""

    def __init__(self, output):
        self.output = pathlib.Path(output)
        self.seen = []
        self.failures = []

    def expect(self, window, name, masks=()):
        """Waits until the window shows the committed picture of this name."""
        committed = FOLDER / f"{name}.png"
        self.seen.append(name)
        if not committed.exists():
            self._keep_new(window, name, masks)
            return
        best = []

        def alike():
            picture = window.picture()
            largest, mean = differences(picture, committed, masks)
            best[:] = [picture, largest, mean]
            return largest <= LARGEST_BLOCK and mean <= MEAN
        try:
            wait_until(alike, name, SHORT_PATIENCE if self.failures else PATIENCE)
        except TooLate:
            self.failures.append(f"{name}: a block differs by {best[1]:.1f}, the picture by {best[2]:.2f}")
            self._write(best[0], name, masks)
            arguments, _ = overlay(best[0], committed, masks)
            convert(best[0], *arguments, "-evaluate", "multiply", "8", str(self.output / f"{name}-difference.png"))

    def _keep_new(self, window, name, masks):
        """Writes down a moment that has no picture yet, once it is at rest."""
        self.failures.append(f"{name}: there is no committed picture")

        def at_rest():
            self._write(window.picture(), name, masks)
            time.sleep(2)
            return differences(window.picture(), self.output / f"{name}.png", masks)[0] < LARGEST_BLOCK / 2
        wait_until(at_rest, f"{name} at rest")

    def _write(self, picture, name, masks):
        self.output.mkdir(parents=True, exist_ok=True)
        convert(picture, *read(picture, masks), "-dither", "FloydSteinberg", "-colors", str(COLOURS), "-strip",
                f"PNG8:{self.output / name}.png")
