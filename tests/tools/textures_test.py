"""The textures: each that is named exists, each that exists is shown, sheets have the frames that the data say, and all of them
with the sounds stay within the game's budget."""
import collections
import json
import re
import struct
import unittest

from makers import ROOT, load

TEXTURES = ROOT / "Resources/Textures"
LISTED = load("render_images").read_list()
DATA = sorted([*(ROOT / "Resources/Archetypes").rglob("*.json"), *(ROOT / "Level Editor/Levels").rglob("*.json")])
SOURCES = sorted(path for path in (ROOT / "zovengine").rglob("*.*") if path.suffix in (".h", ".cpp"))

MOST_FRAMES = 10  # the renderer overruns the last frame of a sheet with more
MOST_PIXELS = 25_000_000
MOST_BYTES = 40_000_000

STATES = ("spawn", "death", "once", "loop")
FIELDS = re.compile(r"\w+_tex|Background|m_(spawn|death|once|loop)")

# Families of textures of which the levels need not show all, and why. One that names no such texture any more is to go.
OFFERED = {
    r"UI_HpBarFrame\d+": "a bar with a tick for each point, up to the health that a unit may be given",
    r"Wall_[NESW]+": "a wall by its neighbours, of which the maker of levels takes what a map needs",
    r"Lamp_(Wall|Floor)_\w+": "a fixture in each colour that authors of levels may choose",
    r"Tile_Floor_Warn": "a plate that authors of levels may choose",
}
# Sheets that no Animation of the data has: the program puts each in the place of others, whose frames and size it must have.
SWAPPED = {
    r"Sheet_Env_DestructibleB": r"Sheet_Env_DestructibleA",
    r"Sheet_Fire_(?!Boss)\w+": r"Sheet_Unit_Fire_(Green|Red)",
    r"Sheet_Fire_Boss\w+": r"Sheet_Unit_Fire_Violet",
}


class Png:
    """What the head of a PNG file says."""

    def __init__(self, path):
        head = path.read_bytes()[:26]
        assert head[:8] == b"\x89PNG\r\n\x1a\n" and head[12:16] == b"IHDR", f"{path.name} is no PNG file"
        self.width, self.height = struct.unpack(">II", head[16:24])
        self.has_alpha = head[25] in (4, 6)


FILES = {path.stem: Png(path) for path in sorted(TEXTURES.glob("*.png"))}
PREFIXES = {key.split("_")[0] for key in FILES if "_" in key}


def walk(value):
    """All JSON objects in a value."""
    if isinstance(value, dict):
        yield value
    for inner in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
        yield from walk(inner)


RECORDS = [(path, own) for path in DATA for own in walk(json.loads(path.read_text()))]


def named_by_data():
    """The texture keys of the data files, each with the name of a file that has it."""
    return {value: path.name for path, own in RECORDS for field, value in own.items()
            if FIELDS.fullmatch(field) and isinstance(value, str) and value}


def named_by_program():
    """The texture keys among the string literals of the sources, each with the name of a file that has it. A word that ends in _ only
    tells kinds apart; guns are named without their ending."""
    words = {word: path.name for path in SOURCES for word in re.findall(r'"([A-Za-z]\w*)"', path.read_text())}
    found = {}
    for word, source in words.items():
        if word in FILES:
            found[word] = source
        elif word.split("_")[0] in PREFIXES and "_" in word and not word.endswith("_"):
            sides = (f"{word}_Green", f"{word}_Red") if word.startswith("Gun_") else (word,)
            found.update({key: source for key in sides})
    return found


def animated():
    """Each Animation's sheets: a file's name, a key, and the number of frames."""
    for path, own in RECORDS:
        for state in STATES:
            if own.get(f"m_{state}") and f"m_{state}_frames" in own:
                yield path.name, own[f"m_{state}"], own[f"m_{state}_frames"]


class Names(unittest.TestCase):

    def test_the_names_are_found(self):
        self.assertGreater(len(named_by_data()), 100)
        self.assertGreater(len(named_by_program()), 40)

    def test_every_texture_that_is_named_exists(self):
        for key, place in {**named_by_program(), **named_by_data()}.items():
            self.assertTrue(key in FILES, f"{place} names {key}, which is no texture")

    def test_every_texture_is_named_or_left_out_with_a_reason(self):
        unnamed = FILES.keys() - named_by_data().keys() - named_by_program().keys()
        reasons = {key: [family for family in OFFERED if re.fullmatch(family, key)] for key in unnamed}
        self.assertEqual([key for key, families in reasons.items() if not families], [], "nothing names them")
        self.assertEqual({family for families in reasons.values() for family in families}, OFFERED.keys(), "reasons that nothing needs")


class Sheets(unittest.TestCase):

    def test_every_file_has_the_size_of_its_line_in_the_list(self):
        self.assertEqual(LISTED.keys(), FILES.keys())
        for key, image in LISTED.items():
            self.assertEqual((FILES[key].width, FILES[key].height), (image.width * image.frames, image.height), key)

    def test_every_animation_has_the_frames_of_its_sheet(self):
        counts = collections.defaultdict(set)
        for _, key, frames in animated():
            counts[key].add(frames)
        self.assertGreater(len(counts), 10)
        for key, frames in counts.items():
            self.assertEqual(frames, {LISTED[key].frames}, key)

    def test_a_sheet_has_two_to_ten_frames_and_is_animated(self):
        shown = {key for _, key, _ in animated()}
        sheets = {key for key, image in LISTED.items() if image.frames > 1}
        self.assertEqual(sheets - shown, {key for family in SWAPPED for key in sheets if re.fullmatch(family, key)})
        for key in sheets:
            self.assertIn(LISTED[key].frames, range(2, MOST_FRAMES + 1), key)

    def test_a_sheet_that_the_program_puts_in_place_of_another_has_its_frames_and_its_size(self):
        for family, others in SWAPPED.items():
            sizes = {LISTED[key][2:5] for key in LISTED if re.fullmatch(f"{family}|{others}", key)}
            self.assertEqual(len(sizes), 1, f"{family} in place of {others}")


class Budget(unittest.TestCase):

    def test_all_textures_have_fewer_pixels_than_the_start_can_decode(self):
        self.assertLess(sum(png.width * png.height for png in FILES.values()), MOST_PIXELS)

    def test_images_and_sounds_stay_small(self):
        files = [path for path in (*TEXTURES.rglob("*"), *(ROOT / "Resources/Sound").rglob("*")) if path.is_file()]
        self.assertLess(sum(path.stat().st_size for path in files), MOST_BYTES)


if __name__ == "__main__":
    unittest.main()
