"""The theme of the boss: something large wakes."""
from notation import (BRASS, CHOIR, CONTRABASS, DRUM_KIT, HORN, MUSIC, MUSIC_BOX, OVERDRIVE, Part, REVERSE_CYMBAL, STRINGS,
                      SYNTH_BASS, Score, TAIKO, TIMPANI, TREMOLO, TROMBONE, TUBULAR_BELLS)

A = "g3+c4+eb4:4 | ab3+db4+f4:4 | g3+c4+eb4:4 | ab3+d4+f4:4 | ab3+c4+f4:4 | ab3+db4+f4:4 | ab3+d4+f4+c5:4 | g3+b3+d4+f4:4"
B = ("c4+f4+ab4:4 | db4+f4+ab4:4 | db4+f4+bb4:4 | db4+gb4+bb4:4 | eb4+gb4+bb4:4 | eb4+gb4+b4:4 | d4+f4+ab4+c5:4 | "
     "d4+f4+g4+b4:4")
INTRO = "g3+c4+eb4:4 | g3+c4+eb4:4 | ab3+db4+f4:4 | g3+c4+eb4:4 | ab3+c4+f4:4 | ab3+c4+f4:4 | ab3+d4+f4:4 | g3+b3+d4+f4:4"
BREAK = "c4+eb4+g4:4 | c4+f4+ab4:4 | c4+eb4+g4:4 | c4+eb4+g4:4 | c4+eb4+gb4:4 | db4+f4+ab4:4 | db4+f4+bb4:4 | d4+f4+g4+b4:4"
BUILD = "d4+f4+g4+b4:4 | d4+f4+ab4+b4:4 | f4+ab4+b4+d5:4 | f4+ab4+b4+d5:4"
CODA = "g3+c4+eb4:4 | ab3+c4+f4:4 | ab3+db4+f4:4 | g3+b3+d4+f4:4"

TUNE = ("c4:1 g4:1.5 ab4:0.5 g4:1 | f4:3 db4:1 | c4:1 g4:1.5 c5:0.5 bb4:1 | ab4:2 f4:1 d4:1 | f4:1 c5:1.5 db5:0.5 c5:1 | "
        "ab4:2 f4:2 | d4:1 f4:1 ab4:1 c5:1 | b4:3 g4:1")
COUNTER = ("eb5:2 c5:2 | db5:2 f5:1 ab5:1 | g5:2 eb5:2 | f5:3 d5:1 | c5:1 f5:1 ab5:2 | f5:1 ab5:1 db6:2 | c6:2 ab5:1 f5:1 | "
           "d5:1 f5:1 g5:1 b5:1")
B_TUNE = ("ab4:2 c5:2 | db5:3 c5:1 | db5:2 bb4:2 | bb4:2 db5:2 | eb5:3 db5:1 | eb5:2 gb5:2 | f5:2 ab5:2 | "
          "g5:3 f5:1")
BELL_TUNE = "c5:2 g5:2 | ab5:1 g5:1 eb5:2 | db5:4 | c5:4 | f5:2 c6:2 | db6:1 c6:1 ab5:2 | f5:4 | d5:4"
BROKEN_TUNE = "c5:2 g5:2 | ab5:2 f5:2 | eb5:4 | -:4 | c5:2 gb5:2 | f5:2 ab5:2 | db5:4 | b4:4"
CLIMB = "g4:2 b4:2 | d5:2 f5:2 | ab5:2 f5:2 | b5:2 d6:2"

A_BASS = ("c2 c2 eb2 c2 c2 g2 eb2 c2 | c2 c2 f2 c2 c2 ab2 f2 db2 | c2 c2 eb2 c2 c2 g2 bb2 g2 | c2 c2 d2 c2 c2 ab2 f2 d2 | "
          "f2 f2 ab2 f2 f2 c3 ab2 f2 | db2 db2 f2 db2 db2 ab2 f2 eb2 | d2 d2 f2 d2 d2 ab2 f2 d2 | g1 g1 b1 g1 g1 d2 f2 b1")
