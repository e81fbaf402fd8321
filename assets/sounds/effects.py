"""The effects of the game: each is a function that returns its samples at 44,100 a second, mono.

Each is built of layers: a transient of a few milliseconds, a body whose pitch falls, and noise that darkens as it dies away.
All are short and dry. A shot is a kick and a hiss, a bounce a shard of glass that grows more urgent with each wall, a hit a clank
with weight, a push a blow without ring, a birth a shimmer, a death a crash in many pieces.
"""
import numpy as np

RATE = 44100


def _time(seconds):
    return np.arange(round(seconds * RATE)) / RATE


def _tone(pitch):
    """A sine whose pitch (unit: hertz) is given for every sample."""
    return np.sin(2 * np.pi * np.cumsum(pitch) / RATE)


def _drop(seconds, start, end, half_life):
    """A sine that falls from `start` towards `end` hertz, half of what is left in each `half_life`."""
    return _tone(end + (start - end) * 0.5 ** (_time(seconds) / half_life))


def _noise(seconds, low, high, seed):
    """Noise between two frequencies, with soft edges, its peak at 1. Its end goes over into its beginning."""
    count = round(seconds * RATE)
    spectrum = np.fft.rfft(np.random.RandomState(seed).standard_normal(count))
    pitch = np.fft.rfftfreq(count, 1 / RATE) + 1e-9
    samples = np.fft.irfft(spectrum / (1 + (low / pitch) ** 4) / (1 + (pitch / high) ** 4), count)
    return samples / np.abs(samples).max()


def _decay(seconds, half_life, attack=0.001):
    """A quick rise, then a fall to half in each `half_life`, with silence at the very end."""
    t = _time(seconds)
    return np.minimum(t / attack, 1.0) * 0.5 ** (t / half_life) * np.minimum((seconds - t) / 0.01, 1.0)


def _hit(seconds, low, high, half_life, seed):
    """Noise that is struck: bright at first, then ever darker."""
    bright, dark = _noise(seconds, low, high, seed), _noise(seconds, low, (low + high) / 6, seed + 1000)
    return 0.5 * bright * _decay(seconds, half_life / 3) + 0.7 * dark * _decay(seconds, half_life)


def _struck(seconds, pitches, half_life, fall=0.04, detune=0.006):
    """A struck body: pairs of partials slightly apart, that sink by `fall` and die the faster the higher they are."""
    t, sound = _time(seconds), np.zeros(round(seconds * RATE))
    bend = 1 - fall * (1 - 0.5 ** (t / 0.05))
    for number, pitch in enumerate(pitches):
        pair = _tone(pitch * bend) + 0.8 * _tone(pitch * (1 + detune) * bend)
        sound += pair * 0.5 ** (t * (1 + 0.7 * number) / half_life) / (1 + number)
    return 0.5 * sound * _decay(seconds, seconds)


def _grains(seconds, count, low, high, seed, size=0.03):
    """Crackling: short bursts of noise, thinning out."""
    chance, sound = np.random.RandomState(seed), np.zeros(round(seconds * RATE))
    for number in range(count):
        begin = int((seconds - 1.5 * size) * chance.rand() ** 1.8 * RATE)
        burst = _noise(size, low, high, seed + number) * _decay(size, size / 6)
        sound[begin:begin + len(burst)] += burst * (0.3 + 0.7 * chance.rand()) * (1 - begin / len(sound))
    return sound


def _mix(*layers):
    """Layers as (delay in seconds, loudness, samples), one over the other."""
    end = max(round(delay * RATE) + len(samples) for delay, _, samples in layers)
    sound = np.zeros(end)
    for delay, loudness, samples in layers:
        begin = round(delay * RATE)
        sound[begin:begin + len(samples)] += loudness * samples
    return sound


def _press(sound, drive):
    """The sound driven into soft saturation: louder and rougher at the same peak. Its mean is taken away first."""
    centred = sound - sound.mean()
    return np.tanh(centred * drive / np.abs(centred).max())


