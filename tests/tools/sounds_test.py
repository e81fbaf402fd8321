"""The sounds by their names, and the notation of the music. Their samples are checked in tests/audio/shippedsounds_test.cpp."""
import functools
import importlib.util
import json
import pathlib
import re
import sys
import tempfile
import unittest

from makers import ROOT

sys.path.insert(0, str(ROOT / "assets/sounds"))
import bosstheme  # noqa: E402
import endings  # noqa: E402
import leveltheme  # noqa: E402
import menutheme  # noqa: E402
import notation  # noqa: E402

QUOTED = re.compile(r'"(\w+\.(?:ogg|pgg|wav))"')
MISSPELT = "button_click.pgg"  # a click that is never heard; the program asks for it on purpose
FOLDERS = {"BGM": "Resources/Sound/BGM", "SFX": "Resources/Sound/SFX"}
THEMES = [score for module in (menutheme, bosstheme, leveltheme) for score in module.SCORES]


def named_in_code(root):
    """The sounds that the program asks for by name."""
    sources = [path for path in (root / "zovengine").rglob("*") if path.suffix in (".cpp", ".h")]
    return {name for path in sources for name in QUOTED.findall(path.read_text())}


def components(value):
    """All objects within a value of JSON."""
    if isinstance(value, dict):
        yield value
    for inner in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
        yield from components(inner)


@functools.cache
def data(root):
    """All objects within the levels and archetypes. Read once: they are megabytes."""
    paths = [path for folder in ("Level Editor/Levels", "Resources/Archetypes") for path in (root / folder).rglob("*.json")]
    return [own for path in paths for own in components(json.loads(path.read_text()))]


def records(root):
    """The records of all sound sources of the data: name, folder, and whether they go round."""
    sources = [own for own in data(root) if "sounds" in own and "sound_type" in own]
    return {(name, "BGM" if kind == "BGM" else "SFX", loop) for own in sources
            for name, kind, loop in zip(own["sounds"], own["sound_type"], own["loop"], strict=True)}


def level_themes(root):
    return {own["m_level_theme"] for own in data(root) if "m_level_theme" in own}


def sound_files(root):
    return {kind: {path.name for path in (root / folder).glob("*")} for kind, folder in FOLDERS.items()}


def missing(root):
    """The sounds that are named and have no file, each as the folder and the name."""
    files = sound_files(root)
    everywhere = {(kind, name) for name, kind, _ in records(root)}
    everywhere |= {("BGM", name) for name in level_themes(root)}
    anywhere = {("SFX", name) for name in named_in_code(root) if name not in files["BGM"]}
    return {(kind, name) for kind, name in everywhere | anywhere if name not in files[kind]}


def unused(root):
    """The files that nothing names."""
    named = named_in_code(root) | {name for name, _, _ in records(root)} | level_themes(root)
    return {name for names in sound_files(root).values() for name in names} - named


class Names(unittest.TestCase):

    def test_code_and_data_name_sounds(self):
        self.assertGreater(len(named_in_code(ROOT)), 10)
        self.assertGreater(len(records(ROOT)), 10)
        self.assertGreater(len(level_themes(ROOT)), 1)

    def test_every_sound_that_is_named_has_a_file_but_the_misspelt_one(self):
        self.assertEqual(missing(ROOT), {("SFX", MISSPELT)})

    def test_every_file_is_named_somewhere(self):
        self.assertEqual(unused(ROOT), set())

    def test_themes_go_round_and_nothing_else_does(self):
        themes = {f"{theme.__name__}.ogg" for theme in THEMES}
        for name, kind, loop in records(ROOT):
            self.assertEqual(loop, name in themes, name)
            if loop:
                self.assertEqual(kind, "BGM", name)

    def test_every_theme_of_a_level_is_a_theme(self):
        self.assertLessEqual(level_themes(ROOT), {f"{theme.__name__}.ogg" for theme in THEMES})


class NamesOfAnotherGame(unittest.TestCase):
    """The checks themselves, on a game that names one sound in its code and two in its data."""

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        self.write("zovengine/a.cpp", 'Play("bang.ogg");')
        source = {"sounds": ["song.ogg", "hum.ogg"], "sound_type": ["BGM", "LOOP"], "loop": [True, False]}
        self.write("Level Editor/Levels/A/a.json", json.dumps([{"AudioSource": source}]))
        for name in ("BGM/song.ogg", "SFX/hum.ogg", "SFX/bang.ogg"):
            self.write(f"Resources/Sound/{name}", "")

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text)

    def remove(self, path):
        (self.root / path).unlink()

    def test_nothing_is_missing_or_unused(self):
        self.assertEqual(missing(self.root), set())
        self.assertEqual(unused(self.root), set())

    def test_a_sound_of_the_code_is_missed(self):
        self.remove("Resources/Sound/SFX/bang.ogg")
        self.assertEqual(missing(self.root), {("SFX", "bang.ogg")})

    def test_music_among_the_effects_is_missed(self):
        self.remove("Resources/Sound/BGM/song.ogg")
        self.write("Resources/Sound/SFX/song.ogg", "")
        self.assertEqual(missing(self.root), {("BGM", "song.ogg")})

    def test_the_theme_of_a_level_is_missed(self):
        self.write("Level Editor/Levels/A/b.json", json.dumps({"m_level_theme": "march.ogg"}))
        self.assertEqual(missing(self.root), {("BGM", "march.ogg")})

    def test_a_file_that_nothing_names_is_found(self):
        self.write("Resources/Sound/SFX/leftover.ogg", "")
        self.assertEqual(unused(self.root), {"leftover.ogg"})


