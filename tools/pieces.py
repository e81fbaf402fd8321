"""The pieces that screens are put together from, in levels as in the menu.

Positions and sizes are world units from the middle of the screen, y upwards. The screen is 1080 high, and at least 1440 wide:
what is needed stays within 700 to the left and the right.
"""
from records import animation, audio_source, record, sound, sprite, square_at, transform

WIDE = (2600, 1100)  # covers every screen, up to 21 by 9
BUTTON, SHORT_BUTTON, TAB, SWITCH = (416, 96), (288, 96), (320, 80), (192, 96)
PAGE, PAGE_MIDDLE, BELOW_PAGE = (1424, 928), (0, 36), (0, -484)
OFF_SCREEN = (5000, 0)


def place(x=0, y=0, width=1, height=1):
    """The Transform of what lies in the plane of the screen: depth 0."""
    return {"Transform": transform((x, y), (width, height), depth=0)}


def hearing(*heard):
    """The AudioSource of these sounds."""
    return {"AudioSource": audio_source(*heard)}


def image(name, texture, at, size, alpha=1, visible=True):
    """A sprite that is shown in every state of the interface."""
    return record(name, {**place(*at, *size), **sprite(texture, visible=visible, alpha=alpha)})


def element(behaviour, texture, at, size, name=None, alpha=1, visible=False):
    """A sprite with a behaviour. Its object is named after the behaviour unless it has a name of its own."""
    return record(name or behaviour, {
        **place(*at, *size),
        **sprite(texture, visible=visible, alpha=alpha),
        "UIElement": {"m_ui_element_name": behaviour},
    })


def sample(behaviour, texture, where, at, size, name, brightness=1):
    """An area in the colour that a texture has at one place, u and v; `brightness` multiplies it. It starts unseen."""
    own = element(behaviour, texture, at, size, name, alpha=0, visible=True)
    own["Render"]["m_colour"][:3] = [float(brightness)] * 3
    own["iModel"] = square_at(where)
    return own


def text(behaviour, at, scale, colour, words=""):
    """A line of text that begins at a place; a scale of 1 is 48 units a line."""
    return record(behaviour, {
        **place(*at, scale, scale),
        "Font": {"m_text": words, "m_colour": [*colour, 1.0]},
        "UIElement": {"m_ui_element_name": behaviour},
    })


def looks(texture):
    """The three textures of a button: at rest, under the mouse, pressed."""
    return texture, f"{texture}_Hover", f"{texture}_Pressed"


def button(name, state, textures, at, size=BUTTON, alpha=1, visible=False, behaviour=None):
    """What is clicked; `state` is the one state of the interface in which it lives. It may have a behaviour beside."""
    rest, hover, pressed = textures
    return record(name, {
        **place(*at, *size),
        **sprite(rest, visible=visible, alpha=alpha),
        **hearing(sound("button_click.ogg", volume=1)),
        "Button": {"m_click_name": name, "m_usable_state": state, "m_default_tex": rest, "m_highlight_tex": hover, "m_click_tex": pressed},
        **({"UIElement": {"m_ui_element_name": behaviour}} if behaviour else {}),
    })


def column(state, top, step, *buttons):
    """Buttons below each other, given as (name, texture)."""
    return [button(name, state, looks(texture), (0, top - step * k)) for k, (name, texture) in enumerate(buttons)]


def question(behaviour, state, panel, yes, no, backing=()):
    """A question with two answers."""
    return [*backing, element(behaviour, panel, (0, 40), (800, 352)),
            button(yes, state, looks("Button_Yes"), (-164, -50), SHORT_BUTTON), button(no, state, looks("Button_No"), (164, -50), SHORT_BUTTON)]


def page(behaviour, state, texture, back, at=PAGE_MIDDLE, size=PAGE):
    """A page to read, and the button below it that leads back."""
    return [element(behaviour, texture, at, size, name=f"{behaviour}_page"), button(back, state, looks("Button_Back"), BELOW_PAGE)]


def glossary(prefix):
    """The glossary: its page, the tabs, the way back, and on top the live examples. All must be children of one object."""
    weapons = ("Glossary_WeaponsSelected", "Glossary_WeaponsSelected", "Glossary_WeaponsSelected")
    surroundings = ("Glossary_EnviroDefault", "Glossary_EnviroHover", "Glossary_EnviroSelected")
    return [
        element(prefix, "UI_Backdrop", (0, 0), WIDE, name=f"{prefix}_backdrop"),
        element(prefix, "Glossary_Pg1Weapons", PAGE_MIDDLE, PAGE, name=f"{prefix}_img"),
        button(f"{prefix}_weapons", prefix, weapons, (-170, 370), TAB),
        button(f"{prefix}_enviro", prefix, surroundings, (170, 370), TAB),
        button(f"{prefix}_back", prefix, looks("Button_Back"), BELOW_PAGE),
        *examples(f"{prefix}_anim"),
    ]


def examples(behaviour):
    """The live examples of surroundings, which nothing can touch. The game puts them on the page; before, they wait off the screen.

    Each has an invisible twin before it. In the frame in which a loop starts over, the renderer draws the square that the sprite
    before left uploaded; with the twin, that is the last frame of the sheet and not the whole sheet at once.
    """
    kinds = (
        ("EnvDestructible", 66, ("Sheet_Env_DestructibleA", 4), 0.18, {"EnvironmentDestructible": {"m_health": 1}}),
        ("EnvDamage", 120, ("Sheet_Env_Damaging", 6), 0.1, {}),
        ("EnvBlackhole", 168, ("Sheet_Env_Blackhole", 10), 0.06,
         {"EnvironmentBlackhole": {"m_suction_force": 0.0, "m_suction_range": 0.0}}),
    )
    for name, side, sheet, seconds, hazard in kinds:
        for alpha in (0, 1):
            yield record(name, {
                **place(*OFF_SCREEN, side, side),
                **sprite(sheet[0], visible=False, alpha=alpha),
                "Animation": animation(seconds, spawn=sheet, death=sheet, once=sheet, loop=sheet)["Animation"],
                "StateC": {"m_state": "loop"},
                **hazard,
                "UIElement": {"m_ui_element_name": behaviour},
            })


def walk(records, parent=None):
    """Every record with its parent's, parents first."""
    for own in records:
        yield own, parent
        yield from walk(own["Childs"], own)


def textures(records):
    """The keys of all textures that objects show at some time, as far as their records tell."""
    for own in records:
        for component, keys in (("Render", ("m_tex", "m_hl_tex")), ("Button", ("m_default_tex", "m_highlight_tex", "m_click_tex")),
                                ("Animation", ("m_spawn", "m_death", "m_once", "m_loop"))):
            yield from (own[component][key] for key in keys if component in own and own[component][key])
        yield from textures(own["Childs"])
