"""Renders a source of assets/images into a PNG file, for tools/render_images.

docs/images.md describes the sources.
"""
import base64
import io
import math
import random
import re
import subprocess
import sys

import numpy
import PIL.Image

LARGEST_SIDE = 4096

CODE = re.compile(r"<\?draw\n(.*?)\?>", re.S)
VALUE = re.compile(r"\{\{(.*?)\}\}", re.S)

for font in ("Play", "Jura"):
    if not subprocess.run(["fc-list", font], stdout=subprocess.PIPE, check=True).stdout:
        sys.exit(f"the font {font} is missing")


def fill_in(entry, frame, folder, listed):
    """The SVG text of one frame: each {{expression}} of the source is replaced by its value."""

    def require(file):
        if file not in entry.further:
            sys.exit(f"{entry.name}: the list does not say that it is drawn from {file}")

    def read(file):
        require(file)
        return (folder / file).read_text()

    def embed(png, x, y, width, height, turn=0):
        return (f'<image transform="rotate({turn} {x} {y})" x="{x - width / 2}" y="{y - height / 2}" width="{width}" '
                f'height="{height}" xlink:href="data:image/png;base64,{base64.b64encode(png).decode()}"/>')

    def image(key, x, y, width, height, turn=0):
        """Another image, centred at a place; a sheet shows its first frame."""
        shown = listed[key]
        require(shown.source)
        pixels = draw(fill_in(shown, 0, folder, listed), round(width * 2), round(height * 2))
        file = io.BytesIO()
        PIL.Image.fromarray(pixels).save(file, "png")
        return embed(file.getvalue(), x, y, width, height, turn)

    def picture(file, x, y, width, height):
        """A PNG file, centred at a place."""
        require(file)
        return embed((folder / file).read_bytes(), x, y, width, height)

    names = {
        "name": entry.name,
        "further": entry.further,
        "frame": frame,
        "frames": entry.frames,
        "t": frame / entry.frames,
        "math": math,
        "random": random.Random(1),
        "read": read,
        "image": image,
        "picture": picture,
    }
    for file in entry.further:
        if file.endswith(".py"):
            exec(read(file), names)
    text = (folder / entry.source).read_text()
    for code in CODE.findall(text):
        exec(code, names)
    return VALUE.sub(lambda found: str(eval(found.group(1).strip(), names)), CODE.sub("", text))


def draw(svg, width, height):
    """Returns the image of an SVG text as an array of height by width by RGBA."""
    png = subprocess.run(
        ["rsvg-convert", "-w", str(width), "-h", str(height), "-f", "png"],
        input=svg.encode(),
        stdout=subprocess.PIPE,
        check=True,
    ).stdout
    return numpy.array(PIL.Image.open(io.BytesIO(png)).convert("RGBA"))


def spread_colour(pixels, rings=4):
    """Gives empty pixels next to painted ones their neighbours' colour.

    Textures are filtered without regard to alpha, so the black of the empty pixels would show as a dark seam where the image is
    scaled.
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


def make(image, folder, target, listed):
    """Renders the frames of an image side by side into a PNG file; returns the file's size in bytes.

    `folder` holds the sources, and `listed` all images by their names.
    """
    width, height, frames = image.width, image.height, image.frames
    if width * frames > LARGEST_SIDE or height > LARGEST_SIDE:
        sys.exit(f"{image.name}: larger than {LARGEST_SIDE} pixels")
    strip = [draw(fill_in(image, frame, folder, listed), width, height) for frame in range(frames)]
    pixels = numpy.concatenate(strip, axis=1)
    opaque = pixels[..., 3].min() == 255
    target.parent.mkdir(parents=True, exist_ok=True)
    PIL.Image.fromarray(pixels[..., :3] if opaque else spread_colour(pixels)).save(target, optimize=True)
    return target.stat().st_size
