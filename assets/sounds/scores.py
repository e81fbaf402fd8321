"""The music of the game, written as scores: notes for General MIDI instruments.

A score is a function that returns a Score. Times and lengths are quarter notes from the beginning, pitches are
MIDI numbers (60 is middle C).
"""
import dataclasses

# General MIDI programs, counted from 0.
VIBRAPHONE, STRINGS, SYNTH_BASS, SYNTH_BRASS = 11, 48, 38, 62
SAW_LEAD, WARM_PAD, POLY_PAD, CRYSTAL, ATMOSPHERE = 81, 89, 90, 98, 99
KICK, RIM, SNARE, CLOSED_HAT, OPEN_HAT, CRASH, LOW_TOM, HIGH_TOM = 36, 37, 38, 42, 46, 49, 45, 48


@dataclasses.dataclass
class Part:
    program: int  # -1 for the drums
    level: float  # how loud it is beside the others while it plays
    pan: int = 64  # 0 left, 127 right
    low: float = 30.0  # what is deeper is taken away (unit: hertz)
    notes: list = dataclasses.field(default_factory=list)  # (time, length, pitch, velocity)

    def play(self, time, length, pitch, velocity):
        self.notes.append((time, length, pitch, velocity))

    def chord(self, time, length, pitches, velocity):
        for pitch in pitches:
            self.play(time, length, pitch, velocity)


@dataclasses.dataclass
class Score:
    tempo: int  # quarter notes a minute
    length: float  # quarter notes until the beginning may come again
    loudness: float  # root mean square, 1 at full scale
    parts: list
    wraps: bool = False  # what still sounds at the end is heard over the beginning, for a loop without a seam


MENU_CHORDS = [  # root, chord
    (38, [62, 65, 69, 76]), (34, [62, 65, 69, 74]), (41, [60, 65, 67, 69]), (36, [60, 64, 69, 74]),
    (43, [62, 65, 70, 74]), (38, [62, 65, 69, 72]), (34, [62, 65, 69, 72]), (33, [61, 64, 69, 74]),
]
MENU_TUNE = [  # bar within eight, beat, length, pitch
    (0, 0, 3, 81), (0, 3, 1, 84), (1, 0, 2.5, 82), (1, 3, 1, 81), (2, 0, 3, 79), (2, 3, 1, 77), (3, 0, 4, 76),
    (4, 0, 2, 74), (4, 2, 2, 77), (5, 0, 3, 81), (5, 3, 1, 79), (6, 0, 2, 77), (6, 2, 2, 74), (7, 0, 2, 76),
    (7, 2, 2, 73),
]
ARPEGGIO = [0, 2, 1, 3, 2, 3, 1, 2]


def maintheme01():
    """The menu: a station adrift. Pads, a vibraphone that circles, a slow tune; it comes to rest at its end."""
    pad, strings = Part(WARM_PAD, 0.5, low=150.0), Part(STRINGS, 0.5, 50)
    arpeggio, bass = Part(VIBRAPHONE, 0.6, 84), Part(SYNTH_BASS, 0.7)
    tune, echo, drums = Part(ATMOSPHERE, 0.7, 44, low=200.0), Part(CRYSTAL, 0.2, 100, low=200.0), Part(-1, 0.3)
    for bar in range(24):
        root, chord = MENU_CHORDS[bar % 8]
        section, at = bar // 8, bar * 4
        pad.chord(at, 4, chord, 62)
        for step in range(8):
            pitch = chord[ARPEGGIO[step]] + (12 if section == 2 and step % 4 == 3 else 0)
            arpeggio.play(at + step * 0.5, 0.5, pitch, 46 + 14 * (step % 4 == 0) + 4 * section)
        if section >= 1:
            for beat, length in ((0, 1.5), (1.5, 0.5), (2.5, 1.5)):
                bass.play(at + beat, length, root, 70)
            drums.play(at, 0.5, KICK, 58)
            drums.play(at + 2.5, 0.5, KICK, 44)
            drums.play(at + 3, 0.5, RIM, 36)
            for beat in range(4):
                drums.play(at + beat + 0.5, 0.25, CLOSED_HAT, 26)
        if section == 2:
            strings.chord(at, 4, [chord[0] - 12, chord[2] - 12], 56)
    for first in (8, 16):
        for bar, beat, length, pitch in MENU_TUNE:
            at = (first + bar) * 4 + beat
            tune.play(at, length, pitch, 72)
            if first == 16:
                echo.play(at + 0.75, length, pitch, 44)
    rest = [62, 65, 69, 76]
    pad.chord(96, 4, rest, 60)
    bass.play(96, 4, 38, 64)
    arpeggio.chord(96, 4, [74, 81], 48)
    return Score(90, 104, 0.13, [pad, strings, arpeggio, bass, tune, echo, drums])


