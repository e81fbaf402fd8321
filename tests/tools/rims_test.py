"""The rims of images: textures repeat, so what touches an edge of a frame shows at the opposite one. Reads pixels by ImageMagick."""
import re
import subprocess
import unittest

from textures_test import FILES, LISTED, TEXTURES

RIM = 2  # pixels
UNSEEN = 8  # alpha, of 255: the tail of a glow

# Families of images that are painted up to the rim, and why that may be so. One that names no such image any more is to go.
FULL = {
    r"Tile_\w+|Wall_\w+|Space_Ribs|Shade_Wall|Decal_Stripes": "goes on in the image beside it",
    r"UI_Fade\w*|UI_Backdrop": "a flat sheet larger than the screen",
    r"Menu_Deck\w+": "goes on beyond the edge of the screen",
    r"yellow": "one flat colour, for lines",
    r"UI_HpBarFrame\d*|Hud_EnergyFrame": "a frame as large as its bar, the same at opposite edges",
    r"UI_Reach": "the circle's size tells how far a shot reaches; it is the same at opposite edges",
}


def alphas():
    """The alpha channel of each image that has one, row by row, by its key."""
    keys = [key for key, png in FILES.items() if png.has_alpha]
    command = ["convert", *(TEXTURES / f"{key}.png" for key in keys), "-alpha", "extract", "-depth", "8", "gray:-"]
    data = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
    assert len(data) == sum(FILES[key].width * FILES[key].height for key in keys), "ImageMagick read other sizes"
    found, at = {}, 0
    for key in keys:
        end = at + FILES[key].width * FILES[key].height
        found[key], at = data[at:end], end
    return found


def is_rim_empty(alpha, width, frames):
    """Whether no frame of a sheet is painted within RIM pixels of its edges."""
    frame = width // frames
    columns = [left + x for left in range(0, width, frame) for x in (*range(RIM), *range(frame - RIM, frame))]
    return max(max(alpha[:RIM * width]), max(alpha[-RIM * width:]), *(max(alpha[x::width]) for x in columns)) <= UNSEEN


class Pixels(unittest.TestCase):

    def test_the_rim_of_every_image_is_empty_but_for_families_with_a_reason(self):
        painted = {key for key, alpha in alphas().items() if not is_rim_empty(alpha, FILES[key].width, LISTED[key].frames)}
        self.assertEqual({key for key in painted if not any(re.fullmatch(family, key) for family in FULL)}, set())
        for family in FULL:
            self.assertTrue(any(re.fullmatch(family, key) for key in painted), family)

    def test_a_painted_rim_is_seen(self):
        for x, y in ((0, 5), (1, 5), (5, 1), (8, 5), (10, 5), (11, 5), (18, 5), (19, 9), (5, 9)):
            alpha = bytearray(20 * 10)
            alpha[y * 20 + x] = UNSEEN + 1
            self.assertFalse(is_rim_empty(bytes(alpha), 20, 2), (x, y))
        alpha = bytearray(20 * 10)
        for x, y in ((2, 2), (7, 7), (12, 2), (17, 7)):
            alpha[y * 20 + x] = 255
        self.assertTrue(is_rim_empty(bytes(alpha), 20, 2))


if __name__ == "__main__":
    unittest.main()
