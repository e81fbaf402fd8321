"""How the music is written down: notes, chords, patterns and drums as text.

One motif runs through all pieces: up a fifth, a step above, back, and down to the third. The menu sings it slowly in D
minor, a level drives it in E minor, the boss has it low in C minor, a victory turns it to major, a defeat upside down.

Times and lengths are quarter notes from the beginning of a piece, and a bar has four of them. Pitches are MIDI numbers (60
is middle C, "c4"), velocities go from 1 to 127.

    "d5:1 a5:2 bb5:1 | a5:3 f5:1"      notes and their lengths, a line at the end of each bar
    "-:2 f4+a4+c5:2"                   a rest, then a chord
    "e2 e2 e3 e2 | c2 c2 g2 c2"        notes without a length last as long as their line says
    "kick X...x...X.x....."            sixteenths of a bar: X loud, x ordinary, o soft
"""
import dataclasses

# General MIDI programs, counted from 0.
MUSIC_BOX, VIBRAPHONE, TUBULAR_BELLS = 10, 11, 14
OVERDRIVE, FINGER_BASS, FRETLESS, SYNTH_BASS = 29, 33, 35, 38
CELLO, CONTRABASS, TREMOLO, HARP, TIMPANI, STRINGS, CHOIR = 42, 43, 44, 46, 47, 48, 52
TROMBONE, HORN, BRASS, SYNTH_BRASS, CLARINET, PAN_FLUTE = 57, 60, 61, 62, 71, 75
SQUARE_LEAD, SAW_LEAD, WARM_PAD, POLY_PAD, SWEEP_PAD, CRYSTAL = 80, 81, 89, 90, 95, 98
TAIKO, REVERSE_CYMBAL = 116, 119
DRUM_KIT = -1

MUSIC = -16.0  # how loud every track is (unit: LUFS)
# A track plays at volume 0.6, what ends a level at 0.8: 2.5 dB more, so that both are heard about equally loud.
ENDING = -18.0

BAR = 4.0
STEPS = {"c": 0, "d": 2, "e": 4, "f": 5, "g": 7, "a": 9, "b": 11}
DRUMS = {"kick": 36, "rim": 37, "snare": 38, "hat": 42, "pedal": 44, "open": 46, "crash": 49, "ride": 51,
         "low": 43, "mid": 47, "high": 50, "shaker": 70}
STRENGTHS = {"X": 1.0, "x": 0.8, "o": 0.55}


def pitch(name):
    """The MIDI number of a note such as "c4", "f#3" or "bb5"."""
    letter, rest = name[0], name[1:]
    shift = rest.startswith("#") - rest.startswith("b")
    return 12 * (int(rest.lstrip("#b")) + 1) + STEPS[letter] + shift


def read_line(text, each=None):
    """The chords of a line as (time, length, pitches). Fails when a bar is not filled exactly."""
    time, chords = 0.0, []
    for number, bar in enumerate(text.split("|")):
        for word in bar.split():
            names, _, length = word.partition(":")
            length = float(length) if length else each
            if names != "-":
                chords.append((time, length, [pitch(name) for name in names.split("+")]))
            time += length
        if time != BAR * (number + 1):
            raise ValueError(f"bar {number + 1} ends after {time} quarter notes: {bar}")
    return chords


@dataclasses.dataclass
class Part:
    """One instrument and what it plays."""
    program: int  # General MIDI, counted from 0; -1 for the drums
    loudness: float  # of the part by itself (unit: LUFS), beside the others
    pan: int = 64  # 0 left, 127 right
    low: float = 30.0  # what is deeper is taken away (unit: hertz)
    high: float = 20000.0  # what is higher is taken away (unit: hertz)
    reverb: int = 40  # 0 none, 127 all
    mono: bool = False
    notes: list = dataclasses.field(default_factory=list)  # (time, length, pitch, velocity)
    swells: list = dataclasses.field(default_factory=list)  # (time, length, first, last), in 0 to 127

    def play(self, time, length, own_pitch, velocity):
        self.notes.append((time, length, own_pitch, max(1, min(127, round(velocity)))))

    def line(self, bar, text, velocity, each=None, shift=0, hold=0.97, accents=(0.0,)):
        """Plays a line from a bar on. Notes last `hold` of their length; those at `accents` within the bar are stressed."""
        for time, length, pitches in read_line(text, each):
            stress = 8 if time % BAR in accents else 0
            for own in pitches:
                self.play(bar * BAR + time, length * hold, own + shift, velocity + stress)

    def arpeggio(self, bar, text, order, velocity, step=0.5, shift=0, hold=1.5):
        """Breaks the chords of a line into single notes.

        `order` counts the notes of a chord from its lowest; beyond its highest they go on an octave above.
        """
        for time, length, pitches in read_line(text):
            for number in range(round(length / step)):
                octave, index = divmod(order[round(time % BAR / step + number) % len(order)], len(pitches))
                stress = 8 if number * step % 2 == 0 else 0
                self.play(bar * BAR + time + number * step, step * hold, pitches[index] + 12 * octave + shift, velocity + stress)

    def beat(self, bar, pattern, velocity, count=1):
        """Plays a bar of drums `count` times. A pattern has a row for each drum."""
        for row in pattern.strip().splitlines():
            name, steps = row.split()
            if len(steps) != 16:
                raise ValueError(f"{name} has {len(steps)} sixteenths")
            for number, step in enumerate(steps):
                if step != ".":
                    for repeat in range(count):
                        self.play((bar + repeat) * BAR + number / 4, 0.25, DRUMS[name], velocity * STRENGTHS[step])

    def swell(self, bar, count, first, last):
        """Makes the part louder or softer over `count` bars: 127 is as the velocities say. Holds until the next swell."""
        self.swells.append((bar * BAR, count * BAR, first, last))


@dataclasses.dataclass
class Score:
    tempo: int  # quarter notes a minute
    bars: int  # until the beginning may come again
    loudness: float  # (unit: LUFS)
    parts: list
    wraps: bool = True  # what still sounds at the end is heard over the beginning, for a loop without a seam