def unit_fire():
    zap = _drop(0.2, 1150, 130, 0.022) + 0.7 * _drop(0.2, 1230, 138, 0.022)
    return _press(_mix((0, 0.9, _noise(0.012, 1500, 12000, 1) * _decay(0.012, 0.002)),
                       (0, 0.8, _drop(0.34, 290, 46, 0.018) * _decay(0.34, 0.05)),
                       (0, 0.35, zap * _decay(0.2, 0.03)),
                       (0.004, 1.5, _hit(0.3, 1400, 12000, 0.055, 2))), 1.8)


def default_hit():
    return _press(_mix((0, 1.2, _noise(0.015, 2000, 13000, 3) * _decay(0.015, 0.003)),
                       (0, 0.9, _drop(0.35, 230, 44, 0.025) * _decay(0.35, 0.055)),
                       (0.002, 0.9, _struck(0.5, [412, 655, 1033, 1710, 2390], 0.08)),
                       (0, 1.3, _hit(0.3, 900, 10000, 0.04, 4)),
                       (0.05, 0.7, _grains(0.3, 7, 2500, 9000, 5))), 2.0)


def _shard(pitch, urgency, seed):
    """A shot that glances off: the more urgent, the rougher, the brighter and the longer."""
    rings = [pitch, pitch * 1.506, pitch * 2.76, pitch * 4.13]
    return _mix((0, 1.2, _noise(0.01, 2500, 9000 + 3000 * urgency, seed) * _decay(0.01, 0.002)),
                (0, 0.55, _drop(0.12, pitch / 2, pitch / 8, 0.02) * _decay(0.12, 0.025)),
                (0.001, 0.8, _struck(0.2 + 0.05 * urgency, rings, 0.04 + 0.012 * urgency, fall=0.16, detune=0.012 + 0.012 * urgency)),
                (0, 0.7 + 0.2 * urgency, _hit(0.16, 1200, 8000, 0.025, seed + 1)))


def bullet_bounce():
    return _press(_shard(620.0, 0, 10), 1.4)


def bullet_bounce1():
    return _press(_shard(830.0, 1, 20), 1.6)


def bullet_bounce2():
    return _press(_mix((0, 1.0, _shard(1110.0, 2, 30)), (0.045, 0.45, _shard(1180.0, 1, 32))), 2.0)


def bullet_bounce3():
    return _press(_mix((0, 1.0, _shard(1480.0, 3, 40)), (0.04, 0.7, _shard(1660.0, 3, 42)), (0.085, 0.5, _shard(1860.0, 3, 44)),
                       (0, 0.6, _drop(0.25, 420, 60, 0.04) * _decay(0.25, 0.05))), 2.6)


def push_hit():
    return _press(_mix((0, 1.1, _noise(0.012, 800, 6000, 50) * _decay(0.012, 0.003)),
                       (0, 1.2, _drop(0.55, 165, 36, 0.045) * _decay(0.55, 0.11)),
                       (0, 2.2, _hit(0.45, 110, 4200, 0.09, 51)),
                       (0.004, 0.7, _struck(0.4, [173, 281, 437, 690], 0.07, fall=0.1))), 2.6)


