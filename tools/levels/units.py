"""Units: those of both sides and the boss, with all children that the game finds by name."""
import functools
import math
import sys

from levels.hazards import twin
from levels.shots import KINDS, shot
from records import (animation, attached, body, collider, floats, light, own_square, puffs, record, render, shared_square, sounds,
                     sprite, transform)

# With a mass of 350 and a drag of 8, the full energy of 2 seconds carries a player about 250 units, and the unit rests half a second
# after the key is released. One push carries an enemy 90 units.
MASS, DRAG, INERTIA = 350, 8, 360000
PLAYER_FORCE, ENEMY_SPEED = 66700, 2920
# The shape of a unit, as a part of its size. A larger one keeps the muzzle nearer to the face of a wall that a unit leans on.
BODY = 1.05
SIZE = {"player": 90, "enemy": 90, "boss": 270}
# A gun's size, as a part of the unit's. An enemy's muzzle lies gun / 1.2 before its middle, which must be clear of its shape.
GUN, BOSS_GUN = 0.9, 0.82
# The strip along which an enemy will fire, and the angles of a boss's three shots, which are 0.25 radians apart.
SIGHT_LENGTH, SIGHT_WIDTH = 700, 30
FAN = (-14.32, 0, 14.32)
SNAP = 60  # arrival distance: more than half a push, or an enemy would step over its waypoints
# By side: parts of texture keys, the colour and the strength of the light, frames of the death, and seconds of a frame.
SIDES = {
    "player": dict(look="Player", gun="Green", fire="Green", light=((0.18, 0.9, 0.65), 0.15), death=10, seconds=0.05),
    "enemy": dict(look="Enemy", gun="Red", fire="Red", light=((1.0, 0.35, 0.37), 0.12), death=10, seconds=0.05),
    # While the boss dies, its light gains 100 of strength a second, so its strength counts in small steps.
    "boss": dict(look="Boss", gun="Boss", fire="Violet", light=((0.63 / 300, 0.42 / 300, 1.0 / 300), 40), death=8, seconds=0.08),
}
# A bar has a tick for each point of health up to this.
TICKS = 12
BOSS_SHOTS = {"MiddleProj": "EXPLOSION", "LeftProjPhase1": "BASIC", "RightProjPhase1": "BASIC",
              "LeftProjPhase2": "EXPLOSION", "RightProjPhase2": "EXPLOSION"}


def player(unit):
    energy = float(unit.get("energy", 2))
    return {"Player": {
        "m_health": unit["health"],
        "m_max_health": unit["health"],
        "m_movement_curr": energy,
        "m_movement_limit": energy,
        "m_movement_mag": float(PLAYER_FORCE),
        "m_alive": True,
        "m_selected_first_weapon": unit.get("hand", 0) == 0,
    }}


def enemy(unit, boss):
    path = unit.get("waypoints", [])
    out = {"Enemy": {
        "m_health": unit["health"],
        "m_max_health": unit["health"],
        "m_alive": True,
        "m_selected_first_weapon": unit.get("hand", 0) == 0,
        "m_boss": boss,
        "m_waypoints": [floats((*point, 1)) for point in path],
        "m_move_speed": float(ENEMY_SPEED),
        "m_move_limit": unit.get("pushes", 1) / 60 - 0.005,  # each push counts for one step
        "m_snap_range": float(SNAP),
    }}
    return {**out, "AIComp": {}} if unit.get("walks", bool(path)) else out


def gun(own, index, texture, size):
    length = size * (BOSS_GUN if texture == "Gun_Boss" else GUN)
    return record(f"Weapon{index}Barrel", {
        "Transform": attached(own, (0, size * 0.1), (length, length), follow=True),
        **sprite(texture, visible=index == 0),
    })


