"""The interface that all levels share: what a level shows in play, and the screens of its pause and of its end.

It lies in two layers. The lower one is drawn with the world, in the order of creation: what a level shows in play, the sheet that
dims it, and the glossary, whose pieces the game looks up among the children of the level's root. The upper one, the other
screens, lies below the camera and covers everything.
"""
from pieces import SWITCH, WIDE, button, column, element, glossary, image, looks, page, question, text

NEVER = "ui_key_hint"  # no screen has this state, so the hints of keys are always shown and never clicked
TOP, BOTTOM, HEIGHT = 510, -510, 56  # the strips lie on the walls above and below the arena
PALE = (0.95, 0.96, 1.0)
# Width 125 at x = -480: what the element takes for its own unless it is told otherwise.
ENERGY = ((-480, BOTTOM), (125, 22))


def hint(name, texture, x, width):
    return button(name, NEVER, (texture, texture, texture), (x, BOTTOM), (width, HEIGHT), visible=True)


def weapon(index, x):
    """The panel of a weapon: its gun and its name."""
    return [image(f"ui_weapon{index}_plate", "Hud_Weapon", (x, BOTTOM), (240, HEIGHT)),
            element(f"ui_weapon{index}_tex", "Gun_Basic_Green", (x - 88, BOTTOM - 3), (56, 56), alpha=0, visible=True),
            text(f"ui_weapon{index}_font", (x - 50, BOTTOM - 9), 0.54, PALE)]


def in_play():
    return [
        element("aoe_indicator", "UI_Reach", (0, 0), (0, 0), visible=True),
        image("ui_controls", "Hud_Controls", (-476, TOP), (448, HEIGHT)),
        image("ui_round_plate", "Hud_Round", (0, TOP), (224, HEIGHT)),
        text("ui_turn", (48, TOP - 12), 0.7, PALE),
        image("ui_goal", "Hud_Goal", (476, TOP), (448, HEIGHT)),
        image("ui_energy_plate", "Hud_Energy", (-548, BOTTOM), (304, HEIGHT)),
        element("ui_energy", "UI_EnergyFilled", *ENERGY, visible=True),
        *weapon(0, -268),
        hint("ui_cycle_left", "Hud_CycleLeft", -102, 80),
        hint("ui_cycle_right", "Hud_CycleRight", 2, 128),
        *weapon(1, 188),
        hint("ui_undo", "Hud_Undo", 412, 192),
        hint("ui_skip", "Hud_Skip", 612, 176),
    ]


def pause():
    return [
        element("ui_pause", "Panel_Pause", (0, 32), (560, 896)),
        *column("ui_pause", 300, 100, ("ui_pause_resume", "Button_Resume"), ("ui_pause_options", "Button_Options"),
                ("ui_pause_howtoplay", "Button_HowToPlay"), ("ui_pause_glossary", "Button_Glossary"),
                ("ui_pause_credits", "Button_Credits"), ("ui_pause_quittomenu", "Button_MainMenu"), ("ui_pause_quit", "Button_Quit")),
    ]


def switch(name, y):
    """A switch is clicked and shows its flag, so it is a button and an element."""
    return button(name, "ui_options", ("Menu_Options_On", "Menu_Options_On", "Menu_Options_Off"), (188, y), SWITCH, behaviour=name)


def options():
    return [
        element("ui_options_options", "Panel_Options", (0, 60), (720, 480)),
        switch("ui_options_music", 118),
        switch("ui_options_sfx", 8),
        button("ui_options_back", "ui_options", looks("Button_Back"), (0, -112)),
    ]


def end():
    """The banners and the buttons start unseen and fade in. A defeat moves its buttons up, for it offers no next level."""
    banner = ((0, 190), (1200, 288))
    places = (("ui_end_gotonext", "Button_NextLevel", -70), ("ui_end_restart", "Button_PlayAgain", -190),
              ("ui_end_mainmenu", "Button_MainMenu", -310))
    return [
        element("ui_victory", "Banner_Victory", *banner, alpha=0),
        element("ui_defeat", "Banner_Defeat", *banner, alpha=0),
        *(button(name, "ui_level_end", looks(texture), (0, y), alpha=0) for name, texture, y in places),
    ]


def lower_layer():
    """For the root of the level, after all that the level consists of."""
    return [*in_play(), element("ui_pause_fade", "UI_Fade", (0, 0), WIDE), *glossary("ui_pause_glossary")]


def upper_layer():
    """For the camera."""
    return [
        element("ui_splash", "UI_Backdrop", (0, 0), WIDE),
        *pause(),
        *options(),
        *page("ui_howtoplay", "ui_how_to_play", "Page_HowToPlay", "ui_pause_howtoplay_back"),
        *page("ui_pause_credits", "ui_pause_credits", "Page_Credits", "ui_pause_credits_back", size=(1008, 720)),
        *question("ui_quit", "ui_quit_confirm", "Panel_Quit", "ui_quit_yes", "ui_quit_no"),
        *question("ui_quit_menu", "ui_quit_mainmenu_confirm", "Panel_QuitLevel", "ui_pause_quittomenu_yes", "ui_pause_quittomenu_no"),
        *end(),
    ]
