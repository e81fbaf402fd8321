"""Writes the small run-time data files: archetypes, settings, splash and menu.

Run from the root of the repository: /usr/bin/python3 tools/screens.py
The files are also edited by hand and by the level editor; run this only to
start them afresh. The files end without a line break, as the program
writes them back.
"""

import json
from pathlib import Path

LEVELS = "Level Editor/Levels"
WHITE = [1.0, 1.0, 1.0, 1.0]


def write(path, value):
    Path(path).parent.mkdir(parents=True, exist_ok=True)
    Path(path).write_text(json.dumps(value, indent=4))


def transform(x=0.0, y=0.0, width=1.0, height=1.0, parent=(0.0, 0.0), z=0.0):
    """A Transform record; the size is in world units, the parent's scale is 1."""
    return {
        "m_pos": [x, y, z],
        "m_scale": [width, height, 1.0],
        "m_rotate": 0.0,
        "m_world_scale": [width, height, 1.0],
        "m_world_rotate": 0.0,
        "m_world_pos": [x + parent[0], y + parent[1], z],
        "m_rotate_with_parent": True,
    }


def render(texture, colour=None, shader="default"):
    return {
        "m_tile": False,
        "m_visible": True,
        "m_zLayer": 0.0,
        "m_tex": texture,
        "m_hl_tex": texture,
        "m_colour": colour or WHITE,
        "m_shader": shader,
    }


def model():
    corners = ((-0.5, 0.5, 0.0, 0.0), (0.5, 0.5, 1.0, 0.0), (0.5, -0.5, 1.0, 1.0), (-0.5, -0.5, 0.0, 1.0))
    return {
        "m_vertices": [[x, y, 0.0, u, v, 255, 255, 255, 255] for x, y, u, v in corners],
        "m_index_buffer": [0, 1, 3, 1, 2, 3],
    }


def shared_square():
    """A model of one vertex: the renderer's own square, which batches best."""
    return {"m_vertices": [[0.0, 0.0, 0.0, 0.0, 0.0, 255, 255, 255, 255]], "m_index_buffer": [0, 1, 3, 1, 2, 3]}


def loop(sheet, frames, seconds):
    return {
        "m_timer": 0.0,
        "m_currStep": 0.0,
        "m_spawn_frames": frames,
        "m_death_frames": frames,
        "m_once_frames": frames,
        "m_loop_frames": frames,
        "m_spawn": sheet,
        "m_death": sheet,
        "m_once": sheet,
        "m_loop": sheet,
        "m_time_per_frame": seconds,
    }


def light(colour, strength, height, ambient=0.15):
    return {
        "m_active": True,
        "m_pos": [0.0, 0.0, height],
        "m_diffuse": colour,
        "m_specular": colour,
        "m_ambient": colour,
        "m_diffuseStr": strength,
        "m_specularStr": 0.4,
        "m_ambientStr": ambient,
    }


def audio(sounds):
    """An AudioSource. A sound is its file's name with type, volume, and whether it starts with the screen."""
    return {
        "sounds": [name for name, _, _, _ in sounds],
        "loop": [False for _ in sounds],
        "is_3D": [False for _ in sounds],
        "start_play": [start for _, _, _, start in sounds],
        "sound_type": [kind for _, kind, _, _ in sounds],
        "volume": [volume for _, _, volume, _ in sounds],
    }


def record(name, components, children=(), archetype=False):
    out = {"name": name}
    if not archetype:
        out["active"] = True
    out["components"] = list(components)
    out.update(components)
    out["Childs"] = list(children)
    return out


def picture(name, texture, x, y, width, height, colour=None):
    return record(name, {
        "Transform": transform(x, y, width, height),
        "Render": render(texture, colour),
        "iModel": model(),
    })


def archetypes():
    folder = "Resources/Archetypes/GameObjects/"
    write(folder + "camera.json", record("camera", {
        "Transform": transform(),
        "Camera": {"m_offset": [0.0, 0.0, 0.0], "m_shakemag": 1.0, "m_xlimit": 1, "m_ylimit": 1},
    }, archetype=True))
    write(folder + "tilecollider.json", record("tile_collider", {
        "Transform": transform(width=60.0, height=60.0),
        "ColliderHolder": {
            "m_active": True,
            "m_layer": 0,
            "m_collider_type": "Box",
            "bitmask_category": "Wall",
            "m_local_scale": [1.0, 1.0, 1.0],
            "m_local_pos": [0.0, 0.0, 1.0],
            "m_local_rot": 0.0,
        },
    }, archetype=True))
    write(folder + "particle_test.json", record("particle_test", {
        "Transform": transform(z=1.0),
        "RigidBody": {
            "m_vel": [0.0, 0.0, 0.0],
            "m_accel": [0.0, 0.0, 0.0],
            "m_mass": 1.0,
            "m_inertia": 1.0,
            "m_sleeper_vel": [0.0, 0.0, 0.0],
            "m_sleeper_rot_vel": 0.0,
            "m_drag": 0.0,
            "m_angular_drag": 0.0,
            "m_rest": 0.0,
        },
        "Render": render("default", shader="instanced"),
        "iModel": shared_square(),
        "Particle": {},
    }, archetype=True))