B_BASS = ("f2:1.5 f2:1.5 eb2:1 | db2:1.5 db2:1.5 c2:1 | bb1:1.5 bb1:1.5 ab1:1 | gb1:1.5 gb1:1.5 db2:1 | "
          "eb2:1.5 eb2:1.5 db2:1 | b1:1.5 b1:1.5 gb1:1 | d2:1.5 d2:1.5 f2:1 | g1:1.5 g1:1.5 b1:1")
LIMP = (0.0, 1.5, 3.0)  # three, three and two eighths

HEART = """
kick   X..o............
"""
MARCH = """
kick   X.....X.....X...
snare  ....x..o....X..o
pedal  x...x...x...x...
"""
FULL = """
kick   X..o..X..o..X.x.
snare  ....X..o.o..X..o
hat    x.x.x.x.x.x.x.x.
"""
FILL = """
kick   X.....X.....X...
snare  ....X..oxxXX....
high   ........x.x.....
mid    ............Xx..
low    ..............XX
"""
ROLL = """
kick   X...X...X...X...
low    x...x...x.x.x.x.
snare  o.o.o.o.oxoxxxXX
"""


def maintheme02():
    """The boss: a limping bass below horns, a choir that falls from third to third, a music box, and all of it again."""
    bass = Part(SYNTH_BASS, -20, low=36, high=4000, reverb=0, mono=True)
    deep = Part(CONTRABASS, -25, low=40, reverb=30, mono=True)
    tremolo, strings = Part(TREMOLO, -25, 78, low=180, reverb=70), Part(STRINGS, -24, 84, low=250, reverb=70)
    choir, horns = Part(CHOIR, -23, 50, low=220, reverb=90), Part(HORN, -21, 56, low=150, reverb=70)
    trombone, brass = Part(TROMBONE, -25, 70, low=90, reverb=60), Part(BRASS, -26, 74, low=220, reverb=60)
    bells, box = Part(TUBULAR_BELLS, -27, 36, low=200, reverb=90), Part(MUSIC_BOX, -25, 90, low=300, reverb=90)
    guitar = Part(OVERDRIVE, -28, 40, low=90, high=5000, reverb=30)
    taiko, timpani = Part(TAIKO, -25, 58, low=40, reverb=50), Part(TIMPANI, -27, 70, low=45, reverb=50)
    drums, cymbal = Part(DRUM_KIT, -21, low=35, reverb=30), Part(REVERSE_CYMBAL, -30, low=400, reverb=60)

    def limp(bar, count, velocity):
        """Taikos on the steps of the bass."""
        for number in range(bar, bar + count):
            for beat, own in ((0, 48), (1.5, 48), (3, 43)):
                taiko.play(number * 4 + beat, 1, own, velocity - 6 * (beat > 0))

    deep.line(0, " | ".join(["c2:4"] * 6 + ["c2:4", "g1:4"]), 76)
    tremolo.line(0, INTRO, 62)
    tremolo.swell(0, 8, 78, 120)
    bells.line(0, BELL_TUNE, 74)
    drums.beat(0, HEART, 84, 7)
    drums.beat(7, ROLL, 66)
    for number in range(4, 8):
        timpani.play(number * 4, 2, 36 if number < 7 else 43, 70 + 4 * number)
    cymbal.play(7 * 4, 4, 60, 84)

    tremolo.swell(8, 1, 110, 110)
    bass.line(8, A_BASS, 88, each=0.5, hold=0.85, accents=LIMP)
    tremolo.line(8, A, 66)
    horns.line(8, TUNE, 82)
    trombone.line(8, TUNE, 74, shift=-12)
    limp(8, 8, 80)
    drums.play(8 * 4, 1, 49, 78)
    drums.beat(8, MARCH, 84, 7)
    drums.beat(15, FILL, 88)

    bass.line(16, A_BASS, 94, each=0.5, hold=0.85, accents=LIMP)
    guitar.line(16, A_BASS, 84, each=0.5, hold=0.8, accents=LIMP)
    choir.line(16, A, 70)
    horns.line(16, TUNE, 90)
    trombone.line(16, TUNE, 80, shift=-12)
    strings.line(16, COUNTER, 82)
    limp(16, 8, 84)
    drums.play(16 * 4, 1, 49, 84)
    drums.beat(16, FULL, 90, 7)
    drums.beat(23, FILL, 94)

    bass.line(24, B_BASS, 92, hold=0.9, accents=LIMP)
    deep.line(24, B_BASS, 84, hold=0.95, accents=LIMP)
    tremolo.line(24, B, 76)
    choir.line(24, B_TUNE, 92)
    strings.line(24, B_TUNE, 76, shift=12)
    brass.line(24, B, 70)
    limp(24, 8, 88)
    drums.play(24 * 4, 1, 49, 90)
    drums.beat(24, MARCH, 92, 7)
    drums.beat(31, FILL, 96)

    deep.line(32, "c2:4 | c2:4 | c2:4 | c2:4 | c2:4 | db2:4 | bb1:4 | g1:4", 72)
    tremolo.line(32, BREAK, 56)
    box.line(32, BROKEN_TUNE, 78)
    bells.line(32, "c5:4 | -:4 | eb5:4 | -:4 | c5:4 | -:4 | db5:4 | -:4", 62)
    drums.beat(32, HEART, 80, 8)

    bass.line(40, " | ".join(["g1 g1 g1 g1 g1 g1 g1 g1"] * 4), 84, each=0.5, hold=0.75, accents=LIMP)
    tremolo.line(40, BUILD, 72)
    strings.line(40, CLIMB, 84)
    strings.swell(40, 4, 80, 127)
    choir.line(42, "f4+ab4+b4+d5:4 | f4+ab4+b4+d5:4", 72)
    for number in range(32):
        timpani.play(160 + number / 2, 0.5, 43, 52 + 1.6 * number)
    drums.beat(40, HEART, 88, 2)
    drums.beat(42, ROLL, 78)
    drums.beat(43, ROLL, 96)
    cymbal.play(43 * 4, 4, 60, 100)

    bass.line(44, A_BASS, 98, each=0.5, hold=0.85, accents=LIMP)
    guitar.line(44, A_BASS, 92, each=0.5, hold=0.8, accents=LIMP)
    choir.line(44, A, 84)
    horns.line(44, TUNE, 98)
    trombone.line(44, TUNE, 88, shift=-12)
    brass.line(44, TUNE, 82, shift=12)
    strings.line(44, COUNTER, 88)
    bells.line(44, "c5:4 | -:4 | c5:4 | -:4 | f5:4 | -:4 | d5:4 | -:4", 76)
    limp(44, 8, 94)
    drums.play(44 * 4, 1, 49, 96)
    drums.play(48 * 4, 1, 49, 88)
    drums.beat(44, FULL, 98, 3)
    drums.beat(47, FILL, 96)
    drums.beat(48, FULL, 98, 3)
    drums.beat(51, FILL, 100)

    deep.line(52, "c2:4 | c2:4 | c2:4 | g1:4", 80)
    tremolo.line(52, CODA, 70)
    tremolo.swell(52, 4, 110, 78)
    choir.line(52, CODA, 66)
    horns.line(52, "c4:1 g4:3 | ab4:4 | f4:4 | d4:4", 66)
    bells.line(52, "c5:4 | f5:4 | db5:4 | d5:4", 74)
    drums.play(52 * 4, 1, 49, 84)
    drums.beat(52, HEART, 88, 4)
    return Score(100, 56, MUSIC, [bass, deep, tremolo, strings, choir, horns, trombone, brass, bells, box, guitar, taiko, timpani,
                                  drums, cymbal])


SCORES = [maintheme02]
