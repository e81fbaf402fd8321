"""The scene of a level: what drifts in space, the plates of the floor, the walls, and what lies on the floor without a shape of
its own. Nothing here collides but the walls, which the game makes of the tiles in the middles of cells.
"""
import sys

from levels.hazards import hazard_records
from records import light, record, render, shared_square, sprite, transform

SPACE = " "  # the letter of a map where the station has no hull
REACH = 300  # of a light (unit: world units)
CLASSES = (0, 2, 4, 8)  # the renderer draws a sprite with others that as many lights reach, up to one of these numbers
# The sides of a cell: the letter, the steps to the cell beyond in columns and rows, and the turn of what hangs there.
SIDES = (("N", 0, -1, 180), ("E", 1, 0, 90), ("S", 0, 1, 0), ("W", -1, 0, -90))
RIBS, RIB_DEPTH, RIB_SHOWN = "Space_Ribs", 30, 22  # of the hull's underside; the rest of the depth lies under the wall
SHADE, SHADE_DEPTH = "Shade_Wall", 34  # of the shadow that a wall throws
LAMP_SIZE = 90
ZONES = ("damage", "rough")


def tile(texture, at, size, tint=1, turn=0, alpha=1):
    return record("tile", {
        "Transform": transform(at, size, turn),
        "Render": render(texture, tint, tile=True, alpha=alpha),
        "iModel": shared_square(),
    })


