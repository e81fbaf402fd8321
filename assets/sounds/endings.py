"""What ends a level. It is asked for again whenever it has ended, so each has a call and then lets go slowly."""
from notation import (BRASS, CELLO, CONTRABASS, DRUM_KIT, ENDING, FINGER_BASS, HORN, MUSIC_BOX, Part, STRINGS, Score, TIMPANI,
                      VIBRAPHONE, WARM_PAD)


def victory():
    """Won: the motif in major, and a long calm after it."""
    brass, low = Part(BRASS, -22, 54, low=180, reverb=60), Part(HORN, -25, 76, low=120, reverb=60)
    pad, bells = Part(WARM_PAD, -27, low=180, reverb=70), Part(VIBRAPHONE, -25, 86, low=250, reverb=70)
    bass, drums = Part(FINGER_BASS, -24, low=40, reverb=0, mono=True), Part(DRUM_KIT, -27, low=40, reverb=40)
    brass.line(0, "g4:0.5 d5:0.75 e5:0.25 d5:0.5 b4:0.5 d5:1.5 | c5:0.5 e5:0.5 g5:0.5 e5:0.5 f#5:1 a5:1 | g5:4", 92)
    low.line(0, "b3+d4:0.5 g4:0.75 g4:0.25 g4:0.5 d4+g4:0.5 g4:1.5 | e4+g4:2 d4+f#4:1 f#4:1 | d4+b4:4", 84)
    calm = "d4+g4+b4:4 | e4+g4+b4:4 | e4+g4+c5:4 | d4+g4+b4:4 | d4+g4+a4:2 d4+f#4+a4:2 | d4+g4+b4:4"
    pad.line(2, calm, 66)
    bells.line(2, "-:2 d6:0.5 b5:0.5 g5:0.5 d5:0.5", 66)
    bells.arpeggio(3, calm.partition(" | ")[2], (0, 1, 2, 3, 4, 3, 2, 1), 50)
    bells.line(8, "g5+b5+d6:4", 50)
    pad.line(8, "d4+g4+b4:4", 58)
    pad.swell(2, 2, 127, 110)
    pad.swell(4, 5, 110, 70)
    bells.swell(3, 6, 127, 80)
    bass.line(0, "g2:2.5 g2:1.5 | c2:2 d2:2 | g2:4 | e2:4 | c2:4 | b1:4 | d2:4 | g1:4 | g1:4", 80)
    bass.swell(2, 6, 120, 80)
    drums.beat(0, "snare x..x.xx.x...xxxx\nkick X...X...X...X...", 80)
    drums.beat(1, "snare X.......xxxxXXXX\nkick X...X...X...X...", 84)
    drums.play(0, 1, 49, 70)
    drums.play(8, 1, 49, 92)
    drums.play(8, 1, 36, 96)
    return Score(110, 9, ENDING, [brass, low, pad, bells, bass, drums], wraps=False)


def defeat():
    """Lost: the motif upside down, over a drum that stops."""
    horn, cello = Part(HORN, -22, 54, low=130, reverb=70), Part(CELLO, -23, 76, low=80, reverb=60)
    strings, deep = Part(STRINGS, -25, 64, low=180, reverb=80), Part(CONTRABASS, -25, low=40, reverb=20, mono=True)
    timpani, box = Part(TIMPANI, -27, low=45, reverb=60), Part(MUSIC_BOX, -28, 90, low=300, reverb=90)
    horn.line(0, "b4:1 e4:1.5 d#4:0.5 e4:1 | g4:3 e4:1 | a4:1 c5:1 b4:1 a4:1 | b4:2 d#4:2 | e4:4", 82)
    cello.line(0, "g3:2 b3:2 | c4:2 b3:2 | e4:2 c4:2 | f#4:2 a3:2 | g3:4 | c4:2 g3:2 | a3:4 | b3:2 a3:2 | g3:4", 78)
    strings.line(0, "e4+g4:4 | e4+g4:4 | e4+a4:4 | d#4+f#4:4", 68)
    strings.line(4, "e4+g4+b4:4 | e4+g4+c5:4 | e4+a4+c5:4 | d#4+f#4+a4:4 | e4+g4+b4:4", 68)
    strings.swell(4, 5, 120, 72)
    cello.swell(5, 4, 120, 80)
    deep.line(0, "e2:4 | c2:4 | a1:4 | b1:4 | e2:4 | c2:4 | a1:4 | b1:4 | e2:4", 78)
    deep.swell(5, 4, 120, 80)
    box.line(4, "-:2 b5:2 | c6:1 b5:1 g5:2 | -:2 c6:1 a5:1 | f#5:2 d#5:2 | e5:4", 66)
    for bar in range(5):
        timpani.play(bar * 4, 2, 40, 88 - 8 * bar)
        timpani.play(bar * 4 + 1.5, 1, 40, 70 - 8 * bar)
    return Score(80, 9, ENDING, [horn, cello, strings, deep, timpani, box], wraps=False)


SCORES = [victory, defeat]
