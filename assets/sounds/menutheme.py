"""The theme of the menu: a station adrift."""
from notation import (CELLO, CLARINET, CRYSTAL, DRUM_KIT, FRETLESS, HARP, MUSIC, PAN_FLUTE, Part, REVERSE_CYMBAL, STRINGS,
                      SWEEP_PAD, Score, VIBRAPHONE, WARM_PAD)

INTRO = "f4+a4+c5+e5:4 | f4+a4+c5+d5:4 | bb3+d4+f4+c5:4 | a3+d4+g4+e5:2 a3+c#4+g4+e5:2"
INTRO_HALO = "e5+a5:4 | f5+a5:4 | d5+f5:4 | e5+a5:4"
A = ("f4+a4+c5+d5:4 | f4+a4+d5:4 | f4+a4+c5:4 | e4+g4+d5:4 | f4+bb4+d5:4 | f4+a4+d5:4 | e4+g4+bb4+d5:4 | "
     "e4+g4+a4+d5:2 e4+g4+a4+c#5:2")
A_OPEN = ("f4+a4+c5+d5:4 | f4+a4+d5:4 | f4+a4+c5:4 | e4+g4+d5:4 | f4+bb4+d5:4 | f4+a4+d5:4 | bb3+d4+f4+d5:4 | "
          "f4+bb4+c5:2 e4+bb4+c5:2")
A_HALO = "d5+f5:4 | d5+f5:4 | c5+f5:4 | d5+g5:4 | d5+f5:4 | d5+f5:4 | d5+g5:4 | d5+e5:2 c#5+e5:2"
B = ("f4+a4+c5:4 | e4+g4+c5:4 | f4+a4+c5:4 | e4+g4+c5:4 | d4+f4+g4:4 | c4+f4+a4:4 | bb3+d4+f4:4 | "
     "d4+e4+a4:3 c#4+e4+g4:1")
B_HALO = "c5+a5:4 | c5+g5:4 | c5+f5:4 | e5+g5:4 | d5+f5:4 | c5+f5:4 | d5+f5:4 | e5+a5:4"
BREAK = "bb3+d4+f4+d5:4 | bb3+d4+f4+c5:4 | bb3+eb4+g4+c5:4 | a3+d4+g4+e5:2 a3+c#4+g4+e5:2"
BREAK_HALO = "d5+f5:4 | d5+f5:4 | eb5+g5:4 | e5+a5:4"
CODA = ("f4+a4+c5+e5:4 | f4+a4+c5+d5:4 | bb3+d4+f4+c5:4 | a3+d4+g4+e5:4 | f4+a4+c5+e5:4 | f4+a4+c5+d5:4 | "
        "bb3+eb4+g4+c5:4 | a3+d4+g4+e5:2 a3+c#4+g4+e5:2")
CODA_HALO = "e5+a5:4 | f5+a5:4 | d5+f5:4 | e5+a5:4 | e5+a5:4 | f5+a5:4 | eb5+g5:4 | e5+a5:4"

TUNE_HALF = "d5:1 a5:2 bb5:1 | a5:3 f5:1 | g5:1 a5:1 c6:2 | g5:3 e5:1 | d5:1 bb5:2 a5:1 | a5:2 f5:2 | "
TUNE = TUNE_HALF + "bb5:1.5 g5:1.5 e5:1 | d5:2 c#5:2"
TUNE_OPEN = TUNE_HALF + "bb5:1.5 a5:1.5 g5:1 | f5:2 g5:2"
SECOND = ("a4:1 f5:2 g5:1 | f5:3 d5:1 | c5:1 f5:1 a5:2 | e5:3 c5:1 | bb4:1 g5:2 f5:1 | f5:2 d5:2 | "
          "g5:1.5 e5:1.5 bb4:1 | a4:2 g4:2")
