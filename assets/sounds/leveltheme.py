"""The theme of a level: the duel."""
from notation import (CRYSTAL, DRUM_KIT, FINGER_BASS, HORN, MUSIC, OVERDRIVE, POLY_PAD, Part, REVERSE_CYMBAL, SAW_LEAD,
                      SQUARE_LEAD, STRINGS, SYNTH_BASS, SYNTH_BRASS, Score, VIBRAPHONE)

INTRO = "e4+g4+b4:4 | e4+g4+b4:4 | e4+g4+b4:4 | e4+g4+c5:2 d#4+f#4+a4:2"
A = "e4+g4+b4:4 | e4+g4+c5:4 | d4+g4+b4:4 | d4+f#4+a4:4 | e4+g4+b4:4 | e4+g4+c5:4 | e4+a4+c5:4 | d#4+f#4+a4+b4:4"
B = "e4+g4+c5:4 | d4+f#4+a4:4 | e4+g4+c5:4 | d4+f#4+a4:4 | e4+g4+c5:4 | d4+f#4+a4:4 | e4+g4+c5:4 | e4+f#4+b4:2 d#4+f#4+a4:2"
C = "e4+g4+b4:4 | e4+g4+b4:4 | f4+a4+c5:4 | e4+g4+b4:4 | e4+g4+b4:4 | d4+g4+b4:4 | c#4+e4+a4:4 | d#4+f#4+b4:4"
BREAK = ("g4+b4+d5:4 | e4+g4+c5:4 | g4+c5+e5:4 | f#4+a4+d5:4 | g4+b4+d5:4 | e4+g4+c5:4 | f#4+a4+c5+e5:4 | "
         "d#4+f#4+a4+b4:4")
BUILD = "e4+f#4+b4:4 | e4+f#4+a4:4 | e4+g4+c5:4 | d#4+f#4+a4+b4:4"

TUNE_HALF = ("e5:1 b5:1.5 c6:0.5 b5:1 | g5:1.5 a5:0.5 g5:1 e5:1 | d5:1 b5:1.5 a5:0.5 g5:1 | f#5:1.5 g5:0.5 a5:2 | "
             "e5:1 b5:1.5 c6:0.5 b5:1 | e6:1.5 d6:0.5 c6:1 g5:1 | a5:1 c6:1.5 b5:0.5 a5:1 | ")
TUNE = TUNE_HALF + "b5:1.5 a5:0.5 f#5:1 d#5:1"
TUNE_UP = TUNE_HALF + "b5:1 d#6:1 f#6:2"
SECOND = ("b4:1 g5:1.5 a5:0.5 g5:1 | e5:1.5 f#5:0.5 e5:1 c5:1 | b4:1 g5:1.5 f#5:0.5 d5:1 | d5:1.5 e5:0.5 f#5:2 | "
          "b4:1 g5:1.5 a5:0.5 g5:1 | c6:1.5 b5:0.5 g5:1 e5:1 | e5:1 a5:1.5 g5:0.5 e5:1 | f#5:1.5 f#5:0.5 d#5:1 b4:1")
COUNTER = ("b4:2 g4:1 b4:1 | c5:3 g4:1 | b4:2 d5:1 b4:1 | a4:1 b4:1 d5:2 | g4:1 b4:1 e5:2 | c5:2 e5:2 | e5:1 d5:1 c5:2 | "
           "d#5:2 b4:1 a4:1")
B_TUNE = ("a5:1 c6:2 e6:1 | d6:3 b5:1 | c6:1.5 b5:0.5 g5:2 | a5:2 f#5:2 | a5:1 c6:2 e6:1 | f#6:3 d6:1 | "
          "e6:1.5 d6:0.5 c6:2 | b5:2 a5:1 f#5:1")
B_COUNTER = ("-:1 e4:1 g4:1 a4:1 | f#4:2 d4:1 f#4:1 | -:1 g4:1 e4:1 c4:1 | d4:1 f#4:1 a4:1 d5:1 | -:1 e4:1 g4:1 c5:1 | "
             "a4:2 f#4:1 d4:1 | -:1 g4:1 a4:1 g4:1 | f#4:2 d#4:1 b3:1")
CALL = ("e4:0.5 e4:0.5 b4:0.5 c5:0.5 b4:1 g4:1 | -:2 e4:0.5 g4:0.5 a4:0.5 b4:0.5 | c5:0.5 c5:0.5 a4:0.5 f4:0.5 a4:2 | "
        "g4:1 e4:1 -:2 | e4:0.5 e4:0.5 b4:0.5 c5:0.5 b4:1 e5:1 | d5:1 b4:1 g4:0.5 a4:0.5 b4:0.5 d5:0.5 | "
        "c#5:1.5 e5:0.5 a5:2 | f#5:1 d#5:1 b4:2")
ANSWER = ("-:4 | e5:0.5 g5:0.5 b5:0.5 e6:0.5 -:2 | -:2 f5:0.5 a5:0.5 c6:0.5 f6:0.5 | -:2 e6:0.5 b5:0.5 g5:0.5 e5:0.5 | "
          "-:4 | -:4 | -:2 a5:0.5 c#6:0.5 e6:0.5 a6:0.5 | -:2 b6:0.5 f#6:0.5 d#6:0.5 b5:0.5")
