"""The faults that a level must not have: above all, those that would keep its turns from going on. Every message names the
object."""
import json
import math

SHOTS = ("ProjectileDefault", "ProjectileBounce", "ProjectileExplosion", "ProjectilePierce", "ProjectilePush", "ProjectileSwap",
         "ProjectileVacuum")
UNIT_NEEDS = {
    "Transform": "it would have no place",
    "RigidBody": "nothing could move it",
    "ColliderHolder": "no shot could hit it",
    "Render": "it would not be drawn",
    "iModel": "it would not be drawn",
    "StateC": "it would play no sheet",
    "Animation": "its spawn would never end, and it could never die",
    "AudioSource": "it would not be heard",
}
UNIT_CHILDREN = ("Weapon0Barrel", "Weapon1Barrel", "electricvfx", "WeaponText", "unit_fire", "ui_selected", "ui_hp_frame",
                 "ui_hp_frame_filled", "ui_hp_frame_empty", "hp_font", "turn_font", "unit_damaged")
SHOT_CHILDREN = ("Weapon0Projectile", "Weapon1Projectile")
BOSS_CHILDREN = ("MiddleProj", "LeftProjPhase1", "RightProjPhase1", "LeftProjPhase2", "RightProjPhase2", "ShieldPhase1",
                 "ShieldPhase2", *(f"DeathExplosion{k:02}" for k in range(11)))
FORCE_PER_SPEED = 100  # of an enemy's push, which lasts a second
STEPS_A_SECOND = 60
SPACE, FREE = " ", "."  # letters of a map: where the station has no hull, and free floor
BUTTON_TEXTURES = ("m_default_tex", "m_highlight_tex", "m_click_tex")


def walk(records, parent=None):
    """Every record with its parent's, parents first."""
    for own in records:
        yield own, parent
        yield from walk(own["Childs"], own)


def is_unit(own):
    return own is not None and ("Player" in own or "Enemy" in own)


def push_length(own):
    """How far one push carries an enemy until drag has stopped it, less the 1 unit that it never gets to go."""
    body = own.get("RigidBody", {"m_mass": 0, "m_drag": 0})
    resistance = body["m_mass"] * body["m_drag"]
    if resistance <= 0:
        return 0
    return own["Enemy"]["m_move_speed"] * FORCE_PER_SPEED / resistance * (1 - body["m_drag"] / STEPS_A_SECOND) - 1


def patrols(own):
    """The moves of an enemy end when its pushes are spent, and every point that it reaches gives them back."""
    path, snap = own.get("Enemy", {}).get("m_waypoints", []), own.get("Enemy", {}).get("m_snap_range", 0)
    if "AIComp" in own and not path:
        yield "has an AIComp without a path, and its move would never end"
    if path and "AIComp" not in own:
        yield "has a path without an AIComp to walk it"
    if len(path) == 1:
        yield "has one waypoint only, and its move would never end"
    legs = [math.dist(a, b) for a, b in zip(path, path[1:])]
    if any(leg <= snap for leg in legs):
        yield f"has neighbouring waypoints within {snap:g} units, its arrival distance"
    elif legs:
        pushes = math.ceil(own["Enemy"]["m_move_limit"] * STEPS_A_SECOND)
        # It counts as at a point from the arrival distance on, and sets off from there.
        if pushes > 0 and max(legs) - pushes * push_length(own) < 2 * snap:
            yield f"reaches each next waypoint before its pushes are spent, and its move would never end"


def unit_state(own, own_part):
    """The faults that keep a unit in its spawn for ever: it could neither act nor die."""
    if not own["active"]:
        yield "is a unit that starts switched off, and could neither act nor die"
    if not own_part["m_alive"]:
        yield "is a unit that starts dead"
    if not own.get("Render", {"m_visible": True})["m_visible"] or own.get("Render", {"m_tile": False})["m_tile"]:
        yield "is a unit whose image is hidden or a tile: its spawn would never end, and it could never die"
    if "UIElement" in own:
        yield "is a unit with a UIElement of its own, which would hold back its turn"


def units(own, parent):
    if not is_unit(own):
        return
    own_part = own.get("Player") or own["Enemy"]
    if parent is None or "GameController" not in parent:
        yield "is a unit, but no child of the object that runs the level"
    if "Player" in own and "Enemy" in own:
        yield "is a Player and an Enemy at once"
    if own_part["m_max_health"] < 1 or own_part["m_health"] < 1:
        yield "starts without health"
    if own.get("Player", {"m_movement_limit": 1})["m_movement_limit"] <= 0:
        yield "has no energy to move with"
    if own_part.get("m_boss") and own["name"] != "Boss":
        yield "is a boss, but not named Boss, so a DeathField does not find it"
    for component, consequence in UNIT_NEEDS.items():
        if component not in own:
            yield f"is a unit without {component}: {consequence}"
    names = {child["name"] for child in own["Childs"]}
    wanted = UNIT_CHILDREN + (BOSS_CHILDREN if own_part.get("m_boss") else SHOT_CHILDREN)
    wanted += ("pierce_fire",) if "Player" in own else ()
    for name in wanted:
        if name not in names:
            yield f"lacks its child {name}"
    yield from unit_state(own, own_part)
    yield from patrols(own)


