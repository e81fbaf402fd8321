"""Hazards: the things that hurt or hinder units, and the cover that they hide behind."""
import math
import sys

from records import animation, attached, body, collider, light, puffs, record, render, shared_square, sprite, transform

INFALL_SLANT = 38  # how far beside the middle of a hole the sparks aim that fall into it (unit: degrees)


def place(own, side, turn=0):
    size = own.get("size", [side, side])
    return {"Transform": transform(own["at"], size, own.get("turn", turn))}


def shape(kind, category, part=1.0):
    return {"ColliderHolder": {**collider({"shape": kind, "category": category}), "m_local_scale": [part, part, 1.0]}}


def infall(parent, count=6):
    """Emitters around a hole that throw sparks aslant towards its rim, so that they fall in a spiral."""
    size = parent["m_world_scale"][0]
    for k in range(count):
        angle = 360 / count * k
        at = [size * 0.62 * side for side in (math.cos(math.radians(angle)), math.sin(math.radians(angle)))]
        yield record("infall", {
            "Transform": attached(parent, at, (1, 1), (angle + 180 - INFALL_SLANT) % 360),
            **puffs(6, 8, ((1.5, 1.2, 2.0, 0.3), (1.8, 1.6, 2.0, 0.9)), (16, 5), seconds=0.9, force=size * 7),
        })


def black_hole(own):
    at = place(own, 180)
    return record("EnvBlackhole", {
        **at,
        **sprite("Sheet_Env_Blackhole"),
        **animation(0.06, loop=("Sheet_Env_Blackhole", 10)),
        **light((0.45, 0.6, 1.0), 0.25, 20),
        "EnvironmentBlackhole": {"m_suction_force": float(own.get("force", 4)), "m_suction_range": float(own.get("range", 220))},
        **shape("Circle", "Blackhole", 0.42),
    }, infall(at["Transform"]))


def damage(own):
    return record("EnvDamage", {
        **place(own, 120),
        **sprite("Sheet_Env_Damaging"),
        **animation(0.1, loop=("Sheet_Env_Damaging", 6)),
        **light((1.0, 0.5, 0.2), 0.2, 20),
        "EnvironmentDamage": {},
        **shape("Box", "Hazard"),
    })


def rough(own):
    return record("EnvRough", {
        **place(own, 120),
        "Render": render("Env_Rough", 2),
        "iModel": shared_square(),
        "EnvironmentRough": {},
        **shape("Box", "Hazard"),
    })


def destructible(own):
    return record("EnvDestructible", {
        **place(own, 66),
        **sprite("Sheet_Env_DestructibleA"),
        **animation(0.18, loop=("Sheet_Env_DestructibleA", 4)),
        "EnvironmentDestructible": {"m_health": own.get("health", 3)},
        **shape("Box", "Destructible"),
    })


def barrier(own):
    return record("MovableBarrier", {
        **place(own, 72),
        "RigidBody": body({"mass": 300, "inertia": 260000, "drag": 8, "angular_drag": 8, "rest": 0.4}),
        "Render": render("Env_MovableBarrier", 1.8),
        "iModel": shared_square(),
        **shape("Box", "Barrier"),
    })


def death_field(own):
    """Switched off until the boss's second phase, unless it is described as awake."""
    awake = own.get("awake", False)
    out = record("DeathField", {
        **place(own, 600),
        **sprite("Boss_DeathField", visible=awake, alpha=int(awake)),
        "DeathField": {"m_damage": own.get("damage", 10)},
        **shape("Circle", "DeathField"),
    })
    out["ColliderHolder"]["m_active"] = out["active"] = awake
    return out


KINDS = {
    "black_hole": black_hole,
    "damage": damage,
    "rough": rough,
    "destructible": destructible,
    "barrier": barrier,
    "death_field": death_field,
}


def twin(own):
    """The invisible twin that stands before a sprite with a loop. In the frame in which a loop starts over, the renderer draws the
    square that the sprite before left uploaded; with the twin, that is the last frame of the sheet and not the whole sheet at once.
    It lies in the pass of its sprite: what marks a zone is drawn beneath the units.
    """
    copied = {key: own[key] for key in ("Transform", "Render", "iModel", "Animation", "EnvironmentDamage") if key in own}
    out = record(f"{own['name']}Twin", {**copied, "StateC": {"m_state": "loop"}})
    out["Render"] = {**own["Render"], "m_visible": True, "m_colour": [1.0, 1.0, 1.0, 0.0]}
    return out


def hazard_records(own):
    """The records of a described hazard, with its twin before it if it has a loop."""
    kind = own.get("kind")
    if kind not in KINDS:
        sys.exit(f"hazard at {own.get('at')}: {kind} is none of {', '.join(KINDS)}")
    hazard = KINDS[kind](own)
    return [twin(hazard), hazard] if "Animation" in hazard else [hazard]
