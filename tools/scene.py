"""The levels as the renderer shows them: their objects, their plates, and the light at a place.

For the tools that judge how the game looks. Places are world units, colours are those of tools/colours.py.
"""
import json
import math
import pathlib
import re
import subprocess
import typing

ROOT = pathlib.Path(__file__).resolve().parents[1]
LEVELS = ROOT / "Level Editor/Levels"
TEXTURES = ROOT / "Resources/Textures"

PLATE = "Tile_"  # begins the texture keys of the hull

# The light equation of Resources/Shaders/light.frag and the values that the device gives it.
BASE = 0.5  # of a sprite's own colour, without light
HEIGHT = 80  # of a light above its place
REACH = 300
EYE = 1303.5  # height of the eye above the middle of the screen
MATERIAL, SHINE = 0.5, 64


class Sprite(typing.NamedTuple):
    """An image as an object shows it."""

    texture: str
    size: tuple  # width and height in world units
    tint: tuple  # r, g, b, and alpha
    lit: bool
    frames: int  # of the texture

    @classmethod
    def of(cls, own, texture=None):
        """What an object record shows, or would show with another texture."""
        texture = texture or own["Render"]["m_tex"]
        return cls(texture, tuple(own["Transform"]["m_world_scale"][:2]), tuple(own["Render"]["m_colour"]),
                   own["Render"]["m_shader"] != "default", frame_counts(own).get(texture, 1))


class Light(typing.NamedTuple):
    """A light at its place, its three colours times their strengths."""

    place: tuple
    ambient: tuple
    diffuse: tuple
    specular: tuple

    @classmethod
    def of(cls, own):
        value = own["Light"]
        place = tuple(a + b for a, b in zip(value["m_pos"], own["Transform"]["m_world_pos"]))
        colours = (tuple(channel * value[f"m_{kind}Str"] for channel in value[f"m_{kind}"])
                   for kind in ("ambient", "diffuse", "specular"))
        return cls(place, *colours)


def walk(records):
    """All object records of a tree, parents first."""
    for own in records:
        yield own
        yield from walk(own["Childs"])


def read_objects(path):
    return json.loads(path.read_text())["GameObjFactory"]


def level_names():
    """The screens that are played, not the menu and the splash screen."""
    return sorted(path.name for path in LEVELS.iterdir() if re.fullmatch(r"Level\d\d", path.name))


def read_level(name):
    """All object records of a level, children too, but for its tiles."""
    return list(walk(read_objects(LEVELS / name / "Entity/Units.json")))


def read_plates(name):
    """The records of a level's floor: tiles of this kind that are larger than a cell of its map, and not the space around them."""
    cell = json.loads((LEVELS / name / f"Map/{name}.json").read_text())["TileSize"]
    return [own for own in read_objects(LEVELS / name / "Map/tiles.json")
            if own["Render"]["m_tex"].startswith(PLATE) and own["Transform"]["m_world_scale"][0] > cell]


def frame_counts(own):
    """The number of frames that an object's Animation gives its textures, by their keys."""
    steps = own.get("Animation", {})
    return {steps[f"m_{state}"]: steps[f"m_{state}_frames"] for state in ("spawn", "death", "once", "loop") if steps.get(f"m_{state}")}


def is_shown(own):
    return own.get("active", True) and ("Render" not in own or own["Render"]["m_visible"] and own["Render"]["m_colour"][3] > 0)


def lights(level):
    """The lights of a level's objects that shine from its start on."""
    return [Light.of(own) for own in level if "Light" in own and own["Light"]["m_active"] and is_shown(own)]


def unit(vector):
    length = sum(part * part for part in vector) ** 0.5 or 1.0
    return [part / length for part in vector]


def shine(shining, place):
    """What lights add up to at a place of the floor: a factor for a sprite's own colour, and a gloss on top of it."""
    glow, gloss = [BASE] * 3, [0.0] * 3
    for light in shining:
        path = [a - b for a, b in zip(light.place, (*place, 1))]
        near = max(1 - (path[0] ** 2 + path[1] ** 2) / REACH ** 2, 0) ** 2
        if near == 0:
            continue
        path[2] += HEIGHT
        to_light, to_eye = unit(path), unit((-place[0], -place[1], EYE - 1))
        mirrored = max(unit([a + b for a, b in zip(to_light, to_eye)])[2], 0) ** SHINE
        for i in range(3):
            glow[i] += near * (light.ambient[i] + light.diffuse[i] * max(to_light[2], 0))
            gloss[i] += near * mirrored * MATERIAL * light.specular[i]
    return glow, gloss


def convert(*arguments):
    return subprocess.run(["convert", *map(str, arguments)], check=True, stdout=subprocess.PIPE).stdout


def read_frames(texture, frames, size):
    """The frames of a texture, each in the size that it is shown in (unit: pixels)."""
    data = convert(*shrunk(texture, frames, size), "-depth", 8, "rgba:-")
    channels = [byte / 255 for byte in data]
    return cut(list(zip(*(channels[i::4] for i in range(4)))), frames, size)


def read_inner(texture, frames, size, rim):
    """For each pixel of the frames of read_frames: is it solid, and farther inside than `rim`?"""
    data = convert(*shrunk(texture, frames, size), "-alpha", "extract", "-threshold", "50%", "-morphology", "Erode", f"Disk:{rim}.5",
                   "-depth", 8, "gray:-")
    return cut([byte > 127 for byte in data], frames, size)


def shrunk(texture, frames, size):
    """The arguments by which ImageMagick reads the frames of a texture in a size."""
    return (TEXTURES / f"{texture}.png", "-crop", f"{frames}x1@", "+repage", "-resize", "{}x{}!".format(*whole(size)))


def whole(size):
    return [max(round(side), 1) for side in size]


def cut(values, frames, size):
    area = math.prod(whole(size))
    assert len(values) == area * frames, f"{frames} frames of {size} pixels have {area * frames} pixels in all, not {len(values)}"
    return [values[k * area:(k + 1) * area] for k in range(frames)]