def settings():
    write("Resources/Archetypes/WinInit.json", {
        "name": "Carapace",
        "title": "Carapace",
        "Activate_Console": True,
        "Activate_ImGui": False,
        "fullscreen": False,
        "winwidth": 1280,
        "winheight": 720,
        "monitor_height": 1080,
    })


def collisions():
    """Each name with its number and its mask: two things meet when their masks share a bit.

    1 is solid matter, 2 is ground that units feel, 4 is the aura that hurts players.
    """
    table = {
        "Barrier": (3, 1),
        "Blackhole": (10, 1),
        "DeathField": (9, 4),
        "Default": (1, 1),
        "Destructible": (4, 1),
        "Enemy": (6, 1 | 2),
        "Hazard": (8, 2),
        "Particle": (11, 0),
        "Player": (5, 1 | 2 | 4),
        "Projectile": (7, 1),
        "Wall": (2, 1),
    }
    names = sorted(table)
    write("Resources/CollisionInfo.json", {
        "str_grp": names,
        "int_grp": [table[name][0] for name in names],
        "str_bm": names,
        "int_bm": [table[name][1] for name in names],
    })


def graphics():
    shaders = "Resources/Shaders/"
    lines = Path("assets/pictures/pictures.txt").read_text().splitlines()
    names = [words[0] for words in (line.split("#")[0].split() for line in lines) if words]
    write("Resources/Textures/graphics.json", {
        "texPath": [f"Resources/Textures/{name}.png" for name in names],
        "fontPath": "Resources/Fonts/Play-Bold.ttf",
        "vshader": shaders + "default.vert",
        "fshader": shaders + "default.frag",
        "fontvshader": shaders + "font.vert",
        "fontfshader": shaders + "font.frag",
        "instancevshader": shaders + "instance.vert",
        "instancefshader": shaders + "instance.frag",
        "lightvshader": shaders + "light.vert",
        "lightfshader": shaders + "light.frag",
        "vsync": True,
    })


def screen(name, objects):
    folder = f"{LEVELS}/{name}"
    units = f"{folder}/Entity/Units.json"
    write(f"{folder}/{name}.json", {"Objects": units, "Background": "Background_Space"})
    write(units, {"GameObjFactory": objects})


def splash():
    hidden = [1.0, 1.0, 1.0, 0.0]
    screen("SplashScreen", [record("splash", {"Transform": transform(), "SplashController": {}}, [
        picture("zarn_logo", "Logo_Engine", 0.0, 20.0, 800.0, 400.0, hidden),
        picture("team_logo", "Logo_Team", 0.0, 20.0, 800.0, 400.0, hidden),
        picture("game_logo", "Logo_Carapace", 0.0, 60.0, 1224.0, 324.0, hidden),
        picture("start", "Splash_PressAnyKey", 0.0, -220.0, 480.0, 60.0, hidden),
    ])])


def menu():
    # In the frame in which a loop starts over, the renderer draws the quad that the sprite before left
    # behind. An invisible twin goes first, in step with the hole, so that this is the last frame of the
    # sheet and not the whole sheet at once.
    def turning(name, alpha):
        return record(name, {
            "Transform": transform(0.0, 200.0, 600.0, 600.0),
            "Render": render("Menu_HoleGlow", [1.0, 1.0, 1.0, alpha]),
            "iModel": model(),
            "Animation": loop("Sheet_Menu_Blackhole", 10, 0.066),
            "StateC": {"m_state": "loop"},
        })

    footer = record("menu_footer", {
        "Transform": transform(-932.0, -520.0, 0.45, 0.45),
        "Font": {"m_text": "Carapace 1.0   -   Hollow Shell Works", "m_colour": [0.56, 0.63, 0.8, 1.0]},
    })
    screen("MainMenu", [
        picture("menu_hole_glow", "Menu_HoleGlow", 0.0, 200.0, 1300.0, 1300.0, [1.0, 1.0, 1.0, 0.8]),
        turning("menu_hole_twin", 0.0),
        turning("menu_hole", 1.0),
        record("menu_light_hole", {
            "Transform": transform(0.0, 200.0),
            "Light": light([0.5, 0.62, 1.0], 1.0, 110.0),
        }),
        record("menu_light_planet", {
            "Transform": transform(620.0, -250.0),
            "Light": light([0.75, 0.86, 1.0], 0.8, 90.0, 0.05),
        }),
        # The theme goes on when the screen is left; were it a loop, it would be heard below all that follows.
        record("menu", {
            "Transform": transform(),
            "AudioSource": audio([("button_click.ogg", "SFX", 0.8, False), ("maintheme01.ogg", "BGM", 0.7, True)]),
        }, [
            picture("game_logo", "Logo_Carapace", 0.0, 200.0, 1088.0, 288.0),
            footer,
        ]),
    ])


archetypes()
settings()
collisions()
graphics()
splash()
menu()