def sight(own, name, start, angle=0):
    """A faint strip that shows where a shot will fly: from `start` before the middle, where all shots of a unit leave. It has the name of a piece that the game hides when the unit dies, and must
    stand after that piece, which the game takes by its name.
    """
    middle, turn = SIGHT_LENGTH / 2, math.radians(angle)
    at = (-math.sin(turn) * middle, start + math.cos(turn) * middle)
    return record(name, {
        "Transform": attached(own, at, (SIGHT_WIDTH, SIGHT_LENGTH), angle, follow=True),
        **sprite("UI_Sight"),
    })


def effects(own, size, side):
    yield record("unit_damaged", {
        "Transform": attached(own, (0, 0), (size * 0.3, size * 0.3)),
        **puffs(22, 16, ((0.72, 0.75, 0.88, 1.0), (0.4, 0.42, 0.5, 0.0)), (size * 0.3, size * 0.75), seconds=1.3, force=size * 16,
                arc=359, texture="Particle_Smoke"),
    })
    electric = record("electricvfx", {
        "Transform": attached(own, (0, 0), (size * 1.25, size * 1.25), follow=True),
        **sprite("Sheet_Unit_Electric", visible=False),
        **animation(0.08, loop=("Sheet_Unit_Electric", 4)),
        "StateC": {"m_state": "loop"},
    })
    yield from (twin(electric), electric)
    fires = {"unit_fire": (f"Sheet_Unit_Fire_{side['fire']}", 0.7, 0.7)}
    if side["look"] == "Player":
        fires["pierce_fire"] = ("Sheet_Unit_Lance", 0.35, 1.1)
    for name, (sheet, width, height) in fires.items():
        yield record(name, {
            "Transform": attached(own, (0, size * (0.42 + height * 0.42)), (size * width, size * height), follow=True),
            **sprite(sheet, visible=False, alpha=0),
            **animation(0.05, once=(sheet, 4)),
        })


def marks(own, size, kind, health):
    """The bar with its numbers, and the label that names a weapon. The boss's bar is larger, and clear of its shield."""
    filling = "UI_HpBarFilledGreen" if kind == "player" else "UI_HpBarFilledRed"
    frame = f"UI_HpBarFrame{health}" if 2 <= health <= TICKS else "UI_HpBarFrame"
    large = 1.6 if kind == "boss" else 1
    top = size * 0.6 + 36 if kind == "boss" else size * 0.5 + 20
    for name, texture, wide, high in (("ui_hp_frame_empty", "UI_HpBarEmpty", 172, 32), ("ui_hp_frame_filled", filling, 73, 10),
                                      ("ui_hp_frame", frame, 80, 16)):
        yield record(name, {"Transform": attached(own, (0, top), (wide * large, high * large)), **sprite(texture)})
    for name, left, colour in (("hp_font", 46, (0.95, 0.96, 1.0, 1.0)), ("turn_font", -68, (1.0, 0.79, 0.3, 1.0))):
        yield record(name, {
            "Transform": attached(own, (left * large, top - 11 * large), (0.64 * large, 0.64 * large)),
            "Font": {"m_text": "", "m_colour": list(colour)},
            "UIElement": {"m_ui_element_name": "ui_font"},
        })
    # The game places the label to the right of the unit, where the edge of the screen may be near: the image lies above the unit and
    # its bar, or below one that starts near the upper strip. A boss's has another size; it lies on the side where there is room.
    x, y = own["m_world_pos"][:2]
    aside, up = (-0.5, -0.95 if y > 300 else 1.12) if kind != "boss" else (-1.2 if x > 0 else 0, 0)
    yield record("WeaponText", {
        "Transform": attached(own, (120, 0), (size * 2.32, size * 1.104)),
        **sprite("WeaponFloat_Basic", alpha=0, model=functools.partial(own_square, aside, up)),
    })


def ring(own, size):
    """The selection ring, closed and hidden until the unit is selected."""
    return record("ui_selected", {
        "Transform": attached(own, (0, 0), (size, size), follow=True),
        **sprite("UnitBeetle_SelectedOutline", visible=False),
        "UIElement": {"m_ui_element_name": "ui_selection_circle_off"},
    })