def unit_spawn():
    """Light that gathers: rising steps of pairs that beat against each other, under a glitter."""
    t = _time(0.95)
    rise = _hit(0.95, 1200, 9000, 2.0, 60) * np.minimum(t / 0.5, 1.0) ** 2 * np.minimum((0.95 - t) / 0.4, 1.0)
    layers = [(0, 0.25, rise), (0, 0.35, _tone(150 + 330 * (t / 0.95) ** 2) * np.minimum(t / 0.3, 1.0) * _decay(0.95, 0.4))]
    for number, pitch in enumerate([440.0, 659.3, 880.0, 1318.5, 1760.0]):
        layers.append((0.09 * number, 0.5, _struck(0.5, [pitch, pitch * 2.0, pitch * 3.01], 0.13, fall=-0.015, detune=0.011)))
    chance = np.random.RandomState(61)
    for number in range(16):
        pitch = 1760.0 * 2 ** (chance.choice([0, 3, 5, 7, 10, 12, 15]) / 12)
        layers.append((0.15 + 0.6 * chance.rand(), 0.16, _struck(0.18, [pitch, pitch * 1.5], 0.03, fall=0.02, detune=0.02)))
    sound = _press(_mix(*layers), 1.3)
    return sound * np.minimum(_time(len(sound) / RATE) / 0.05, 1.0)  # six of them begin with the click that begins a level


def unit_death():
    """A blast, the shell that breaks, what falls down, and a second blast from inside."""
    chance = np.random.RandomState(70)
    layers = [(0, 0.7, _noise(0.02, 1500, 13000, 71) * _decay(0.02, 0.004)),
              (0, 1.1, _drop(1.2, 140, 27, 0.09) * _decay(1.2, 0.2)),
              (0, 1.8, _hit(1.3, 90, 9000, 0.2, 72)),
              (0.17, 1.3, _hit(0.8, 150, 7000, 0.12, 73)),
              (0.17, 0.6, _drop(0.6, 190, 40, 0.05) * _decay(0.6, 0.1)),
              (0.05, 1.6, _grains(1.3, 40, 1500, 10000, 80))]
    for number in range(11):
        pitch = 300 * 2 ** (2.6 * chance.rand())
        layers.append((0.02 + 0.8 * chance.rand() ** 1.5, 0.3 - 0.015 * number,
                       _struck(0.35, [pitch, pitch * 1.71, pitch * 2.43], 0.05, fall=0.12, detune=0.02)))
    return _press(_mix(*layers), 1.9)


def tank_move():
    """Six legs and a motor. Everything in it goes round in half a second, and it is softest where it begins and ends.

    It is asked for in every step and starts again when it has ended, which on a real device leaves a gap of up to a
    step. Half a second is thirty steps, and the gap falls between two beats of the legs.
    """
    t = _time(0.5)
    beat = np.sin(np.pi * 10 * t) ** 2  # five in half a second
    wobble = 0.6 * np.sin(2 * np.pi * 4 * t)
    motor = sum(np.sin(2 * np.pi * 46 * number * t + number * wobble) / number for number in range(1, 9))
    legs = _noise(0.5, 400, 2600, 90) * np.sin(np.pi * 10 * t) ** 12
    wind = _noise(0.5, 120, 700, 91)
    return 0.45 * motor * (0.12 + 0.88 * beat) + 0.9 * legs + 0.35 * wind * (0.1 + 0.9 * beat)


def button_click():
    return _press(_mix((0, 0.8, _noise(0.008, 3000, 14000, 95) * _decay(0.008, 0.0012, attack=0.0003)),
                       (0, 0.7, _drop(0.06, 2600, 1250, 0.006) * _decay(0.06, 0.007)),
                       (0, 0.5, _drop(0.06, 420, 180, 0.01) * _decay(0.06, 0.01)),
                       (0.022, 0.3, _noise(0.006, 3500, 14000, 96) * _decay(0.006, 0.001, attack=0.0003))), 1.5)


# The loudest sample of each. Hits stand out from the music, whose loudest is 0.79; what is heard all the time keeps back.
PEAKS = {
    unit_fire: 0.7,
    default_hit: 0.78,
    bullet_bounce: 0.6,
    bullet_bounce1: 0.64,
    bullet_bounce2: 0.66,
    bullet_bounce3: 0.66,
    push_hit: 0.78,
    unit_spawn: 0.18,  # six units are born in the same step
    unit_death: 0.78,
    tank_move: 0.5,
    button_click: 0.45,
}