LEVEL_CHORDS = [  # root, chord
    (40, [64, 67, 71]), (40, [64, 67, 71]), (36, [64, 67, 72]), (38, [62, 66, 69]),
    (40, [64, 67, 71]), (43, [62, 67, 71]), (45, [64, 69, 72]), (47, [63, 66, 71]),
]
LEVEL_TUNE = [
    (0, 0, 1.5, 76), (0, 1.5, 1.5, 79), (0, 3, 1, 78), (1, 0, 3, 76), (1, 3, 1, 74), (2, 0, 1.5, 72),
    (2, 1.5, 1.5, 76), (2, 3, 1, 79), (3, 0, 4, 78), (4, 0, 1.5, 83), (4, 1.5, 1.5, 79), (4, 3, 1, 76),
    (5, 0, 3, 74), (5, 3, 1, 79), (6, 0, 2, 76), (6, 2, 2, 72), (7, 0, 2, 75), (7, 2, 2, 78),
]
PULSE = [0, 0, 12, 0, 0, 7, 12, 10]


def _level_drums(drums, at, bar, quiet):
    if bar % 8 == 0:
        drums.play(at, 1, CRASH, 70)
    for beat in range(4):
        if not quiet or beat % 2 == 0:
            drums.play(at + beat, 0.5, KICK, 92 - 20 * quiet)
        drums.play(at + beat, 0.25, CLOSED_HAT, 46)
        drums.play(at + beat + 0.5, 0.25, OPEN_HAT if beat == 3 else CLOSED_HAT, 38)
        if not quiet:
            drums.play(at + beat + 0.25, 0.25, CLOSED_HAT, 24)
            drums.play(at + beat + 0.75, 0.25, CLOSED_HAT, 28)
    if not quiet:
        drums.play(at + 1, 0.5, SNARE, 84)
        drums.play(at + 3, 0.5, SNARE, 86)
    if bar % 8 == 7:
        for step in range(4):
            drums.play(at + 3 + step * 0.25, 0.25, HIGH_TOM if step < 2 else LOW_TOM, 70 + 6 * step)


def maintheme03():
    """A level: the duel. A bass that never rests, stabs, and a tune that climbs; made to go round and round."""
    bass, pad = Part(SYNTH_BASS, 0.8), Part(POLY_PAD, 0.4, 50)
    stabs, tune = Part(SYNTH_BRASS, 0.5, 80, low=100.0), Part(SAW_LEAD, 0.5, 58, low=200.0)
    sparks, drums = Part(VIBRAPHONE, 0.35, 92), Part(-1, 0.9)
    for bar in range(32):
        root, chord = LEVEL_CHORDS[bar % 8]
        at, breakdown = bar * 4, 16 <= bar < 24
        for step in range(8):
            bass.play(at + step * 0.5, 0.45, root + PULSE[step] - 12 * (step in (2, 6) and breakdown),
                      88 if step % 4 == 0 else 70)
        pad.chord(at, 4, chord, 60)
        _level_drums(drums, at, bar, breakdown or bar < 4)
        if bar >= 4 and not breakdown:
            for beat in (1.5, 3.5):
                stabs.chord(at + beat, 0.35, chord, 74)
        if bar >= 8:
            for step in range(16 if breakdown else 8):
                length = 0.25 if breakdown else 0.5
                sparks.play(at + step * length, length, chord[step * 2 % 3] + 12 * (1 + step % 2), 42 + 8 * (step % 4 == 0))
    for first in (8, 24):
        for bar, beat, length, pitch in LEVEL_TUNE:
            tune.play((first + bar) * 4 + beat, length * 0.95, pitch, 74)
    return Score(110, 128, 0.15, [bass, pad, stabs, tune, sparks, drums], wraps=True)


def victory():
    """Won: a short climb to a bright chord."""
    brass, bells, drums = Part(SYNTH_BRASS, 0.8, low=100.0), Part(VIBRAPHONE, 0.6, 84), Part(-1, 0.15)
    for number, pitch in enumerate([67, 71, 74]):
        brass.chord(number * 0.5, 0.45, [pitch, pitch - 12], 84)
        bells.play(number * 0.5, 0.5, pitch + 12, 70)
    brass.chord(1.5, 4, [55, 67, 74, 79, 83], 88)
    for step in range(8):
        bells.play(1.5 + step * 0.25, 0.5, [79, 83, 86, 91][step % 4], 72 - 4 * step)
    drums.play(1.5, 1, CRASH, 76)
    drums.play(1.5, 1, KICK, 90)
    return Score(110, 9, 0.12, [brass, bells, drums])


def defeat():
    """Lost: the same notes, going down and out of tune with hope."""
    brass, strings, drums = Part(SYNTH_BRASS, 0.6, low=80.0), Part(STRINGS, 0.8, 50), Part(-1, 0.3)
    for number, pitch in enumerate([64, 62, 60]):
        brass.chord(number, 0.9, [pitch, pitch - 12], 74)
        drums.play(number, 0.5, LOW_TOM, 66)
    strings.chord(3, 5, [40, 52, 55, 58], 74)
    brass.chord(3, 4, [46, 52], 64)
    drums.play(3, 1, KICK, 84)
    return Score(90, 9, 0.12, [brass, strings, drums])


SCORES = [maintheme01, maintheme03, victory, defeat]