B_TUNE = ("a5:1.5 c6:0.5 f6:2 | e6:1.5 d6:0.5 c6:2 | d6:1.5 c6:0.5 a5:2 | c6:1 a5:1 g5:2 | f5:1.5 g5:0.5 a5:1 bb5:1 | "
          "c6:3 a5:1 | bb5:1.5 a5:0.5 g5:1 f5:1 | e5:2 d5:1 c#5:1")
COUNTER = ("a4:3 g4:1 | f4:2 d4:2 | c4:1 f4:1 a4:2 | e4:2 d4:1 c4:1 | bb3:2 d4:2 | f4:2 d4:2 | bb3:2 d4:2 | "
           "c4:2 bb3:2")
COUNTER_HOME = ("a4:3 g4:1 | f4:2 d4:2 | c4:1 f4:1 a4:2 | e4:2 d4:1 c4:1 | bb3:2 d4:2 | f4:2 d4:2 | g4:2 bb4:2 | "
                "a4:2 g4:2")
B_COUNTER = ("c5:1 a4:1 c5:1 a4:1 | g4:2 e4:1 g4:1 | f4:2 a4:1 f4:1 | e4:2 c4:2 | d4:2 f4:2 | a4:1 g4:1 f4:2 | d4:2 bb3:2 | "
             "a3:2 e4:2")
BELLS = "d6:1 a6:1 bb6:1 a6:1 | f6:3 -:1 | g6:1 d6:1 bb5:2 | e6:2 c#6:2"
CODA_BELLS = ("d6:1 a6:2 bb6:1 | a6:3 f6:1 | d6:2 bb5:2 | a5:4 | d6:1 a6:2 bb6:1 | a6:2 f6:2 | g6:2 eb6:2 | "
              "d6:2 c#6:2")

BASS_LONG = "d2:4 | bb1:4 | a1:4 | c2:4 | g1:4 | f2:4 | e2:4 | a1:3 c#2:1"
BASS_HALF = ("d2:1.5 d2:0.5 a2:1 c2:1 | bb1:1.5 bb1:0.5 f2:1 bb1:1 | a1:1.5 a1:0.5 f2:1 d2:1 | "
             "c2:1.5 c2:0.5 g1:1 a1:1 | g1:1.5 g1:0.5 d2:1 e2:1 | f2:1.5 f2:0.5 a2:1 f2:1 | ")
BASS_OPEN = BASS_HALF + "g1:1.5 g1:0.5 bb1:1 d2:1 | c2:1.5 c2:0.5 g2:1 e2:1"
BASS_HOME = BASS_HALF + "e2:1.5 e2:0.5 bb1:1 g1:1 | a1:1.5 a1:0.5 e2:1 c#2:1"
B_BASS = ("f2:1.5 f2:0.5 c2:1 f2:1 | e2:1.5 e2:0.5 g2:1 e2:1 | d2:1.5 d2:0.5 a2:1 d2:1 | a1:1.5 a1:0.5 e2:1 a1:1 | "
          "bb1:1.5 bb1:0.5 f2:1 bb1:1 | a1:1.5 a1:0.5 c2:1 a1:1 | g1:1.5 g1:0.5 d2:1 g1:1 | a1:2 a1:1 e2:1")
CODA_BASS = "d2:3 a1:1 | bb1:4 | g1:4 | a1:4 | d2:3 a1:1 | bb1:4 | eb2:4 | a1:4"

PULSE = """
kick   x.........o.....
rim    ............x...
shaker o.o.x.o.o.o.x.o.
"""
BEAT = """
kick   X.....o...x.....
rim    ....x.......x...
shaker ooxoooxoooxoooxo
ride   x...o...x...o...
"""
FILL = """
kick   X.....o...x.....
rim    ....x.......x...
shaker o.x.o.x.o.......
high   .........o.x....
mid    ...........o.x..
low    .............ox.
"""


