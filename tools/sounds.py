"""Renders a sound of assets/sounds into an Ogg file, for tools/render_sounds."""
import pathlib
import subprocess
import sys
import tempfile
import wave

import mido
import numpy as np

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "assets/sounds"))
import effects  # noqa: E402
import scores  # noqa: E402

RATE = 44100
SOUND_FONT = "/usr/share/sounds/sf2/FluidR3_GM.sf2"
TICKS = 480  # a quarter note
TAIL = 4.0  # seconds in which the last notes die away
LOUDEST = 0.89


def write_midi(part, tempo, path):
    channel = 9 if part.program < 0 else 0
    events = [(0, 0, mido.Message("control_change", channel=channel, control=10, value=part.pan))]
    if part.program >= 0:
        events.append((0, 0, mido.Message("program_change", channel=channel, program=part.program)))
    for time, length, pitch, velocity in part.notes:
        begin, end = round(time * TICKS), round((time + length) * TICKS)
        events.append((begin, 2, mido.Message("note_on", channel=channel, note=pitch, velocity=velocity)))
        events.append((end, 1, mido.Message("note_off", channel=channel, note=pitch)))
    track, now = mido.MidiTrack([mido.MetaMessage("set_tempo", tempo=mido.bpm2tempo(tempo))]), 0
    for tick, _, message in sorted(events, key=lambda event: event[:2]):
        track.append(message.copy(time=tick - now))
        now = tick
    file = mido.MidiFile(ticks_per_beat=TICKS)
    file.tracks.append(track)
    file.save(path)


def read_wave(path):
    with wave.open(str(path)) as file:
        frames = np.frombuffer(file.readframes(file.getnframes()), dtype="<i2")
        return frames.reshape(-1, file.getnchannels()) / 32768.0


def write_wave(samples, path):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(samples.shape[1])
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.round(samples * 32767.0).astype("<i2").tobytes())


def high_pass(samples, low):
    """The samples without the frequencies below `low` hertz."""
    spectrum = np.fft.rfft(samples, axis=0)
    pitch = np.fft.rfftfreq(len(samples), 1 / RATE) + 1e-9
    spectrum /= 1 + (low / pitch[:, None]) ** 8
    return np.fft.irfft(spectrum, len(samples), axis=0)


def perform_part(part, tempo, count, folder):
    """The first `count` frames of one part, at its level."""
    write_midi(part, tempo, folder / "part.mid")
    subprocess.run(["fluidsynth", "-ni", "-F", folder / "part.wav", "-r", str(RATE), "-g", "0.4", SOUND_FONT,
                    folder / "part.mid"], check=True, stdout=subprocess.DEVNULL)
    played = read_wave(folder / "part.wav")
    samples = np.zeros((count, 2))
    samples[:min(len(played), count)] = played[:count]
    samples = high_pass(samples, part.low)
    heard = np.abs(samples).max(axis=1) > 1e-4
    return samples * part.level / np.sqrt((samples[heard] ** 2).mean())


def perform(score, folder):
    """The samples of a score, at its loudness."""
    length = round(score.length * 60 / score.tempo * RATE)
    tail = round(TAIL * RATE)
    samples = sum(perform_part(part, score.tempo, length + tail, folder) for part in score.parts)
    samples[length:] *= np.linspace(1.0, 0.0, tail)[:, None]
    if score.wraps:
        samples[:tail] += samples[length:]
        samples = samples[:length]
    samples *= score.loudness / np.sqrt((samples ** 2).mean())
    return np.tanh(samples / LOUDEST) * LOUDEST


def encode(samples, quality, target, folder):
    """Writes an Ogg file, the same for the same samples, and returns how long it lasts, in words."""
    target.parent.mkdir(parents=True, exist_ok=True)
    write_wave(samples, folder / "sound.wav")
    subprocess.run(["oggenc", "-Q", "-q", quality, "-s", "1", "-o", target, folder / "sound.wav"], check=True)
    return f"{len(samples) / RATE:.1f} s, {target.stat().st_size} bytes"


def make(name, target):
    """Renders the score or the effect of this name."""
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        for score in scores.SCORES:
            if score.__name__ == name:
                return encode(perform(score(), folder), "0.5", target, folder)
        for effect, peak in effects.PEAKS.items():
            if effect.__name__ == name:
                samples = effect()
                return encode((samples * peak / np.abs(samples).max())[:, None], "3", target, folder)
    sys.exit(f"{name} is neither a score nor an effect")
