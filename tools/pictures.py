"""Turns the sources of assets/pictures into the PNG files of Resources/Textures.

Called by tools/render_pictures; docs/pictures.md tells the format of the sources.
"""

import io
import math
import random
import re
import subprocess
import sys
from pathlib import Path

import numpy
from PIL import Image

SOURCES = Path("assets/pictures")
TARGETS = Path("Resources/Textures")
LIST = SOURCES / "pictures.txt"
LARGEST_SIDE = 4096

CODE = re.compile(r"<\?draw\n(.*?)\?>", re.S)
VALUE = re.compile(r"\{\{(.*?)\}\}", re.S)


def read_list():
    """Yields (name, source, width, height, frames) for each line of the list."""
    for line in LIST.read_text().splitlines():
        words = line.split("#")[0].split()
        if words:
            name, source, *numbers = words
            yield (name, source, *map(int, numbers))


def fill_in(text, name, frame, frames):
    """Replaces each {{expression}} of a source by its value of the picture `name` in this frame."""
    names = {
        "name": name,
        "frame": frame,
        "frames": frames,
        "t": frame / frames,
        "math": math,
        "random": random.Random(1),
    }
    for code in CODE.findall(text):
        exec(code, names)
    return VALUE.sub(lambda found: str(eval(found.group(1).strip(), names)), CODE.sub("", text))


def draw(svg, width, height):
    """Returns the picture of an SVG text as an array of height by width by RGBA."""
    png = subprocess.run(
        ["rsvg-convert", "-w", str(width), "-h", str(height), "-f", "png"],
        input=svg.encode(),
        stdout=subprocess.PIPE,
        check=True,
    ).stdout
    return numpy.array(Image.open(io.BytesIO(png)).convert("RGBA"))


def spread_colour(pixels, rings=4):
    """Gives empty pixels next to painted ones their neighbours' colour.

    The blend keeps colour and alpha apart, so without this the black of the
    empty pixels would show as a dark seam where the picture is scaled.
    """
    colour = pixels[..., :3].astype(float)
    known = pixels[..., 3] > 0
    for _ in range(rings):
        total = numpy.zeros_like(colour)
        count = numpy.zeros(known.shape)
        for down, right in ((0, 1), (0, -1), (1, 0), (-1, 0)):
            near = numpy.roll(known, (down, right), (0, 1))
            total += numpy.roll(colour * known[..., None], (down, right), (0, 1))
            count += near
        new = ~known & (count > 0)
        colour[new] = total[new] / count[new][:, None]
        known |= new
    pixels[..., :3] = numpy.rint(colour)
    return pixels


def make(name, source, width, height, frames=1):
    if width * frames > LARGEST_SIDE or height > LARGEST_SIDE:
        sys.exit(f"{name}: larger than {LARGEST_SIDE} pixels")
    text = (SOURCES / source).read_text()
    strip = [draw(fill_in(text, name, frame, frames), width, height) for frame in range(frames)]
    pixels = numpy.concatenate(strip, axis=1)
    if pixels[..., 3].min() == 255:
        picture = Image.fromarray(pixels[..., :3])
    else:
        picture = Image.fromarray(spread_colour(pixels))
    target = TARGETS / (name + ".png")
    target.parent.mkdir(parents=True, exist_ok=True)
    picture.save(target, optimize=True)
    print(f"{target}  {pixels.shape[1]}x{pixels.shape[0]}  {target.stat().st_size // 1024} KB")


def main(wanted):
    pictures = list(read_list())
    unknown = set(wanted) - {name for name, *_ in pictures}
    if unknown:
        sys.exit("not in the list: " + ", ".join(sorted(unknown)))
    for picture in pictures:
        if not wanted or picture[0] in wanted:
            make(*picture)
    area = sum(width * height * frames for _, _, width, height, frames in pictures)
    print(f"{len(pictures)} pictures, {area / 1e6:.2f} megapixels in all")


main(sys.argv[1:])