SLOW_TUNE = "e5:2 b5:2 | c6:2 b5:2 | g5:4 | f#5:4 | e5:2 b5:2 | c6:2 e6:2 | c6:3 a5:1 | b5:4"
CLIMB = "b4:2 e5:2 | f#5:2 a5:2 | g5:2 c6:2 | b5:2 d#6:2"

INTRO_BASS = "e2 e2 e3 e2 e2 d2 e2 b1 | e2 e2 e3 e2 e2 d2 b1 d2 | e2 e2 e3 e2 e2 d2 e2 b1 | c2 c2 d2 d2 d#2 d#2 b1 d#2"
A_BASS = ("e2 e2 e3 e2 e2 d2 e2 b1 | c2 c2 c3 c2 c2 g2 e2 f#2 | g1 g1 g2 g1 g1 d2 b1 g1 | f#1 f#1 f#2 f#1 a1 d2 a1 d2 | "
          "e2 e2 e3 e2 e2 d2 e2 b1 | c2 c2 c3 c2 c2 g2 c2 b1 | a1 a1 a2 a1 a1 e2 a1 a#1 | b1 b1 b2 b1 d#2 b1 f#2 d#2")
B_BASS = ("a1 a1 a2 a1 a1 e2 g2 a1 | b1 b1 b2 b1 b1 f#2 a2 b1 | c2 c2 c3 c2 c2 g2 e2 c2 | d2 d2 d3 d2 d2 a2 f#2 d2 | "
          "a1 a1 a2 a1 a1 e2 g2 a1 | b1 b1 b2 b1 b1 f#2 a2 b1 | c2 c2 c3 c2 c2 g2 e2 c2 | b1 b1 b2 b1 b1 a1 f#1 d#2")
C_BASS = ("e2 e2 e3 e2 e2 g2 a2 b2 | e2 e2 e3 e2 b2 a2 g2 e2 | f2 f2 f3 f2 f2 c3 a2 f2 | e2 e2 e3 e2 e2 g2 f#2 d2 | "
          "e2 e2 e3 e2 e2 g2 a2 b2 | g2 g2 g1 g2 g2 d2 b1 g1 | a1 a1 a2 a1 c#2 a1 e2 a1 | b1 b1 b2 b1 d#2 f#2 a2 f#2")
BREAK_BASS = "e2:4 | c2:4 | a1:4 | b1:4 | e2:3 d2:1 | c2:4 | f#1:4 | b1:2 d#2:2"

TICK = """
kick   X.......X.......
hat    x.o.x.o.x.o.x.o.
"""
BEAT = """
kick   X..x..X...x.....
snare  ....X..o....X..o
hat    xoxoxoxoxoxoxoxo
"""
OPEN = """
kick   X..x..X...x...x.
snare  ....X..o....X...
hat    xoxoxoxoxoxoxo..
open   ..............x.
"""
RIDE = """
kick   X...x...X..x..x.
snare  ....X.......X..o
ride   x.x.x.x.x.x.x.x.
pedal  ....x.......x...
"""
FILL = """
kick   X..x..X.x...x...
snare  ....X...oxxX....
high   ............Xx..
mid    .............xX.
low    ..............xX
hat    x.x.x.x.........
"""
HALF = """
kick   X...............
rim    ........x.......
hat    x.o.o.o.x.o.o.o.
"""
ROLL = """
kick   X...X...X...X...
snare  x.x.x.x.xxxxxxxx
"""


def eight_bars(drums, bar, beat, velocity, fill=FILL):
    """Eight bars: a crash, a beat with a turn in its fourth bar, and a fill."""
    drums.play(bar * 4, 1, 49, velocity - 6)
    drums.beat(bar, beat, velocity, 7)
    drums.beat(bar + 7, fill, velocity)


