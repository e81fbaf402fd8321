"""Renders a sound of assets/sounds into an Ogg file, for tools/render_sounds."""
import pathlib
import subprocess
import sys
import tempfile
import wave

import mido
import numpy as np

import loudness
from loudness import RATE

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "assets/sounds"))
import bosstheme  # noqa: E402
import effects  # noqa: E402
import endings  # noqa: E402
import leveltheme  # noqa: E402
import menutheme  # noqa: E402

SCORES = [score for module in (menutheme, bosstheme, leveltheme, endings) for score in module.SCORES]
SOUND_FONT = "/usr/share/sounds/sf2/FluidR3_GM.sf2"
TICKS = 480  # a quarter note
TAIL = 5.0  # seconds in which the last notes die away
CEILING = 0.79  # no sample of music is beyond: 1 dB is left for what the encoder adds
REACH = 220  # how many frames ahead the limiter gives way
RIDE, RIDE_SECONDS = 0.4, 3.0  # how much of a change of loudness is taken back, and how slowly
SUB = 120.0  # what is deeper has no sides (unit: hertz)
PAN, EXPRESSION, REVERB, CHORUS = 10, 11, 91, 93  # controllers


def control(channel, number, value):
    return mido.Message("control_change", channel=channel, control=number, value=round(value))


def swell_events(part, channel):
    """The part's own volume in steps of an eighth of a quarter note."""
    for time, length, first, last in part.swells:
        steps = max(round(length * 8), 1)
        for step in range(steps + 1):
            yield time + step / 8, 0, control(channel, EXPRESSION, first + (last - first) * step / steps)


def events(part, seconds, tempo):
    """The messages of a part as (time, order at that time, message)."""
    channel = 9 if part.program < 0 else 0
    yield 0, 0, control(channel, PAN, part.pan)
    yield 0, 0, control(channel, REVERB, part.reverb)
    yield 0, 0, control(channel, CHORUS, 0)
    if part.program >= 0:
        yield 0, 0, mido.Message("program_change", channel=channel, program=part.program)
    yield from swell_events(part, channel)
    for time, length, pitch, velocity in part.notes:
        yield time, 2, mido.Message("note_on", channel=channel, note=pitch, velocity=velocity)
        yield time + length, 1, mido.Message("note_off", channel=channel, note=pitch)
    yield seconds * tempo / 60, 3, control(channel, EXPRESSION, 127)  # without it the rendering ends with the last note


def write_midi(part, seconds, tempo, path):
    track, now = mido.MidiTrack([mido.MetaMessage("set_tempo", tempo=mido.bpm2tempo(tempo))]), 0
    in_order = sorted(events(part, seconds, tempo), key=lambda event: (round(event[0] * TICKS), event[1]))
    for time, _, message in in_order:
        track.append(message.copy(time=round(time * TICKS) - now))
        now = round(time * TICKS)
    file = mido.MidiFile(ticks_per_beat=TICKS)
    file.tracks.append(track)
    file.save(path)


def play_midi(path, count):
    """What the sound font makes of the first `count` frames of a file."""
    raw = path.with_suffix(".raw")
    subprocess.run(["fluidsynth", "-niq", "-T", "raw", "-O", "float", "-F", raw, "-r", str(RATE), "-g", "0.3",
                    "-o", "synth.dynamic-sample-loading=1", SOUND_FONT, path], check=True, stdout=subprocess.DEVNULL)
    played = np.fromfile(raw, dtype="<f4").reshape(-1, 2)[:count].astype(float)
    raw.unlink()
    return np.concatenate([played, np.zeros((count - len(played), 2))])


def band_pass(samples, low, high):
    """The samples without what is below `low` or above `high` hertz."""
    return loudness.filtered(samples, lambda pitch: 1 / (1 + (low / (pitch + 1e-9)) ** 4) / (1 + (pitch / high) ** 4))