class Map:
    """The map of a level by its columns and rows, from the upper left cell on."""

    def __init__(self, level):
        self.level = level
        self.size, self.rows = level["map"]["tile_size"], level["map"]["rows"]
        self.left, self.top = -self.size * len(self.rows[0]) // 2, self.size * len(self.rows) // 2

    def at(self, column, row):
        """The letter of a cell; nothing beyond the map."""
        return self.rows[row][column] if 0 <= row < len(self.rows) and 0 <= column < len(self.rows[0]) else ""

    def is_wall(self, column, row):
        return self.at(column, row) in self.level["tiles"]

    def is_space(self, column, row):
        return self.at(column, row) == SPACE

    def is_floor(self, column, row):
        return self.at(column, row) not in ("", SPACE, *self.level["tiles"])

    def middle(self, column, row):
        return self.left + self.size // 2 + self.size * column, self.top - self.size // 2 - self.size * row

    def cells(self):
        return ((column, row) for row in range(len(self.rows)) for column in range(len(self.rows[0])))

    def below(self, at, size):
        """The letters of the cells that a square covers."""
        left, top = at[0] - size / 2 - self.left, self.top - at[1] - size / 2
        for row in range(int(top // self.size), int((top + size) // self.size)):
            yield from self.rows[row][int(left // self.size):int((left + size) // self.size)]


def tiles(level):
    """From the lowest to the uppermost. Within a layer those that equally many lights reach stand together, and of these
    those of one texture: the renderer draws such neighbours at once.
    """
    cells, lights = Map(level), [*light_places(level)]
    for layer in (space_tiles(level, cells), rib_tiles(cells), floor_tiles(level, cells), wall_tiles(level, cells)):
        yield from sorted(layer, key=lambda own: draw_group(own, lights))


def draw_group(own, lights):
    place, size = own["Transform"]["m_pos"], own["Transform"]["m_scale"]
    near = sum(distance(light, place, size) <= REACH for light in lights)
    is_space = own["Render"]["m_tex"].startswith("Space_Cloud")  # clouds lie in their order, below all else
    light_class = -1 if own["Render"]["m_shader"] == "default" else sum(near > bound for bound in CLASSES)
    return (not is_space, light_class, "" if is_space else own["Render"]["m_tex"])


def distance(light, place, size):
    """From a light to the nearest point of an upright rectangle."""
    dx, dy = (max(abs(light[k] - place[k]) - size[k] / 2, 0) for k in (0, 1))
    return (dx * dx + dy * dy) ** 0.5


def light_places(level):
    """Where lights are when the level begins."""
    yield from (own["at"] for own in (*level.get("lamps", []), *level.get("units", [])))
    for own in level.get("hazards", []):
        yield from (own["at"] for piece in hazard_records(own) if "Light" in piece)


def space_tiles(level, cells):
    """What drifts below the station. None may lie in the very middle of a cell, where the game would take it for a wall."""
    middles = {cells.middle(*cell) for cell in cells.cells()}
    for own in level.get("space", []):
        if tuple(own["at"]) in middles:
            sys.exit(f"{level['name']}: {own['texture']} lies in the middle of a cell, at {own['at']}, and would be a wall")
        size = own["size"] if isinstance(own["size"], list) else [own["size"]] * 2
        yield tile(own["texture"], own["at"], size, own.get("tint", 1), own.get("turn", 0), own.get("alpha", 1))


def rib_tiles(cells):
    """The ribs of the hull's underside, which stick out where a wall stands beside space."""
    out = cells.size / 2 + RIB_SHOWN - RIB_DEPTH / 2
    for column, row in cells.cells():
        if not cells.is_wall(column, row):
            continue
        x, y = cells.middle(column, row)
        for _, right, down, turn in SIDES:
            if cells.is_space(column + right, row + down):
                yield tile(RIBS, (x + out * right, y - out * down), (cells.size, RIB_DEPTH), 1.2, turn)


def floor_tiles(level, cells):
    """The plates, but for those below which there is space."""
    floor = level["floor"]
    size = floor["size"]
    left, bottom = floor["corner"]
    for row in range(floor["rows"]):
        for column in range(floor["columns"]):
            at = (left + size * (column + 0.5), bottom + size * (floor["rows"] - row - 0.5))
            if SPACE not in cells.below(at, size):
                yield tile(plate_texture(floor, column, row), at, (size, size), plate_tint(floor, column))


def plate_texture(floor, column, row):
    """By the letter of the plan; without one, plates of the mixture take turns without a pattern that meets the eye."""
    letter = floor["plan"][row][column] if "plan" in floor else "."
    if letter in floor.get("plates", {}):
        return floor["plates"][letter]
    mixture = floor["texture"] if isinstance(floor["texture"], list) else [floor["texture"]]
    return mixture[(column * 7 + row * 13 + column * row * 3 + column // 3) % len(mixture)]


def plate_tint(floor, column):
    """From the tint of the left edge to that of the right one."""
    tint = floor.get("tint", 1)
    left = tint if isinstance(tint, list) else [tint] * 3
    right = floor.get("tint_right", left)
    share = column / max(floor["columns"] - 1, 1)
    return [round(a + (b - a) * share, 3) for a, b in zip(left, right)]


def wall_tiles(level, cells):
    """A tile for each cell whose letter stands for one, joined to its neighbours."""
    for column, row in cells.cells():
        if cells.is_wall(column, row):
            kind = level["tiles"][cells.at(column, row)]
            yield tile(wall_texture(kind, cells, column, row), cells.middle(column, row), (cells.size, cells.size), kind.get("tint", 1))


def wall_texture(kind, cells, column, row):
    """A kind that joins names the textures of its joined cells after the sides at which the wall goes on."""
    sides = "".join(letter for letter, right, down, _ in SIDES if cells.is_wall(column + right, row + down))
    return f"{kind['joins']}_{sides}" if "joins" in kind and sides else kind["texture"]


def on_floor(level):
    """What lies on the floor, in the order in which it is drawn: paint, shadows, and the fixtures of the lights."""
    cells, lights = Map(level), [*light_places(level)]
    decals = [decal(own) for own in level.get("decals", [])]
    refuse_over_zones(level, decals)
    yield from sorted(decals, key=lambda own: draw_group(own, lights))
    if "shades" not in level or level["shades"]:
        yield from shades(cells)
    yield from (lamp(own) for own in level.get("lamps", []) if "look" in own)


def refuse_over_zones(level, decals):
    """Zones are drawn below all that lies on the floor, and a decal would dim them."""
    zones = [piece for own in level.get("hazards", []) if own.get("kind") in ZONES for piece in hazard_records(own)]
    for own in decals:
        if any(overlap(own, zone) for zone in zones):
            at = own["Transform"]["m_pos"][:2]
            sys.exit(f"{level['name']}: {own['Render']['m_tex']} at {at} lies over a zone that is to be seen")


def overlap(one, other):
    """Whether the squares of two records overlap, as if neither was turned."""
    (p, a), (q, b) = ((own["Transform"]["m_pos"], own["Transform"]["m_scale"]) for own in (one, other))
    return all(abs(p[k] - q[k]) < (a[k] + b[k]) / 2 for k in (0, 1))


def decal(own):
    size = own["size"] if isinstance(own["size"], list) else [own["size"]] * 2
    look = render(own["texture"], own.get("tint", 1.2), alpha=own.get("alpha", 1))
    if own.get("unlit"):
        look["m_shader"] = "default"
    return record("decal", {"Transform": transform(own["at"], size, own.get("turn", 0)), "Render": look, "iModel": shared_square()})


def shade(at, length, turn):
    return record("shade", {"Transform": transform(at, (length, SHADE_DEPTH), turn), **sprite(SHADE)})


def shades(cells):
    """The shadows that walls throw on the floor below them and to their right."""
    half, out = cells.size / 2, cells.size / 2 + SHADE_DEPTH / 2
    for first, last in runs(cells, 1, 0):
        (left, y), (right, _) = cells.middle(*first), cells.middle(*last)
        yield shade(((left + right) / 2, y - out), right - left + 2 * half, 0)
    for first, last in runs(cells, 0, 1):
        (x, top), (_, bottom) = cells.middle(*first), cells.middle(*last)
        yield shade((x + out, (top + bottom) / 2), top - bottom + 2 * half, 90)


def runs(cells, right, down):
    """The first and the last cell of each row of walls, to the right or downward, with floor below or to the right of it."""
    def throws(column, row):
        return cells.is_wall(column, row) and cells.is_floor(column + down, row + right)

    for column, row in cells.cells():
        if not throws(column, row) or throws(column - right, row - down):
            continue
        last = (column, row)
        while throws(last[0] + right, last[1] + down):
            last = (last[0] + right, last[1] + down)
        yield (column, row), last


def lamp(own):
    """A light, and its fixture if it has a look."""
    shine = light(own["colour"], own["strength"], own["height"], specular=0.1, ambient=0.14)
    if "look" not in own:
        return record("lamp", {"Transform": transform(own["at"]), **shine})
    side = own.get("size", LAMP_SIZE)
    return record("lamp", {"Transform": transform(own["at"], (side, side), own.get("turn", 0)), **sprite(own["look"]), **shine})


def bare_lamps(level):
    return (lamp(own) for own in level.get("lamps", []) if "look" not in own)
