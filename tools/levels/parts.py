"""The records that objects and their components are made of, as the files of a level hold them."""
import math

LIT = "light"  # the name of a shader other than "default"


def floats(values):
    return [float(value) for value in values]


def transform(at=(0, 0), size=(1, 1), turn=0, depth=1):
    """A Transform record of an object without a parent."""
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


def render(texture, tint=1, tile=False):
    return {
        "m_tile": tile,
        "m_visible": True,
        "m_zLayer": 0.0,
        "m_tex": texture,
        "m_hl_tex": texture,
        "m_colour": floats((tint, tint, tint, 1)),
        "m_shader": LIT,
    }


def model():
    """A single vertex: the renderer's own square."""
    return {"m_vertices": [[0.0, 0.0, 0.0, 0.0, 0.0, 255, 255, 255, 255]], "m_index_buffer": [0, 1, 3, 1, 2, 3]}


def body(kind):
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


def record(name, components, children=()):
    return {"name": name, "active": True, "components": list(components), **components, "Childs": list(children)}


def attached(parent, at, size, turn=0, follow=False):
    """The Transform record of a child, by its place and size in world units.

    `parent` is the Transform record that it hangs on. A child that follows turns with the parent; any other is
    only carried along.
    """
    out = transform(at, [own / of for own, of in zip(size, parent["m_world_scale"])], turn)
    out["m_world_scale"] = floats((*size, 1))
    out["m_rotate_with_parent"] = follow
    x, y = at
    if follow:
        angle = math.radians(parent["m_world_rotate"])
        x, y = x * math.cos(angle) - y * math.sin(angle), x * math.sin(angle) + y * math.cos(angle)
        out["m_world_rotate"] += parent["m_world_rotate"]
    out["m_world_pos"] = [parent["m_world_pos"][0] + x, parent["m_world_pos"][1] + y, 1.0]
    return out


def sprite(texture, visible=True, alpha=1, shader="default"):
    """The Render and iModel records of a picture that shines by itself."""
    own = {**render(texture), "m_visible": visible, "m_shader": shader}
    own["m_colour"] = [1.0, 1.0, 1.0, float(alpha)]
    return {"Render": own, "iModel": model()}


def animation(seconds=0.05, **sheets):
    """The StateC and Animation records; `sheets` gives (texture, frames) by the name of the state."""
    out = {"m_timer": 0.0, "m_currStep": 0.0}
    for state in ("spawn", "death", "once", "loop"):
        out[f"m_{state}_frames"] = sheets.get(state, ("", 0))[1]
    for state in ("spawn", "death", "once", "loop"):
        out[f"m_{state}"] = sheets.get(state, ("", 0))[0]
    out["m_time_per_frame"] = seconds
    return {"StateC": {"m_state": "default"}, "Animation": out}


def sounds(*names, kind="SFX", placed=True, volume=0.8):
    count = len(names)
    return {"AudioSource": {
        "sounds": sorted(names),
        "loop": [False] * count,
        "is_3D": [placed] * count,
        "start_play": [False] * count,
        "volume": [float(volume)] * count,
        "sound_type": [kind] * count,
    }}


def light(colour, strength, height=0):
    colour = floats(colour)
    return {"Light": {
        "m_active": True,
        "m_pos": [0.0, 0.0, float(height)],
        "m_diffuse": colour,
        "m_specular": colour,
        "m_ambient": colour,
        "m_diffuseStr": float(strength),
        "m_specularStr": 0.0,
        "m_ambientStr": 0.0,
    }}


def particles(pool, a_second, colours, sizes, *, seconds=0.4, force=900, looping=True, duration=3.0, arc=0):
    """Puffs that drift off the emitter's rim, along its angle when `arc` is 0, and fade."""
    start, end = (floats(colour) for colour in colours)
    first, last = (float(size) for size in sizes)
    return {"ParticleSystemC": {
        "m_duration": float(duration),
        "m_delay": 0.0,
        "m_max_distance": [0.0, 0.0],
        "m_lifetime_max": [seconds * 0.6, float(seconds)],
        "m_looping": looping,
        "m_prewarm": False,
        "m_start_force_mag": [force * 0.6, float(force)],
        "m_start_size": [[first * 0.7, first * 0.7, 1.0], [first, first, 1.0]],
        "m_start_force": [0.1, 0.1],
        "m_start_rot": [0.0, 0.0],
        "m_arc": float(arc),
        "m_start_color_min": start,
        "m_start_color_max": start,
        "m_emitter_num_particles": [a_second // 2, a_second],
        "m_particle_size": [[last, last, 1.0]] * 2,
        "m_particle_color_min": end,
        "m_particle_color_max": end,
        "m_num_of_particles": pool,
        "m_start_torque": [0.0, 0.0],
        "m_start_torque_mag": [0.0, 0.0],
        "particle_tex": "Particle_Glow",
    }}