def boss_pieces(own, size):
    for name, weapon in BOSS_SHOTS.items():
        yield shot(weapon, name, own)
    for name in ("ShieldPhase1", "ShieldPhase2"):
        yield record(name, {"Transform": attached(own, (0, 0), (size * 1.2, size * 1.2), follow=True), **sprite(f"Boss_{name}")})
    for angle in FAN:
        yield sight(own, "ShieldPhase1", size * BOSS_GUN, angle)
    for k in range(11):
        at = (size * 0.33 * ((k * 5) % 7 - 3) / 3, size * 0.33 * ((k * 3) % 7 - 3) / 3)
        side = size * (0.42 + 0.1 * (k % 3))
        explosion = record(f"DeathExplosion{k:02}", {
            "Transform": attached(own, at, (side, side)),
            **sprite("Sheet_Boss_Blast"),
            **animation(0.05, loop=("Sheet_Boss_Blast", 8)),
            **sounds("unit_death.ogg"),
        })
        if k == 0:  # each of the others has the one before it for a twin
            yield twin(explosion)
        yield explosion


def pieces(unit, kind, own):
    size, side = SIZE[kind], SIDES[kind]
    yield ring(own, size)
    if kind == "boss":
        for index in (0, 1):
            yield gun(own, index, "Gun_Boss", size)
    else:
        for index, weapon in enumerate(unit["weapons"]):
            yield gun(own, index, f"Gun_{KINDS[weapon]['gun']}_{side['gun']}", size)
    if kind == "enemy":
        for index in (0, 1):
            yield sight(own, f"Weapon{index}Barrel", size * GUN / 1.2)
    yield from effects(own, size, side)
    if kind == "boss":
        yield from boss_pieces(own, size)
    else:
        for index, weapon in enumerate(unit["weapons"]):
            yield shot(weapon, f"Weapon{index}Projectile", own)
    yield from marks(own, size, kind, unit["health"])


def read(unit, number):
    """The kind and the name of a unit; ends the program if the description is wrong."""
    name = unit.get("name", f"{unit.get('side', 'unit')}{number}")
    if unit.get("side") not in ("player", "enemy"):
        sys.exit(f"{name}: its side is neither player nor enemy")
    if unit.get("boss"):
        return "boss", "Boss"
    weapons = unit.get("weapons", [])
    if len(weapons) != 2 or not set(weapons) <= KINDS.keys():
        sys.exit(f"{name}: needs two weapons out of {', '.join(KINDS)}")
    return unit["side"], name


def unit_record(unit, number):
    kind, name = read(unit, number)
    size, side, look = SIZE[kind], SIDES[kind], f"UnitBeetle_{SIDES[kind]['look']}"
    own = transform(unit["at"], (size, size), unit.get("turn", 0))
    weight = (size / 90) ** 2
    components = {
        "Transform": own,
        "RigidBody": body({"mass": MASS * weight, "inertia": INERTIA * weight * weight, "drag": DRAG, "angular_drag": 5, "rest": 0.5}),
        "Render": {**render(look), "m_hl_tex": f"{look}_Selected", "m_shader": "default"},
        "iModel": shared_square(),
        **animation(side["seconds"], spawn=(f"Sheet_{look}_Spawn", 10), death=(f"Sheet_{look}_Death", side["death"]),
                    once=(f"Sheet_{look}_Once", 6)),
        **sounds("unit_spawn.ogg", "unit_fire.ogg", "unit_death.ogg"),
        **light(*side["light"], 10),
        **(player(unit) if kind == "player" else enemy(unit, kind == "boss")),
        "ColliderHolder": {**collider({"shape": "Circle", "category": "Player" if kind == "player" else "Enemy"}),
                           "m_local_scale": [BODY, BODY, 1.0]},
    }
    return record(name, components, pieces(unit, kind, own))


def unit_records(described):
    """The units in order, numbered for each side."""
    count = {}
    for unit in described:
        side = unit.get("side")
        count[side] = count.get(side, 0) + 1
        yield unit_record(unit, count[side])
