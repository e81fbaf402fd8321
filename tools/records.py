"""The records of objects and of their components, as the game's data files hold them: every key, in the game's order.

The makers of levels and of screens share these functions. A function that is named after a component returns the
value of that component's key; `sprite`, `animation`, `light`, `sounds` and `emitter` return whole entries, so that a
record is put together with `**`. Positions and sizes are world units, angles are degrees, colours are r, g, b from 0 to 1.
"""
import math

LIT = "light"  # the name of a shader other than "default"


def floats(values):
    return [float(value) for value in values]


def record(name, components, children=()):
    """An object; `components` gives the components' values by their class names, in the order of creation."""
    return {"name": name, "active": True, "components": list(components), **components, "Childs": list(children)}


def archetype(name, components):
    """A template without children: a record that does not say whether it is active."""
    out = record(name, components)
    del out["active"]
    return out


def transform(at=(0, 0), size=(1, 1), turn=0, depth=1):
    """The Transform of an object without a parent. `places.derive` gives those below others their place in the world."""
    place = floats((*at, depth))
    scale = floats((*size, 1))
    return {
        "m_pos": place,
        "m_scale": scale,
        "m_rotate": float(turn),
        "m_world_scale": scale,
        "m_world_rotate": float(turn),
        "m_world_pos": place,
        "m_rotate_with_parent": True,
    }


def attached(parent, at, size, turn=0, follow=False):
    """The Transform of a child, by its place and size in world units.

    `parent` is the parent's Transform. A child that follows turns with the parent; any other is only carried along.
    """
    out = transform(at, [own / of for own, of in zip(size, parent["m_world_scale"])], turn)
    out.update(m_world_scale=floats((*size, 1)), m_rotate_with_parent=follow)
    return out


def body(kind):
    """The RigidBody of a described thing: `mass`, `inertia`, `rest`, and optionally velocity and drags."""
    return {
        "m_vel": floats((*kind.get("velocity", (0, 0)), 0)),
        "m_accel": [0.0, 0.0, 0.0],
        "m_mass": float(kind["mass"]),
        "m_inertia": float(kind["inertia"]),
        "m_sleeper_vel": [0.0, 0.0, 0.0],
        "m_sleeper_rot_vel": 0.0,
        "m_drag": float(kind.get("drag", 0)),
        "m_angular_drag": float(kind.get("angular_drag", 0)),
        "m_rest": float(kind["rest"]),
    }


def corners(kind):
    """The corners of a regular polygon of side 1 or less around the middle, clockwise as those of boxes are."""
    count = kind["corners"]
    radius = kind.get("corner_radius", 0.5)
    first = kind.get("first_corner", 0)
    angles = (math.radians(first - 360 * k / count) for k in range(count))
    return [[round(radius * math.cos(a), 6) + 0.0, round(radius * math.sin(a), 6) + 0.0, 1.0] for a in angles]


def collider(kind):
    """The ColliderHolder of a described thing: `shape`, `category`, and the corners of a polygon."""
    out = {
        "m_active": True,
        "m_layer": 0,
        "m_collider_type": kind["shape"],
        "bitmask_category": kind.get("category", "Default"),
    }
    if kind["shape"] == "Polygon":
        out["collider_vertices"] = corners(kind)
    out.update(m_local_scale=[1.0, 1.0, 1.0], m_local_pos=[0.0, 0.0, 1.0], m_local_rot=0.0)
    return out


def render(texture, tint=1, tile=False, alpha=1):
    """The Render of a lit image; `tint` multiplies its colours, all alike or each by its own of three."""
    shares = tint if isinstance(tint, (list, tuple)) else (tint, tint, tint)
    return {
        "m_tile": tile,
        "m_visible": True,
        "m_zLayer": 0.0,
        "m_tex": texture,
        "m_hl_tex": texture,
        "m_colour": floats((*shares, alpha)),
        "m_shader": LIT,
    }


def shared_square():
    """The iModel of one vertex: it stands for the renderer's own square, which batches best."""
    return {"m_vertices": [[0.0, 0.0, 0.0, 0.0, 0.0, 255, 255, 255, 255]], "m_index_buffer": [0, 1, 3, 1, 2, 3]}


def own_square(aside=0, up=0):
    """The iModel of a unit square with vertices of its own; `aside` and `up` move it by so many of its widths and heights."""
    square = ((-0.5, 0.5, 0.0, 0.0), (0.5, 0.5, 1.0, 0.0), (0.5, -0.5, 1.0, 1.0), (-0.5, -0.5, 0.0, 1.0))
    return {
        "m_vertices": [[x + aside, y + up, 0.0, u, v, 255, 255, 255, 255] for x, y, u, v in square],
        "m_index_buffer": [0, 1, 3, 1, 2, 3],
    }


