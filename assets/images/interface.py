"""What the images of the interface share: colours, lettering, plates and keys. Lengths are world units."""
INK = "#060A18"
PLATE, PLATE_TOP = "#10162E", "#1D2750"
EDGE, RIM = "#46557F", "#8FA0CC"
TEXT, SOFT = "#F2F5FF", "#B4C0E4"
ACCENT = "#FFC94D"
GREEN, RED, VIOLET = "#2EE6A6", "#FF5A5F", "#A06BFF"
WEAPONS = {"Basic": "#FFC94D", "Bounce": "#7CC8FF", "Explode": "#FF9A3C", "Pierce": "#F2F5FF", "Push": "#C08CFF",
           "Swap": "#FF8AD8", "Vacuum": "#58E1FF"}
SHADE = (f'<linearGradient id="plate" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="{PLATE_TOP}"/>'
         f'<stop offset="1" stop-color="{PLATE}"/></linearGradient>')


def write(x, y, words, size=28, colour=TEXT, bold=False, anchor="start", spacing=0):
    """A line of text; `y` is its baseline."""
    weight = "bold" if bold else "normal"
    words = words.replace("&", "&amp;").replace("<", "&lt;")
    return (f'<text x="{x}" y="{y}" font-family="Play" font-weight="{weight}" font-size="{size}" text-anchor="{anchor}" '
            f'letter-spacing="{spacing}" fill="{colour}">{words}</text>')


def paragraph(x, y, lines, size=28, colour=SOFT, leading=1.28):
    return "".join(write(x, y + k * size * leading, line, size, colour) for k, line in enumerate(lines))


def outline(x, y, width, height, cut):
    """The path of a rectangle whose upper left and lower right corners are cut off."""
    return f"M {x + cut} {y} H {x + width} V {y + height - cut} L {x + width - cut} {y + height} H {x} V {y + cut} Z"


def plate(x, y, width, height, cut=18, edge=EDGE, stroke=3, fill="url(#plate)", opacity=0.95):
    """A panel with a light rim from the upper left."""
    rim = f"M {x + 5} {y + height - 6} V {y + cut + 2} L {x + cut + 2} {y + 5} H {x + width - 6}"
    return (f'<path d="{outline(x, y, width, height, cut)}" fill="{fill}" fill-opacity="{opacity}" stroke="{edge}" '
            f'stroke-width="{stroke}" stroke-linejoin="round"/>'
            f'<path d="{rim}" fill="none" stroke="{RIM}" stroke-opacity="0.35" stroke-width="2"/>')


def heading(x, y, words, size=58, colour=TEXT):
    """A centred title between two accents."""
    half = len(words) * size * 0.36 + 26
    marks = "".join(f'<path d="M {x + side * half} {y - size * 0.36} l {side * 26} -13 v 26 Z" fill="{ACCENT}"/>' for side in (-1, 1))
    return write(x, y, words, size, colour, True, "middle", size * 0.08) + marks


def key(x, y, label, width=44, height=44, size=None):
    """A key of the keyboard, with its middle at a place."""
    size = size or height * 0.56
    left, top = x - width / 2, y - height / 2
    return (f'<rect x="{left}" y="{top}" width="{width}" height="{height}" rx="8" fill="#0A1022" stroke="{RIM}" stroke-width="2.5"/>'
            f'<rect x="{left + 4}" y="{top + 3}" width="{width - 8}" height="{height - 11}" rx="6" fill="#33426F"/>'
            + write(x, y - 3 + size * 0.35, label, size, TEXT, True, "middle"))


def mouse(x, y, height=48, pressed=False):
    """A mouse; pressed, its left button is lit."""
    width = height * 0.66
    left, top, half = x - width / 2, y - height / 2, height * 0.42
    button = f"M {x} {top} H {x - width * 0.08} Q {left} {top} {left} {top + half * 0.8} V {top + half} H {x} Z"
    return (f'<rect x="{left}" y="{top}" width="{width}" height="{height}" rx="{width * 0.46}" fill="#33426F" stroke="{RIM}" stroke-width="2.5"/>'
            + (f'<path d="{button}" fill="{ACCENT}" stroke="{INK}" stroke-width="1.5"/>' if pressed else "")
            + f'<path d="M {x} {top} V {top + half} M {left} {top + half} H {left + width}" stroke="{RIM}" stroke-width="2" fill="none"/>')
