"""How loud a sound is to the ear: the integrated loudness of ITU-R BS.1770-4, and peaks between the samples.

Samples are arrays of frames by channels, 1 at full scale.
"""
import numpy as np

RATE = 44100
BLOCK, HOP = round(0.4 * RATE), round(0.1 * RATE)
ABSOLUTE_GATE = -70.0  # (unit: LUFS)
RELATIVE_GATE = -10.0  # below the loudness of what passes the absolute gate (unit: LU)
OVERSAMPLING = 4
PIECE, MARGIN = 1 << 16, 1 << 13  # how many frames are filtered at once, and how many beside them are heard with them


def filtered(samples, response):
    """The samples through a filter that forgets within the margin.

    `response` gives what the filter does to frequencies (unit: hertz). Piece by piece, since one transform of minutes of
    music takes long and gigabytes.
    """
    factor = response(np.fft.rfftfreq(PIECE, 1 / RATE))[:, None]
    step, result = PIECE - 2 * MARGIN, np.empty_like(samples)
    around = np.concatenate([np.zeros((MARGIN, samples.shape[1])), samples, np.zeros((PIECE, samples.shape[1]))])
    for start in range(0, len(samples), step):
        spectrum = np.fft.rfft(around[start:start + PIECE], axis=0)
        count = min(step, len(samples) - start)
        result[start:start + count] = np.fft.irfft(spectrum * factor, PIECE, axis=0)[MARGIN:MARGIN + count]
    return result


def second_order(feed_forward, feedback, pitch):
    """What a digital filter of second order does to frequencies."""
    z = np.exp(-2j * np.pi * pitch / RATE)
    return np.polyval(feed_forward[::-1], z) / np.polyval(feedback[::-1], z)


def head_filter():
    """A shelf of 4 dB above 1.7 kHz: what a head does to the sound around it."""
    k, quality, gain = np.tan(np.pi * 1681.974450955533 / RATE), 0.7071752369554196, 10 ** (3.999843853973347 / 20)
    middle, norm = gain ** 0.4996667741545416, 1 + k / quality + k * k
    forward = [gain + middle * k / quality + k * k, 2 * (k * k - gain), gain - middle * k / quality + k * k]
    return np.array(forward) / norm, np.array([norm, 2 * (k * k - 1), 1 - k / quality + k * k]) / norm


def low_cut():
    """What lies below 38 Hz hardly counts."""
    k, quality = np.tan(np.pi * 38.13547087602444 / RATE), 0.5003270373238773
    norm = 1 + k / quality + k * k
    return np.array([1.0, -2.0, 1.0]), np.array([norm, 2 * (k * k - 1), 1 - k / quality + k * k]) / norm


def weight(pitch):
    """How the ear weighs frequencies."""
    return second_order(*head_filter(), pitch) * second_order(*low_cut(), pitch)


def block_powers(samples):
    """The mean square of each block of 0.4 s, all channels together; a block begins every 0.1 s."""
    power = np.concatenate([[0.0], np.cumsum((filtered(samples, weight) ** 2).sum(axis=1))])
    starts = np.arange(0, max(len(samples) - BLOCK, 0) + 1, HOP)
    return (power[np.minimum(starts + BLOCK, len(samples))] - power[starts]) / BLOCK


def decibels(power):
    return -0.691 + 10 * np.log10(np.maximum(power, 1e-12))


def integrated(samples):
    """The loudness of the whole without its silences (unit: LUFS); -70 if it has nothing else."""
    powers = block_powers(samples)
    heard = powers[decibels(powers) > ABSOLUTE_GATE]
    if not len(heard):
        return ABSOLUTE_GATE
    return float(decibels(heard[decibels(heard) > decibels(heard.mean()) + RELATIVE_GATE].mean()))


def true_peak(samples):
    """The largest value between the samples too (unit: dB of full scale)."""
    size, margin, peak = 1 << 16, 256, 1e-9
    for start in range(0, len(samples), size):
        piece = samples[max(start - margin, 0):start + size + margin]
        spectrum = np.fft.rfft(piece, axis=0)
        fine = np.fft.irfft(spectrum, OVERSAMPLING * len(piece), axis=0) * OVERSAMPLING
        cut = OVERSAMPLING * margin if start else 0
        peak = max(peak, float(np.abs(fine[cut:OVERSAMPLING * (len(piece) - margin)]).max()))
    return 20 * np.log10(peak)
