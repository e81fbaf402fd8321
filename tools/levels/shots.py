"""The seven weapons: the shot, the gun and the looks of each."""
from records import animation, attached, body, collider, light, puffs, record, sounds, sprite

RANGE = 1500
SPEED = 1600  # a shot of mass 1 leaves at 0.83 of it
RAM_MASS = 600  # makes a push shot shove what it hits
# A shot is drawn larger than its shape, which keeps the size in KINDS.
DRAWN = 1.6
# The image of a blast or a pull reaches this part of its half width.
REACH = 0.97
# Particles are lit, and a floor without a light shows half of their colour.
BRIGHT = 1.8
SMOULDER = (0.45, 0.36, 0.34)  # what smoke cools to

# By the names in labels and descriptions. `image` and `gun` are parts of texture keys, `fields` are the component's own besides
# range and speed, and `light` is the strength of the shot's light. A unit has a mass of 350, so blast and pull are large.
KINDS = {
    "BASIC": dict(component="ProjectileDefault", image="Basic", gun="Basic", size=28, colour=(1.0, 0.79, 0.3),
                  fields={"m_damage": 1}, light=0.2, sounds=("bullet_bounce.ogg", "default_hit.ogg")),
    "BOUNCE": dict(component="ProjectileBounce", image="Bounce", gun="Bounce", size=28, colour=(0.49, 0.78, 1.0), range=2200,
                   fields={"m_min_damage": 0, "m_max_damage": 3}, light=200,
                   sounds=("bullet_bounce1.ogg", "bullet_bounce2.ogg", "bullet_bounce3.ogg", "default_hit.ogg")),
    "EXPLOSION": dict(component="ProjectileExplosion", image="Explosion", gun="Explode", size=34, colour=(1.0, 0.6, 0.24),
                      fields={"m_damage": 2, "m_aoe": 170.0, "m_knockback": 24000.0}, light=0.25, sounds=("push_hit.ogg",)),
    "PIERCE": dict(component="ProjectilePierce", image="Pierce", gun="Pierce", size=30, colour=(0.95, 0.96, 1.0),
                   fields={"m_damage": 1}, light=0.2, sounds=("bullet_bounce.ogg", "default_hit.ogg")),
    "PUSH": dict(component="ProjectilePush", image="Push", gun="Push", size=36, colour=(0.75, 0.55, 1.0), mass=RAM_MASS,
                 fields={"m_damage": 0}, light=0.25, sounds=("push_hit.ogg",)),
    "SWAP": dict(component="ProjectileSwap", image="Swap", gun="Swap", size=34, colour=(1.0, 0.54, 0.85),
                 fields={}, light=0.25, sounds=("bullet_bounce.ogg",)),
    "VACUUM": dict(component="ProjectileVacuum", image="Vacuum", gun="Vacuum", size=34, colour=(0.35, 0.88, 1.0),
                   fields={"m_damage": 0, "m_aoe": 220.0, "m_suction_force": 24000.0}, light=0.25, sounds=("push_hit.ogg",)),
}
# By weapon, the sheet of its hit: frames, seconds of a frame, and size. Those of shots that fly on after a hit are short, since
# they are carried along. The two without a size reach as far as the blast or the pull.
HITS = {
    "BASIC": (3, 0.03, 110), "BOUNCE": (3, 0.03, 120), "SWAP": (3, 0.03, 120), "PIERCE": (5, 0.03, 120), "PUSH": (6, 0.04, 150),
    "EXPLOSION": (8, 0.05, None), "VACUUM": (8, 0.05, None),
}
# By weapon, its trail: the particle's texture, its sizes at birth and at the end, the force that throws it, and whether that points
# backwards or to all sides.
TRAILS = {
    "BASIC": ("Particle_Glow", (26, 4), 120, False),
    "BOUNCE": ("Particle_Ring", (24, 8), 300, True),
    "EXPLOSION": ("Particle_Smoke", (20, 40), 500, True),
    "PIERCE": ("Particle_Spark", (30, 6), 30, False),
    "PUSH": ("Particle_Wave", (44, 16), 300, True),
    "SWAP": ("Particle_Spark", (34, 8), 900, True),
    "VACUUM": ("Particle_Glow", (30, 8), 600, True),
}
# By weapon, the particle of what a hit throws up.
SPARKS = {"BOUNCE": "Particle_Ring", "EXPLOSION": "Particle_Smoke", "PUSH": "Particle_Glow", "VACUUM": "Particle_Glow"}