def maintheme03():
    """A level: a bass that never rests, a tune that climbs, a riff that answers itself, and a breath before the return."""
    bass = Part(SYNTH_BASS, -20, low=38, high=5000, reverb=0, mono=True)
    finger = Part(FINGER_BASS, -26, low=60, reverb=0, mono=True)
    pad, strings = Part(POLY_PAD, -28, 52, low=220, reverb=60), Part(STRINGS, -23, 76, low=250, reverb=60)
    lead, second = Part(SAW_LEAD, -22, 60, low=250, high=9000, reverb=50), Part(SQUARE_LEAD, -27, 88, low=250, high=7000, reverb=50)
    stabs, guitar = Part(SYNTH_BRASS, -25, 40, low=180, reverb=40), Part(OVERDRIVE, -22, 56, low=130, high=7000, reverb=40)
    sparks, vibes = Part(CRYSTAL, -30, 100, low=400, reverb=70), Part(VIBRAPHONE, -26, 30, low=250, reverb=60)
    drums, cymbal = Part(DRUM_KIT, -19, low=35, reverb=20), Part(REVERSE_CYMBAL, -30, low=400, reverb=50)
    counter = Part(HORN, -25, 44, low=180, reverb=60)

    rush, offbeats = (0, 1, 2, 3, 2, 1, 3, 2), "-:1.5 {0}:0.5 -:1.5 {0}:0.5"

    def stab(bar, text, velocity):
        for number, own in enumerate(text.split("|")):
            names = own.split()[-1].partition(":")[0]
            stabs.line(bar + number, offbeats.format(names), velocity, hold=0.7, accents=(1.5,))

    bass.line(0, INTRO_BASS, 86, each=0.5, hold=0.85, accents=(0.0, 1.0))
    vibes.arpeggio(0, INTRO, rush, 50, step=0.25, hold=1.0)
    drums.beat(0, TICK, 74, 3)
    drums.beat(3, FILL, 80)
    cymbal.play(3 * 4, 4, 60, 80)

    bass.line(4, A_BASS, 90, each=0.5, hold=0.85, accents=(0.0, 1.0))
    pad.line(4, A, 62)
    lead.line(4, TUNE, 80, accents=(0.0, 1.0))
    stab(4, A, 72)
    eight_bars(drums, 4, BEAT, 88)

    bass.line(12, A_BASS, 94, each=0.5, hold=0.85, accents=(0.0, 1.0))
    finger.line(12, A_BASS, 88, each=0.5, hold=0.7)
    pad.line(12, A, 66)
    lead.line(12, TUNE_UP, 86, accents=(0.0, 1.0))
    strings.line(12, COUNTER, 78)
    sparks.arpeggio(12, A, rush, 48, step=0.25, shift=12, hold=1.0)
    stab(12, A, 76)
    eight_bars(drums, 12, OPEN, 92)

    bass.line(20, B_BASS, 94, each=0.5, hold=0.85, accents=(0.0, 1.0))
    pad.line(20, B, 70)
    strings.line(20, B_TUNE, 92)
    lead.line(20, B_TUNE, 66, shift=-12)
    counter.line(20, B_COUNTER, 80)
    vibes.arpeggio(20, B, rush, 52, shift=12, hold=1.2)
    eight_bars(drums, 20, RIDE, 94)

    bass.line(28, C_BASS, 98, each=0.5, hold=0.8, accents=(0.0, 1.0))
    finger.line(28, C_BASS, 92, each=0.5, hold=0.7)
    guitar.line(28, CALL, 92, hold=0.9, accents=(0.0, 2.0))
    stab(28, C, 84)
    vibes.line(28, ANSWER, 72)
    sparks.line(28, ANSWER, 60)
    eight_bars(drums, 28, OPEN, 96)

    bass.line(36, BREAK_BASS, 72)
    pad.line(36, BREAK, 64)
    vibes.line(36, SLOW_TUNE, 76)
    strings.line(36, BREAK, 56)
    sparks.arpeggio(36, BREAK, (0, 2, 1, 3), 46, step=0.5, shift=12)
    drums.beat(36, HALF, 66, 8)
    drums.play(36 * 4, 1, 49, 70)
    cymbal.play(43 * 4, 4, 60, 84)

    bass.line(44, " | ".join(["b1 b1 b1 b1 b1 b1 b1 b1"] * 4), 84, each=0.5, hold=0.7)
    pad.line(44, BUILD, 70)
    strings.line(44, CLIMB, 84)
    strings.swell(44, 4, 84, 127)
    vibes.arpeggio(44, BUILD, rush, 52, step=0.25, hold=1.0)
    drums.beat(44, TICK, 72, 2)
    drums.beat(46, ROLL, 72)
    drums.beat(47, ROLL, 92)
    cymbal.play(47 * 4, 4, 60, 96)

    bass.line(48, A_BASS, 98, each=0.5, hold=0.85, accents=(0.0, 1.0))
    finger.line(48, A_BASS, 94, each=0.5, hold=0.7)
    pad.line(48, A, 70)
    lead.line(48, TUNE, 94, accents=(0.0, 1.0))
    second.line(48, SECOND, 86, accents=(0.0, 1.0))
    strings.line(48, COUNTER, 84)
    sparks.arpeggio(48, A, rush, 52, step=0.25, shift=12, hold=1.0)
    stab(48, A, 82)
    eight_bars(drums, 48, OPEN, 98)

    bass.line(56, B_BASS, 98, each=0.5, hold=0.85, accents=(0.0, 1.0))
    finger.line(56, B_BASS, 94, each=0.5, hold=0.7)
    pad.line(56, B, 74)
    strings.line(56, B_TUNE, 98)
    lead.line(56, B_TUNE, 74, shift=-12)
    counter.line(56, B_COUNTER, 88)
    stab(56, B, 76)
    vibes.arpeggio(56, B, rush, 56, step=0.25, shift=12, hold=1.0)
    eight_bars(drums, 56, RIDE, 98)
    return Score(110, 64, MUSIC, [bass, finger, pad, strings, lead, second, stabs, guitar, sparks, vibes, drums, cymbal, counter])


SCORES = [maintheme03]
