"""The seven weapons: the shot, the gun and the looks of each."""
from records import animation, attached, body, collider, light, puffs, record, sounds, sprite

HIT = ("Sheet_Shot_Hit", 6)
RANGE = 1500
SPEED = 1600  # a shot of mass 1 leaves at 0.83 of it
RAM_MASS = 600  # makes a push shot shove what it hits

# By the names in labels and descriptions. `image` and `gun` are parts of texture keys, `fields` are the component's own besides
# range and speed, and `light` is the strength of the shot's light. A unit has a mass of 350, so blast and pull are large.
KINDS = {
    "BASIC": dict(component="ProjectileDefault", image="Basic", gun="Basic", size=28, colour=(1.0, 0.79, 0.3),
                  fields={"m_damage": 1}, light=0.5, sounds=("bullet_bounce.ogg", "default_hit.ogg")),
    "BOUNCE": dict(component="ProjectileBounce", image="Bounce", gun="Bounce", size=28, colour=(0.49, 0.78, 1.0), range=2200,
                   fields={"m_min_damage": 0, "m_max_damage": 3}, light=200,
                   sounds=("bullet_bounce1.ogg", "bullet_bounce2.ogg", "bullet_bounce3.ogg", "default_hit.ogg")),
    "EXPLOSION": dict(component="ProjectileExplosion", image="Explosion", gun="Explode", size=34, colour=(1.0, 0.6, 0.24),
                      fields={"m_damage": 2, "m_aoe": 170.0, "m_knockback": 24000.0}, sounds=("push_hit.ogg",)),
    "PIERCE": dict(component="ProjectilePierce", image="Pierce", gun="Pierce", size=30, colour=(0.95, 0.96, 1.0),
                   fields={"m_damage": 1}, light=0.5, sounds=("bullet_bounce.ogg", "default_hit.ogg")),
    "PUSH": dict(component="ProjectilePush", image="Push", gun="Push", size=36, colour=(0.75, 0.55, 1.0), mass=RAM_MASS,
                 fields={"m_damage": 0}, sounds=("push_hit.ogg",)),
    "SWAP": dict(component="ProjectileSwap", image="Swap", gun="Swap", size=34, colour=(1.0, 0.54, 0.85),
                 fields={}, light=0.5, sounds=("bullet_bounce.ogg",)),
    "VACUUM": dict(component="ProjectileVacuum", image="Vacuum", gun="Vacuum", size=34, colour=(0.35, 0.88, 1.0),
                   fields={"m_damage": 0, "m_aoe": 220.0, "m_suction_force": 24000.0}, sounds=("push_hit.ogg",)),
}
# The trails of these point backwards; those of the others puff in all directions.
TURNS_TRAIL = {"BOUNCE", "EXPLOSION", "PUSH", "SWAP", "VACUUM"}


def shot_light(name, kind):
    """A bounce shot adds 200 of strength for each point of damage, so its strength counts in steps of that size."""
    dim = 400 if name == "BOUNCE" else 1
    return light([channel / dim for channel in kind["colour"]], kind["light"], 20)


def children(name, kind, own):
    """The shot's effects. None follows the shot: a child that follows turns with the unit as well, which moves it off."""
    size, colour = kind["size"], kind["colour"]
    backwards = name in TURNS_TRAIL
    yield record("bullet_trail", {
        "Transform": attached(own, (0, 0), (size * 0.5, size * 0.5)),
        **puffs(24, 48, ((*colour, 0.7), (*colour, 0.0)), (size * 0.6, 4), force=500 if backwards else 150,
                arc=0 if backwards else 359),
    })
    yield record("bullet_feedback", {
        "Transform": attached(own, (0, 0), (10, 10)),
        **puffs(12, 120, ((1.0, 0.96, 0.85, 1.0), (*colour, 0.0)), (12, 3), force=2400, looping=False,
                duration=0.15, arc=359),
    })
    yield record("bullet_hit", {
        "Transform": attached(own, (0, 0), (110, 110)),
        **sprite("Sheet_Shot_Hit", alpha=0),
        **animation(0.04, once=HIT),
    })


def flight(kind, mass):
    """The fields of a shot's component. The game has the damage before the speed, all other own fields behind it."""
    damage = {key: value for key, value in kind["fields"].items() if key == "m_damage"}
    return {"m_max_range": float(kind.get("range", RANGE)), "m_curr_range": 0.0, **damage, "m_speed": float(SPEED * mass),
            **{key: value for key, value in kind["fields"].items() if key != "m_damage"}}


def shot(name, child, parent):
    """The hidden shot of a weapon. Its shape is switched off; firing switches everything on."""
    kind = KINDS[name]
    mass = kind.get("mass", 1)
    own = attached(parent, (0, 0), (kind["size"], kind["size"]))
    components = {
        "Transform": own,
        "RigidBody": body({"mass": mass, "inertia": mass * 100, "rest": 1}),
        **sprite(f"Shot_{kind['image']}", visible=False),
        **sounds(*kind["sounds"], volume=0.9),
        **(shot_light(name, kind) if "light" in kind else {}),
        kind["component"]: flight(kind, mass),
        "ColliderHolder": {**collider({"shape": "Circle", "category": "Projectile"}), "m_active": False},
    }
    return record(child, components, children(name, kind, own))
