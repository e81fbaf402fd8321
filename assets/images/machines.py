"""What the images of units, guns and shots share: the sides, the weapons, and how a piece of metal is drawn."""
INK = "#0A1022"
# By side: the shell where it is lit, its own colour, where it is turned away, its gleam, and its gaps. A floor under a light is
# about a twentieth as bright as white, and what stands on it must be seen by itself, without its line: so shells are light.
SIDES = {
    "Player": ("#9DFFDE", "#2EE6A6", "#1EC491", "#DCFFF2", "#0B4A3D"),
    "Enemy": ("#FFA396", "#FF5A5F", "#E2454F", "#FFE0D8", "#4A0E1A"),
    "Boss": ("#C4A0FF", "#A06BFF", "#7E4BDD", "#EFE4FF", "#251058"),
}
# By weapon: its colour, and the one it burns down to.
WEAPONS = {
    "Basic": ("#FFC94D", "#B5761C"), "Bounce": ("#7CC8FF", "#2E6FD0"), "Explosion": ("#FF9A3C", "#C23A14"),
    "Pierce": ("#F2F5FF", "#8FA0CC"), "Push": ("#C08CFF", "#6A3FC0"), "Swap": ("#FF8AD8", "#B4489A"), "Vacuum": ("#58E1FF", "#1E6FB8"),
}
HOT = "#FFF8E4"


def flip(path):
    """The mirror image of a path of absolute commands that take pairs of coordinates."""
    out, across = [], True
    for word in path.split():
        if word[0].isalpha():
            across = True
            out.append(word)
        else:
            out.append(f"{-float(word):g}" if across else word)
            across = not across
    return " ".join(out)


def part(shape, fill, width=7, more=""):
    """A piece with a dark outline."""
    return f'<path d="{shape}" fill="{fill}" stroke="{INK}" stroke-width="{width}" stroke-linejoin="round" {more}/>'


def pair(shape, fill, width=7):
    """A piece of the left side and its mirror image."""
    return part(shape, fill, width) + part(flip(shape), fill, width)


def facet(shape, fill, opacity=1.0):
    return f'<path d="{shape}" fill="{fill}" opacity="{opacity:.3g}"/>'


def line(shape, colour, width, opacity=1.0):
    return (f'<path d="{shape}" fill="none" stroke="{colour}" stroke-width="{width}" stroke-linecap="round" '
            f'stroke-linejoin="round" opacity="{opacity:.3g}"/>')


def dot(x, y, r, fill, opacity=1.0, more=""):
    return f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{max(0, r):.1f}" fill="{fill}" opacity="{opacity:.3g}" {more}/>'


def ring(r, colour, width, opacity=1.0):
    return f'<circle r="{max(0, r):.1f}" fill="none" stroke="{colour}" stroke-width="{max(0, width):.1f}" opacity="{opacity:.3g}"/>'


def stops(colours):
    """Stops of a gradient: (offset, colour) or (offset, colour, opacity)."""
    return "".join(f'<stop offset="{at}" stop-color="{colour}"' + (f' stop-opacity="{rest[0]:.3g}"' if rest else "") + "/>"
                   for at, colour, *rest in colours)


def ramp(name, start, end, *colours):
    """A gradient from one place to another, the same for both halves of a shell: the light comes from the upper left."""
    (x1, y1), (x2, y2) = start, end
    return (f'<linearGradient id="{name}" gradientUnits="userSpaceOnUse" x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}">{stops(colours)}'
            "</linearGradient>")


def glow(name, r, *colours, at=(0, 0)):
    """A round gradient."""
    return f'<radialGradient id="{name}" gradientUnits="userSpaceOnUse" cx="{at[0]}" cy="{at[1]}" r="{r}">{stops(colours)}</radialGradient>'


def star(points, outer, inner, turn=0.0):
    """The path of a star around the middle."""
    corners = []
    for k in range(points * 2):
        r = inner if k % 2 else outer
        a = math.pi * k / points - math.pi / 2 + turn
        corners.append(f"{r * math.cos(a):.1f} {r * math.sin(a):.1f}")
    return "M " + " L ".join(corners) + " Z"


def turned(degrees, drawn, at=(0, 0), size=1.0, opacity=1.0):
    """Something drawn around the middle, turned and put to a place."""
    return f'<g transform="translate({at[0]:.1f} {at[1]:.1f}) rotate({degrees:.1f}) scale({size:.3f})" opacity="{max(0, opacity):.3g}">{drawn}</g>'


def fireball(s, r, colour="#FF9A3C", burnt="#A8301A", turn=0.0):
    """A ball of fire that swells to about `r` and burns down while `s` goes from 0 to 1: its hot middle goes out first."""
    go, out = 1 - (1 - s) ** 2.2, ""
    for size, fill, start, end in ((1.0, "#2A1420", 0.12, 1.05), (0.92, burnt, 0.0, 0.92), (0.78, colour, 0.0, 0.76), (0.55, "#FFD98A", 0.0, 0.56), (0.34, HOT, 0.0, 0.4)):
        if not start <= s < end:
            continue
        shrink = size * (1 - s / end) ** 0.55
        for k in range(9):
            a, far = turn + k * 2.4, r * 0.62 * go * (0.35 + 0.65 * ((k * 4) % 9) / 8)
            out += dot(far * math.cos(a), far * math.sin(a), r * (0.3 + 0.05 * (k % 4)) * (0.55 + 0.45 * go) * shrink, fill)
        out += dot(0, 0, r * 0.5 * shrink, fill)
    return out


def sparks(count, near, far, s, size, fill, opacity=1.0, turn=0.0):
    """Sparks that fly from one distance to another: drops that point outwards."""
    out = ""
    for k in range(count):
        reach = near + (far - near) * (1 - (1 - s) ** 2) * (0.72 + 0.28 * ((k * 5) % 7) / 6)
        length, half = size * (2.6 - 1.6 * s), size * 0.5 * (1 - 0.6 * s)
        drop = f'<path d="M 0 {-length:.1f} L {half:.1f} 0 L 0 {half:.1f} L {-half:.1f} 0 Z" fill="{fill}"/>'
        a = turn + 360 / count * (k + 0.3 * (k % 2))
        out += turned(a, drop, (reach * math.sin(math.radians(a)), -reach * math.cos(math.radians(a))), 1, opacity)
    return out