def maintheme01():
    """The menu: slow, wide, with a tune that circles around its fifth and a brighter middle."""
    pad = Part(WARM_PAD, -24, low=160, high=5000, reverb=70)
    halo = Part(SWEEP_PAD, -30, low=250, reverb=80)
    circle, harp = Part(VIBRAPHONE, -27, 82, low=180, reverb=60), Part(HARP, -25, 40, low=150, reverb=60)
    bass = Part(FRETLESS, -22, low=35, high=4000, reverb=0, mono=True)
    flute, second = Part(PAN_FLUTE, -21, 58, low=250, reverb=80), Part(CLARINET, -26, 78, low=220, reverb=70)
    strings, cello = Part(STRINGS, -23, 70, low=250, reverb=70), Part(CELLO, -24, 46, low=120, reverb=60)
    bells, drums = Part(CRYSTAL, -28, 96, low=300, reverb=90), Part(DRUM_KIT, -27, low=40, reverb=20)
    cymbal = Part(REVERSE_CYMBAL, -34, low=400, reverb=60)

    circles, wide = (0, 2, 3, 1, 2, 3, 2, 1), (0, 1, 2, 3, 4, 3, 2, 1)
    pad.line(0, INTRO, 66)
    halo.line(0, INTRO_HALO, 60)
    circle.arpeggio(0, INTRO, circles, 46)
    bells.line(0, BELLS, 56)

    pad.line(4, A, 66)
    circle.arpeggio(4, A, circles, 52)
    flute.line(4, TUNE, 74)
    bass.line(4, BASS_LONG, 66)
    drums.beat(8, PULSE, 50, 4)

    pad.line(12, A_OPEN, 70)
    circle.arpeggio(12, A_OPEN, circles, 54)
    flute.line(12, TUNE_OPEN, 82)
    cello.line(12, COUNTER, 74)
    bass.line(12, BASS_OPEN, 76, accents=(0.0, 2.0))
    drums.beat(12, BEAT, 60, 7)
    drums.beat(19, FILL, 62)

    pad.line(20, B, 72)
    halo.line(20, B_HALO, 66)
    harp.arpeggio(20, B, wide, 62)
    strings.line(20, B_TUNE, 84)
    flute.line(20, B_TUNE, 62, shift=-12)
    cello.line(20, B_COUNTER, 72)
    bass.line(20, B_BASS, 80, accents=(0.0, 2.0))
    drums.beat(20, BEAT, 66, 7)
    drums.beat(27, FILL, 68)

    pad.line(28, BREAK, 58)
    halo.line(28, BREAK_HALO, 66)
    harp.arpeggio(28, BREAK, (0, 2, 4, 6, 5, 3, 2, 1), 50)
    bells.line(28, "d6:1 a5:1 f6:2 | c6:1 f6:1 a6:2 | g6:1 f6:1 eb6:2 | e6:4", 64)
    bass.line(28, "g1:4 | c2:4 | eb2:4 | a1:4", 62)
    cymbal.play(31 * 4, 4, 60, 70)

    pad.line(32, A, 74)
    halo.line(32, A_HALO, 62)
    circle.arpeggio(32, A, circles, 60)
    flute.line(32, TUNE, 90)
    second.line(32, SECOND, 78)
    cello.line(32, COUNTER_HOME, 76)
    strings.line(32, A_HALO, 56)
    bass.line(32, BASS_HOME, 84, accents=(0.0, 2.0))
    drums.beat(32, BEAT, 72, 3)
    drums.beat(35, FILL, 70)
    drums.beat(36, BEAT, 72, 3)
    drums.beat(39, FILL, 72)
    drums.play(32 * 4, 1, 49, 44)

    pad.line(40, CODA, 64)
    halo.line(40, CODA_HALO, 58)
    circle.arpeggio(40, CODA, circles, 50)
    bells.line(40, CODA_BELLS, 62)
    cello.line(40, "a4:3 g4:1 | f4:4 | d4:4 | e4:4 | a4:3 g4:1 | f4:4 | eb4:4 | e4:4", 60)
    bass.line(40, CODA_BASS, 66)
    drums.beat(40, PULSE, 50, 4)
    return Score(90, 48, MUSIC, [pad, halo, circle, harp, bass, flute, second, strings, cello, bells, drums, cymbal])


SCORES = [maintheme01]
