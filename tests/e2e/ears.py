"""Hears the game: lets OpenAL write what it mixes into a file, and measures the loudness there."""
import array
import pathlib
import sys

from driver import wait_until

RATE = 11025  # samples a second, of 2 bytes, one channel
HEADER = 100  # bytes at the most
LOUD = 300  # a sample of music or of a click is above this, of 32767
SILENT = 4
MOMENT = 0.6  # seconds of sound that a question is about

CONFIG = """[general]
drivers = wave
sample-type = int16
channels = mono
frequency = {rate}
[wave]
file = {file}
"""


class Ears:

    def __init__(self, directory):
        self.file = pathlib.Path(directory) / "heard.wav"
        self.config = pathlib.Path(directory) / "alsoft.conf"
        self.config.write_text(CONFIG.format(rate=RATE, file=self.file))

    def environment(self):
        """For the program that is to be heard."""
        return {"ALSOFT_CONF": str(self.config), "ALSOFT_DRIVERS": "wave"}

    def now(self):
        """How many samples have been heard."""
        return max(self.file.stat().st_size - HEADER, 0) // 2 if self.file.exists() else 0

    def loudest(self, start, end=None):
        """The largest sample between two times, each a number of samples."""
        data = self.file.read_bytes()[HEADER:]
        samples = array.array("h", data[:len(data) // 2 * 2][2 * start:None if end is None else 2 * end])
        if sys.byteorder == "big":
            samples.byteswap()
        return max((abs(sample) for sample in samples), default=0)

    def wait_for(self, seconds):
        """Waits until this much more has been heard; returns when it began."""
        start = self.now()
        wait_until(lambda: self.now() > start + seconds * RATE, "sound in the file")
        return start

    def wait_for_sound(self, what):
        wait_until(lambda: self.loudest(self.wait_for(MOMENT)) > LOUD, what)

    def wait_for_silence(self, what):
        wait_until(lambda: self.loudest(self.wait_for(MOMENT)) <= SILENT, what)