def square_at(where):
    """The iModel of a unit square that shows a single place of its texture, u and v from the upper left corner."""
    own = own_square()
    for vertex in own["m_vertices"]:
        vertex[3:5] = floats(where)
    return own


def sprite(texture, visible=True, alpha=1, shader="default", model=shared_square):
    """The Render and iModel of an image that needs no light."""
    own = {**render(texture), "m_visible": visible, "m_shader": shader}
    own["m_colour"] = [1.0, 1.0, 1.0, float(alpha)]
    return {"Render": own, "iModel": model()}


def animation(seconds=0.05, **sheets):
    """The StateC and Animation; `sheets` gives (texture, frames) by the name of the state."""
    out = {"m_timer": 0.0, "m_currStep": 0.0}
    for state in ("spawn", "death", "once", "loop"):
        out[f"m_{state}_frames"] = sheets.get(state, ("", 0))[1]
    for state in ("spawn", "death", "once", "loop"):
        out[f"m_{state}"] = sheets.get(state, ("", 0))[0]
    out["m_time_per_frame"] = seconds
    return {"StateC": {"m_state": "default"}, "Animation": out}


def sound(name, kind="SFX", volume=0.8, loop=False, placed=False, starts=False):
    """One sound of an AudioSource; see `audio_source`."""
    return {"sounds": name, "loop": loop, "is_3D": placed, "start_play": starts, "sound_type": kind, "volume": float(volume)}


def audio_source(*heard):
    """The AudioSource of these sounds, sorted as the game sorts them: a list for each of their properties."""
    in_order = sorted(heard, key=lambda own: own["sounds"])
    return {key: [own[key] for own in in_order] for key in heard[0]}


def sounds(*names, volume=0.8):
    """The AudioSource of effects that are heard from where their object is."""
    return {"AudioSource": audio_source(*(sound(name, volume=volume, placed=True) for name in names))}


def light(colour, strength, height=0, specular=0, ambient=0):
    """The Light that hangs `height` above its object."""
    colour = floats(colour)
    return {"Light": {
        "m_active": True,
        "m_pos": [0.0, 0.0, float(height)],
        "m_diffuse": colour,
        "m_specular": colour,
        "m_ambient": colour,
        "m_diffuseStr": float(strength),
        "m_specularStr": float(specular),
        "m_ambientStr": float(ambient),
    }}


def emitter(*, pool, a_second, lifetime, force, force_seconds, sizes, end_size, colours, end_colour, arc, texture, looping=True,
            duration=3):
    """The ParticleSystemC; of the plural values each particle draws its own between the two, at its birth."""
    return {"ParticleSystemC": {
        "m_duration": float(duration),
        "m_delay": 0.0,
        "m_max_distance": [0.0, 0.0],
        "m_lifetime_max": floats(lifetime),
        "m_looping": looping,
        "m_prewarm": False,
        "m_start_force_mag": floats(force),
        "m_start_size": [floats(size) for size in sizes],
        "m_start_force": [float(force_seconds)] * 2,
        "m_start_rot": [0.0, 0.0],
        "m_arc": float(arc),
        "m_start_color_min": floats(colours[0]),
        "m_start_color_max": floats(colours[1]),
        "m_emitter_num_particles": list(a_second),
        "m_particle_size": [floats(end_size)] * 2,
        "m_particle_color_min": floats(end_colour),
        "m_particle_color_max": floats(end_colour),
        "m_num_of_particles": pool,
        "m_start_torque": [0.0, 0.0],
        "m_start_torque_mag": [0.0, 0.0],
        "particle_tex": texture,
    }}


def puffs(pool, a_second, colours, sizes, *, seconds=0.4, force=900, looping=True, duration=3, arc=0, texture="Particle_Glow"):
    """A ParticleSystemC whose particles drift off the emitter's rim, along its angle when `arc` is 0, and fade.

    `colours` and `sizes` are those at birth and at the end of life.
    """
    start, end = colours
    first, last = sizes
    return emitter(pool=pool, a_second=(a_second // 2, a_second), lifetime=(seconds * 0.6, seconds), force=(force * 0.6, force),
                   force_seconds=0.1, sizes=((first * 0.7, first * 0.7, 1), (first, first, 1)), end_size=(last, last, 1),
                   colours=(start, start), end_colour=end, arc=arc, texture=texture, looping=looping, duration=duration)


def camera():
    """The Camera of a level, which shows one tile beyond the map's edges at most."""
    return {"m_offset": [0.0, 0.0, 0.0], "m_shakemag": 1.0, "m_xlimit": 1, "m_ylimit": 1}