class Notation(unittest.TestCase):

    def test_pitches(self):
        for name, number in (("c4", 60), ("a4", 69), ("bb5", 82), ("b5", 83), ("f#3", 54), ("eb2", 39)):
            self.assertEqual(notation.pitch(name), number, name)

    def test_a_line_has_rests_chords_and_bars(self):
        self.assertEqual(notation.read_line("-:2 c4+e4:1.5 d4:0.5 | g4:4"),
                         [(2.0, 1.5, [60, 64]), (3.5, 0.5, [62]), (4.0, 4.0, [67])])
        self.assertEqual(notation.read_line("c4 d4 e4 f4 c4 d4 e4 f4", 0.5)[-1], (3.5, 0.5, [65]))

    def test_a_bar_that_is_not_full_is_a_fault(self):
        for text in ("c4:3 | c4:4", "c4:4 | c4:5"):
            with self.assertRaises(ValueError):
                notation.read_line(text)

    def test_an_arpeggio_goes_on_an_octave_above(self):
        part = notation.Part(0, -20)
        part.arpeggio(1, "c4+e4+g4:2 d4+f4+a4:2", (0, 1, 2, 3), 60, step=1.0)
        self.assertEqual([(time, own) for time, _, own, _ in part.notes], [(4, 60), (5, 64), (6, 69), (7, 74)])

    def test_a_beat_has_sixteen_steps(self):
        part = notation.Part(-1, -20)
        part.beat(0, "kick X...x...o.......", 100, 2)
        self.assertEqual([(time, velocity) for time, _, _, velocity in sorted(part.notes)],
                         [(0, 100), (1, 80), (2, 55), (4, 100), (5, 80), (6, 55)])
        with self.assertRaises(ValueError):
            part.beat(0, "kick X...", 100)

    def test_nothing_is_played_after_the_last_bar(self):
        for score in (*THEMES, *endings.SCORES):
            written = score()
            for part in written.parts:
                self.assertGreater(len(part.notes), 0)
                self.assertLess(max(time for time, *_ in part.notes), written.bars * notation.BAR, score.__name__)


@unittest.skipUnless(importlib.util.find_spec("numpy"), "only rendering needs numpy")
class Loudness(unittest.TestCase):
    """The meter of the renderer; tests/audio/loudness_test.cpp has the same sines for the one that checks the files."""

    def sine(self, pitch, level, seconds=5):
        import numpy
        import loudness
        time = numpy.arange(seconds * loudness.RATE) / loudness.RATE
        return 10 ** (level / 20) * numpy.repeat(numpy.sin(2 * numpy.pi * pitch * time)[:, None], 2, axis=1)

    def test_a_sine_in_both_channels_is_as_loud_as_its_peak(self):
        import loudness
        self.assertAlmostEqual(loudness.integrated(self.sine(997, -20)), -20.0, delta=0.02)
        self.assertAlmostEqual(loudness.integrated(self.sine(997, -20) * [1, 0]), -23.01, delta=0.02)

    def test_treble_is_louder_and_the_deepest_bass_hardly_heard(self):
        import loudness
        self.assertAlmostEqual(loudness.integrated(self.sine(8000, -20)), -16.69, delta=0.1)
        self.assertLess(loudness.integrated(self.sine(20, -20)), -30.0)

    def test_silence_and_what_is_soft_does_not_count(self):
        import loudness
        import numpy
        tone = self.sine(997, -20, 10)
        self.assertAlmostEqual(loudness.integrated(numpy.concatenate([tone, 0 * tone, 0.15 * tone])), -20.0, delta=0.1)

    def test_a_peak_between_the_samples_is_found(self):
        import loudness
        import numpy
        wave = numpy.sin(numpy.pi / 2 * numpy.arange(44100) + numpy.pi / 4)[:, None]
        self.assertAlmostEqual(20 * numpy.log10(numpy.abs(wave).max()), -3.01, delta=0.01)
        self.assertAlmostEqual(loudness.true_peak(wave), 0.0, delta=0.2)


if __name__ == "__main__":
    unittest.main()
