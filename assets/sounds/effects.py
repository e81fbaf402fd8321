"""The effects of the game: each is a function that returns its samples at 44,100 a second, mono.

What a name sounds like: a shot is a falling zap, a bounce a glassy ping that climbs with each wall, a hit
a clank with weight, a push a thud, a death a burst that crackles out. All are short and dry.
"""
import numpy as np

RATE = 44100


def _time(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def _sweep(seconds, start, end, curve=1.0):
    """A sine whose pitch goes from `start` to `end` hertz."""
    t = _time(seconds)
    pitch = start + (end - start) * (t / seconds) ** curve
    return np.sin(2 * np.pi * np.cumsum(pitch) / RATE)


def _noise(seconds, low, high, seed):
    """Noise between two frequencies, with soft edges, its peak at 1."""
    count = int(seconds * RATE)
    spectrum = np.fft.rfft(np.random.RandomState(seed).standard_normal(count))
    pitch = np.fft.rfftfreq(count, 1 / RATE) + 1e-9
    spectrum *= 1 / (1 + (low / pitch) ** 4) / (1 + (pitch / high) ** 4)
    samples = np.fft.irfft(spectrum, count)
    return samples / np.abs(samples).max()


def _decay(seconds, half_life, attack=0.002):
    """A quick rise, then a fall to half in each `half_life`, with silence at the very end."""
    t = _time(seconds)
    shape = np.minimum(t / attack, 1.0) * 0.5 ** (t / half_life)
    return shape * np.minimum((seconds - t) / 0.01, 1.0)


def _struck(seconds, pitches, half_life):
    """A struck body: partials that die the faster the higher they are."""
    t = _time(seconds)
    sound = np.zeros(len(t))
    for number, pitch in enumerate(pitches):
        sound += np.sin(2 * np.pi * pitch * t + number) * 0.5 ** (t * (1 + number) / half_life) / (1 + number)
    return sound * _decay(seconds, seconds)


def _mix(*parts):
    """Parts as (delay in seconds, loudness, samples), one over the other."""
    end = max(int(delay * RATE) + len(samples) for delay, _, samples in parts)
    sound = np.zeros(end)
    for delay, loudness, samples in parts:
        begin = int(delay * RATE)
        sound[begin:begin + len(samples)] += loudness * samples
    return sound


def unit_fire():
    return _mix((0, 1.0, _sweep(0.32, 1500, 130, 0.45) * _decay(0.32, 0.06)),
                (0, 0.6, _sweep(0.25, 190, 50) * _decay(0.25, 0.07)),
                (0, 0.5, _noise(0.12, 1200, 7000, 1) * _decay(0.12, 0.02)))


def default_hit():
    return _mix((0, 0.9, _struck(0.45, [412, 655, 1033, 1710, 2390], 0.09)),
                (0, 1.0, _sweep(0.3, 170, 45) * _decay(0.3, 0.06)),
                (0, 0.7, _noise(0.1, 900, 9000, 2) * _decay(0.1, 0.015)))


def _bounce(pitch, seed):
    return _mix((0, 1.0, _struck(0.28, [pitch, pitch * 2.76, pitch * 5.4], 0.07)),
                (0, 0.3, _noise(0.03, 3000, 12000, seed) * _decay(0.03, 0.006)))


def bullet_bounce():
    return _bounce(784.0, 3)


def bullet_bounce1():
    return _bounce(880.0, 4)


def bullet_bounce2():
    return _bounce(1108.7, 5)


def bullet_bounce3():
    return _mix((0, 1.0, _bounce(1318.5, 6)), (0.05, 0.6, _bounce(1760.0, 7)))


def push_hit():
    return _mix((0, 1.0, _sweep(0.4, 140, 38, 0.6) * _decay(0.4, 0.1)),
                (0, 0.6, _noise(0.35, 150, 900, 8) * _decay(0.35, 0.06)),
                (0, 0.25, _struck(0.3, [233, 377, 610], 0.08)))


def unit_spawn():
    parts = [(0, 0.5, _sweep(0.7, 160, 640, 2.0) * _decay(0.7, 0.5, attack=0.35))]
    for number, pitch in enumerate([523.3, 659.3, 784.0, 1046.5, 1318.5]):
        parts.append((0.12 * number, 0.5, _struck(0.5, [pitch, pitch * 2.0, pitch * 3.01], 0.14)))
    return _mix(*parts)


def unit_death():
    crackle = np.random.RandomState(10)
    parts = [(0, 1.0, _noise(1.3, 30, 500, 9) * _decay(1.3, 0.2)),
             (0, 0.9, _sweep(0.8, 120, 28, 0.5) * _decay(0.8, 0.16)),
             (0, 0.6, _noise(0.3, 1000, 8000, 11) * _decay(0.3, 0.04))]
    for number in range(14):
        parts.append((0.1 + 0.9 * crackle.rand(), 0.35 * crackle.rand(),
                      _noise(0.05, 1500, 9000, 20 + number) * _decay(0.05, 0.008)))
    return _mix(*parts)


def tank_move():
    """Six legs and a motor; asked for again and again, it goes on without a seam."""
    parts = [(0, 0.35, np.sin(2 * np.pi * 70 * _time(0.6)) * np.sin(np.pi * _time(0.6) / 0.6) ** 0.5)]
    for number in range(6):
        pitch = 300 + 37 * (number * 5 % 6)
        parts.append((0.1 * number, 0.4, _struck(0.09, [pitch, pitch * 2.3], 0.02)))
        parts.append((0.1 * number, 0.3, _noise(0.04, 600, 4000, 40 + number) * _decay(0.04, 0.008)))
    return _mix(*parts)[:int(0.6 * RATE)]


def button_click():
    return _mix((0, 1.0, _struck(0.09, [1046.5, 1568.0], 0.03)), (0, 0.5, _noise(0.02, 2000, 9000, 12) * _decay(0.02, 0.004)))


# The loudest sample of each. Hits stand out; what is heard all the time keeps back.
PEAKS = {
    unit_fire: 0.55,
    default_hit: 0.8,
    bullet_bounce: 0.5,
    bullet_bounce1: 0.5,
    bullet_bounce2: 0.5,
    bullet_bounce3: 0.5,
    push_hit: 0.75,
    unit_spawn: 0.45,
    unit_death: 0.85,
    tank_move: 0.25,
    button_click: 0.4,
}
