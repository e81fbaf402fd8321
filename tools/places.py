"""Where objects stand in the world, as the game derives it of their own places and of those of their ancestors.

The game derives with numbers of 32 bits in each step, before anything looks, so a level that is loaded and saved has these
numbers and no others. Each operation here is rounded as the game rounds it.
"""
import math

from gamejson import single

PI = single(math.pi)


def derive(records, ancestors=()):
    """Writes the world fields of these records' Transforms, and of all below them. `ancestors` are the Transforms above, the
    nearest first.
    """
    for own in records:
        place = own.get("Transform")
        if place is not None:
            stand(place, ancestors)
        derive(own["Childs"], ancestors if place is None else (place, *ancestors))


def stand(place, ancestors):
    position, scale, turn = singles(place["m_pos"]), singles(place["m_scale"]), single(place["m_rotate"])
    for above in ancestors:
        scale = [single(own * of) for own, of in zip(scale, singles(above["m_scale"]))]
        if place["m_rotate_with_parent"]:
            position, turn = follow(position, turn, singles(above["m_pos"]), single(above["m_rotate"]))
        else:
            position = carry(position, singles(above["m_pos"]))
    place.update(m_world_scale=scale, m_world_rotate=turn, m_world_pos=position)


def follow(position, turn, above, angle):
    """A place that moves and turns with the ancestor at `above`, which has the angle `angle`."""
    cosine, sine = direction(angle)
    own_cosine, own_sine = direction(turn)
    both = math.atan2(total(sine * own_cosine, cosine * own_sine), total(cosine * own_cosine, -sine * own_sine))
    x, y, z = position
    moved = [total(cosine * x, -sine * y, above[0]), total(sine * x, cosine * y, above[1]), z]
    return moved, single(single(single(both) * 180.0) / PI)


def total(*parts):
    """The sum from zero, so that it is never the negative zero."""
    out = 0.0
    for part in parts:
        out = single(out + single(part))
    return out


def carry(position, above):
    """A place that moves with the ancestor at `above`, but does not turn. Its depth becomes 1."""
    return [single(position[0] + above[0]), single(position[1] + above[1]), 1.0]


def direction(angle):
    """Cosine and sine of an angle."""
    radians = single(single(angle * PI) / 180.0)
    return single(math.cos(radians)), single(math.sin(radians))


def singles(values):
    return [single(value) for value in values]
