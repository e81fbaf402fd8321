"""Colours as eyes see them: contrast, colour-blind eyes, and how far two colours lie apart.

A colour is three channels r, g, b. A shown one is as the screen is sent it, from 0 to 1; a linear one is proportional to the
light that leaves the screen.
"""

# How strongly each channel of linear light is seen, by the sRGB standard.
SEEN = (0.2126, 0.7152, 0.0722)

# Linear light as eyes see it that lack a kind of cones: the full strength of the model of Machado, Oliveira and Fernandes, 2009.
EYES = {
    "usual": ((1, 0, 0), (0, 1, 0), (0, 0, 1)),
    "protanopia": ((0.152286, 1.052583, -0.204868), (0.114503, 0.786281, 0.099216), (-0.003882, -0.048116, 1.051998)),
    "deuteranopia": ((0.367322, 0.860646, -0.227968), (0.280085, 0.672501, 0.047413), (-0.011820, 0.042940, 0.968881)),
    "grey": (SEEN, SEEN, SEEN),
}

# Linear sRGB to XYZ, each row divided by the white of the screen.
XYZ = ((0.433953, 0.376219, 0.189828), (0.212639, 0.715169, 0.072192), (0.017756, 0.109473, 0.872771))


def to_linear(shown):
    """A channel of linear light; what is brighter than the screen can show is cut off, as the screen does."""
    shown = min(max(shown, 0.0), 1.0)
    return shown / 12.92 if shown <= 0.04045 else ((shown + 0.055) / 1.055) ** 2.4


def linear(colour):
    """The linear colour of a shown one."""
    return tuple(map(to_linear, colour))


def look(colour, eyes):
    """A linear colour as these eyes see it."""
    return tuple(min(max(sum(a * b for a, b in zip(row, colour)), 0.0), 1.0) for row in EYES[eyes])


def luminance(colour):
    """How bright a linear colour is: 0 for black, 1 for white."""
    return sum(a * b for a, b in zip(SEEN, colour))


def contrast(a, b):
    """The ratio of two luminances, 1 to 21, as the Web Content Accessibility Guidelines define it."""
    return (max(a, b) + 0.05) / (min(a, b) + 0.05)


def lab(colour):
    """Lightness from 0 to 100 and the two colour axes of CIE L*a*b*, of a linear colour."""
    def bend(share):
        return share ** (1 / 3) if share > 216 / 24389 else (24389 / 27 * share + 16) / 116
    x, y, z = (bend(sum(a * b for a, b in zip(row, colour))) for row in XYZ)
    return 116 * y - 16, 500 * (x - y), 200 * (y - z)


def distance(a, b):
    """How far two linear colours lie apart: about 2 can just be seen side by side, black and white lie 100 apart."""
    return sum((p - q) ** 2 for p, q in zip(lab(a), lab(b))) ** 0.5