def shot_light(name, kind):
    """A bounce shot adds 200 of strength for each point of damage, so its strength counts in steps of that size."""
    dim = 1000 if name == "BOUNCE" else 1
    return light([channel / dim for channel in kind["colour"]], kind["light"], 20)


def trail(name, kind, own):
    texture, sizes, force, backwards = TRAILS[name]
    start = [BRIGHT * channel for channel in kind["colour"]]
    end = SMOULDER if texture == "Particle_Smoke" else kind["colour"]
    side = kind["size"] * 0.5 if not backwards else 1
    return record("bullet_trail", {
        "Transform": attached(own, (0, 0), (side, side)),
        **puffs(40, 84, ((*start, 0.8), (*end, 0.0)), sizes, seconds=0.6, force=force, arc=0 if backwards else 359, texture=texture),
    })


def sparks(name, kind, own):
    """What a hit throws up, all within three steps, so that it stays where the shot hit."""
    texture = SPARKS.get(name, "Particle_Spark")
    end = [BRIGHT * channel for channel in kind["colour"]]
    return record("bullet_feedback", {
        "Transform": attached(own, (0, 0), (10, 10)),
        **puffs(18, 500, ((2.0, 1.9, 1.7, 1.0), (*end, 0.0)), (30, 5), seconds=0.55, force=2900, looping=False, duration=0.05,
                arc=359, texture=texture),
    })


def hit(name, kind, own):
    frames, seconds, size = HITS[name]
    size = size or 2 * kind["fields"]["m_aoe"] / REACH
    sheet = f"Sheet_Hit_{kind['image']}"
    return record("bullet_hit", {
        "Transform": attached(own, (0, 0), (size, size)),
        **sprite(sheet, alpha=0),
        **animation(seconds, once=(sheet, frames)),
    })


def children(name, kind, own):
    """The shot's effects. None follows the shot: a child that follows turns with the unit as well, which moves it off."""
    return trail(name, kind, own), sparks(name, kind, own), hit(name, kind, own)


def flight(kind, mass):
    """The fields of a shot's component. The game has the damage before the speed, all other own fields behind it."""
    damage = {key: value for key, value in kind["fields"].items() if key == "m_damage"}
    return {"m_max_range": float(kind.get("range", RANGE)), "m_curr_range": 0.0, **damage, "m_speed": float(SPEED * mass),
            **{key: value for key, value in kind["fields"].items() if key != "m_damage"}}


def shot(name, child, parent):
    """The hidden shot of a weapon. Its shape is switched off; firing switches everything on."""
    kind = KINDS[name]
    mass = kind.get("mass", 1)
    side = kind["size"] * DRAWN
    own = attached(parent, (0, 0), (side, side))
    components = {
        "Transform": own,
        "RigidBody": body({"mass": mass, "inertia": mass * 100, "rest": 1}),
        **sprite(f"Shot_{kind['image']}", visible=False),
        **sounds(*kind["sounds"], volume=0.9),
        **shot_light(name, kind),
        kind["component"]: flight(kind, mass),
        "ColliderHolder": {**collider({"shape": "Circle", "category": "Projectile"}), "m_local_scale": [1 / DRAWN, 1 / DRAWN, 1.0],
                           "m_active": False},
    }
    return record(child, components, children(name, kind, own))