def perform_part(part, tempo, count, path):
    """The first `count` frames of one part, at its loudness."""
    write_midi(part, count / RATE, tempo, path)
    samples = band_pass(play_midi(path, count), part.low, part.high)
    if part.mono:
        samples = np.repeat(samples.mean(axis=1, keepdims=True), 2, axis=1)
    return samples * 10 ** ((part.loudness - loudness.integrated(samples)) / 20)


def centre_the_bass(samples):
    """The samples with both channels alike below SUB."""
    middle, side = samples.mean(axis=1), (samples[:, 0] - samples[:, 1]) / 2
    side = band_pass(side[:, None], SUB, 1e9)[:, 0]
    return np.stack([middle + side, middle - side], axis=1)


def smooth(values, count):
    """The mean of `count` values from each on. It goes round."""
    total = np.cumsum(np.concatenate([[0.0], values, values[:count]]))
    return (total[count:count + len(values)] - total[:len(values)]) / count


def limit(samples):
    """The samples below the ceiling: the volume gives way before each peak and comes back after it.

    It goes round, so that a loop stays one.
    """
    wanted = np.minimum(1.0, CEILING / np.maximum(np.abs(samples).max(axis=1), 1e-9))
    lowest, reached = wanted, 1
    while reached < 2 * REACH:  # the lowest of the 2 * REACH frames from each frame on
        shift = min(reached, 2 * REACH - reached)
        lowest = np.minimum(lowest, np.roll(lowest, -shift))
        reached += shift
    gain = np.roll(smooth(smooth(lowest, REACH), REACH), 2 * REACH - 1)
    return samples * np.minimum(gain, wanted)[:, None]


def ride(samples):
    """The samples with loud and soft sections brought closer, as a slow hand on the fader would. It goes round."""
    power, count = (loudness.filtered(samples, loudness.weight) ** 2).sum(axis=1), round(RIDE_SECONDS * RATE)
    power = np.roll(smooth(smooth(power, count), count), count)
    return samples * ((power / power.mean()) ** (-RIDE / 2))[:, None]


def master(samples, wanted):
    """The samples at the wanted loudness, and below the ceiling."""
    gain = 1.0
    for _ in range(3):
        limited = limit(samples * gain)
        gain *= 10 ** ((wanted - loudness.integrated(limited)) / 20)
    return limit(samples * gain)


def mix(score, folder):
    """All parts of a score together, as long as it goes on before it comes again or has died away."""
    length, tail = round(score.bars * 4 * 60 / score.tempo * RATE), round(TAIL * RATE)
    samples = np.zeros((length + tail, 2))
    for part in score.parts:
        samples += perform_part(part, score.tempo, length + tail, folder / "part.mid")
    samples = centre_the_bass(samples)
    samples[length:] *= np.linspace(1.0, 0.0, tail)[:, None] ** 2
    if score.wraps:
        samples[:tail] += samples[length:]
        samples = ride(samples[:length])
    return samples


def write_wave(samples, path):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(samples.shape[1])
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.round(samples * 32767.0).astype("<i2").tobytes())


def encode(samples, quality, target, folder):
    """Writes an Ogg file, the same for the same samples, and returns its figures, in words."""
    target.parent.mkdir(parents=True, exist_ok=True)
    write_wave(samples, folder / "sound.wav")
    subprocess.run(["oggenc", "-Q", "-q", quality, "-s", "1", "-o", target, folder / "sound.wav"], check=True)
    return (f"{len(samples) / RATE:.2f} s, {loudness.integrated(samples):.1f} LUFS, peak {loudness.true_peak(samples):.1f} dB, "
            f"{target.stat().st_size // 1024 + 1} KB")


def make(name, target):
    """Renders the score or the effect of this name."""
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        for score in SCORES:
            if score.__name__ == name:
                written = score()
                return encode(master(mix(written, folder), written.loudness), "4", target, folder)
        for effect, peak in effects.PEAKS.items():
            if effect.__name__ == name:
                samples = effect()
                return encode((samples * peak / np.abs(samples).max())[:, None], "4", target, folder)
    sys.exit(f"{name} is neither a score nor an effect")