def shots(own, parent):
    if not any(kind in own for kind in SHOTS):
        return
    if not is_unit(parent):
        yield "is a shot, but no child of a unit"
    for component in ("Transform", "RigidBody"):
        if component not in own:
            yield f"is a shot without {component}"
    for part in [own, *own["Childs"]]:
        if part.get("Transform", {}).get("m_rotate_with_parent"):
            yield f"turns {part['name']} with the unit, which would carry it off its path"
    if own.get("RigidBody", {}).get("m_drag", 0) > 0:
        yield "is a shot that drag would stop before its range is out, and the turn with it"


def images(own, known):
    if "Render" in own:
        for component in ("Transform", "iModel"):
            if component not in own:
                yield f"has a Render without {component}"
        wanted = {own["Render"]["m_tex"], own["Render"]["m_hl_tex"]}
        wanted |= {own.get("Button", {}).get(key) for key in BUTTON_TEXTURES} - {None}
        sheets = own.get("Animation", {})
        for state in ("spawn", "death", "once", "loop"):
            if sheets.get(f"m_{state}"):
                wanted.add(sheets[f"m_{state}"])
                if not 1 <= sheets[f"m_{state}_frames"] <= 10:
                    yield f"has a {state} sheet of {sheets[f'm_{state}_frames']} frames, not 1 to 10"
        for texture in sorted(wanted - known):
            yield f"shows {texture}, which graphics.json does not list"


def hearing(own, root):
    source = own.get("AudioSource", {"sounds": [], "sound_type": []})
    for name, kind in zip(source["sounds"], source["sound_type"]):
        if not (root / "Resources/Sound" / ("BGM" if kind == "BGM" else "SFX") / name).exists():
            yield f"lists the sound {name}, of which there is no file"


def pulls(own):
    return "EnvironmentBlackhole" in own and own["EnvironmentBlackhole"].get("m_suction_range", 100) > 0


def rest(own, holes):
    """A turn waits until all bodies rest; `holes` tells whether something pulls them."""
    if "RigidBody" not in own or any(kind in own for kind in SHOTS):
        return
    if own["RigidBody"]["m_drag"] <= 0:
        yield "is a body without drag, which may never rest, and every turn waits for that"
    if own["RigidBody"]["m_angular_drag"] <= 0 < own["RigidBody"]["m_inertia"]:
        yield "is a body without angular drag, which may turn for ever, and every turn waits for that"
    if holes and "ColliderHolder" not in own:
        yield "is a body without a ColliderHolder, which a black hole would pull to and fro for ever"
    mover = own.get("Waypoint", {"m_path": [], "m_limit": 0})
    if len(mover["m_path"]) > 1 and mover["m_limit"] > 0:
        yield "is a Waypoint that never stands still, and every turn waits for that"


def whole(records):
    """The faults of the level itself."""
    roots = [own for own, _ in walk(records) if "GameController" in own]
    if len(roots) != 1:
        yield f"has {len(roots)} objects with a GameController"
        return
    for component in ("Transform", "AudioSource"):
        if component not in roots[0]:
            yield f"runs on an object without {component}"
    if sum("Camera" in child for child in roots[0]["Childs"]) != 1:
        yield "has not one camera below the object that runs it"
    sides = {side: sum(own[side]["m_alive"] for own, _ in walk(records) if side in own) for side in ("Player", "Enemy")}
    if any(sides.values()) and not all(sides.values()):
        yield f"has no {'Player' if not sides['Player'] else 'Enemy'} and would end on its first step"


def outside(own, tile_map):
    """Units and their paths stand on free cells of the map."""
    size, width, height = (tile_map[key] for key in ("TileSize", "Width", "Height"))
    if not is_unit(own):
        return
    start = [own["Transform"]["m_pos"]] if "Transform" in own else []
    for x, y, _ in [*start, *own.get("Enemy", {}).get("m_waypoints", [])]:
        column, row = int((x + size * width / 2) // size), int((size * height / 2 - y) // size)
        if not (0 <= column < width and 0 <= row < height) or tile_map["TileMap"][row][column]:
            yield f"stands or walks at ({x:g}, {y:g}), in a wall or off the map"


def open_hull(name, rows):
    """Floor beside space without a wall between them, also over a corner: units and shots would leave the station."""
    for r, row in enumerate(rows):
        for c, letter in enumerate(row):
            around = {near for line in rows[max(r - 1, 0):r + 2] for near in line[max(c - 1, 0):c + 2]}
            if letter == FREE and SPACE in around:
                yield f"{name}: the floor in row {r}, column {c} lies open to space"


def faults(name, records, tile_map, root):
    """All that is wrong, a line each."""
    listed = json.loads((root / "Resources/Textures/graphics.json").read_text())["texPath"]
    known = {path.removeprefix("Resources/Textures/").rsplit(".", 1)[0] for path in listed}
    fights = any(is_unit(own) for own, _ in walk(records))
    holes = any(pulls(own) for own, _ in walk(records))
    yield from (f"{name}: {fault}" for fault in whole(records))
    for own, parent in walk(records):
        found = [*units(own, parent), *shots(own, parent), *images(own, known), *hearing(own, root), *outside(own, tile_map)]
        found += rest(own, holes) if fights else ()
        if "DeathField" in own and parent is None:
            found.append("is a DeathField without a parent")
        where = f"{parent['name']}/{own['name']}" if parent else own["name"]
        yield from (f"{name}: {where} {fault}" for fault in found)
