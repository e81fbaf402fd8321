"""The interface that all levels share: what a level shows in play, and the screens of its pause and of its end.

It lies in two layers. The lower one is drawn with the world, in the order of creation: what a level shows in play. Particles, which
are created later, are drawn over it. The upper one lies below the camera and covers everything: the sheet that dims a level, and on
it the screens.
"""
import copy

from pieces import OFF_SCREEN, SWITCH, WIDE, button, column, element, glossary, image, looks, page, question, sample, text

NEVER = "ui_key_hint"  # no screen has this state, so the hints of keys are always shown and never clicked
# The strips lie on the walls above and below the arena. Their bays lie towards the screen's edge; towards the arena runs a line.
TOP, BOTTOM, TOP_BAY, BOTTOM_BAY, TOP_LINE, BOTTOM_LINE = 510, -510, 514, -514, 483, -483
STRIP, LINE, BAY = (2560, 60), (2560, 6), 48
PALE = (0.95, 0.96, 1.0)
ENERGY_LEFT, ENERGY = -582, (196, 24)  # of the full bar
# The middles of the bays that show the weapons, and their width.
WEAPONS, WEAPON = (-237, 237), 250
SHELL = (25 / 64, 49 / 64)  # a place of all guns' images where they have the colour of their side
DIM, FULL = 0.3, 1.0  # brightness of a bay behind the name of a weapon, and of the lines
# Pieces of former interfaces, which a level that is renewed loses.
RETIRED = {"ui_controls", "ui_round_plate", "ui_goal", "ui_energy_plate", "ui_weapon0_plate", "ui_weapon1_plate"}


def hint(name, texture, left, width):
    return button(name, NEVER, (texture, texture, texture), (left + width / 2, BOTTOM_BAY), (width, BAY), visible=True)


def side_light(index, name, at, size, brightness):
    """A plain area in the colour of the acting unit's side: bright when the weapon is in its hand, and else faint."""
    return sample(f"ui_weapon{index}_tex", "Gun_Basic_Green", SHELL, at, size, f"ui_{name}{index}", brightness)


def turn_lines():
    """Along the strips, in the colour of the side whose turn it is. Those of the two weapons lie on each other, since one of them
    is bright at a time.
    """
    return [side_light(index, f"turn_line_{strip}", (0, y), LINE, FULL)
            for strip, y in (("top", TOP_LINE), ("bottom", BOTTOM_LINE)) for index in (0, 1)]


def weapon(index):
    """The bay of a weapon: its gun and its name, on a ground that is lit when it is in the hand. The gun is drawn twice, since one
    alone is too faint to be told from others when it is not in the hand.
    """
    x = WEAPONS[index]
    gun = element(f"ui_weapon{index}_tex", "Gun_Basic_Green", (x - 92, BOTTOM_BAY), (48, 48), alpha=0, visible=True)
    return [side_light(index, "weapon_ground", (x, BOTTOM_BAY), (WEAPON - 8, BAY - 8), DIM),
            side_light(index, "weapon_mark", (x, BOTTOM_BAY - BAY / 2 + 5), (WEAPON - 28, 4), FULL),
            gun, copy.deepcopy(gun),
            text(f"ui_weapon{index}_font", (x - 56, BOTTOM_BAY - 8), 0.54, PALE)]


def in_play():
    bar = (ENERGY_LEFT + ENERGY[0] / 2, BOTTOM_BAY)
    return [
        element("aoe_indicator", "UI_Reach", (0, 0), (0, 0), visible=True),
        image("ui_strip_top", "Hud_Top", (0, TOP), STRIP),
        image("ui_strip_bottom", "Hud_Bottom", (0, BOTTOM), STRIP),
        element("ui_energy", "UI_EnergyFilled", bar, ENERGY, visible=True),
        image("ui_energy_frame", "Hud_EnergyFrame", bar, (ENERGY[0] + 8, ENERGY[1] + 10)),
        text("ui_turn", (40, TOP_BAY - 10), 0.66, PALE),
        hint("ui_cycle_left", "Hud_CycleLeft", -104, 84),
        hint("ui_cycle_right", "Hud_CycleRight", -20, 124),
        hint("ui_undo", "Hud_Undo", 370, 178),
        hint("ui_skip", "Hud_Skip", 556, 156),
        *weapon(0),
        *weapon(1),
        *turn_lines(),
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
        switch("ui_options_music", 128),
        switch("ui_options_sfx", 28),
        button("ui_options_back", "ui_options", looks("Button_Back"), (0, -110)),
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


def closing():
    """Unseen, but drawn in every frame, after all else. Tiles show what the last sprite of the frame before left of the square that
    all share; after an animated one, say a loose crystal or an example of the glossary, that is the width of one of its frames.
    """
    return [image("ui_closing", "UI_FadeLevel", OFF_SCREEN, (1, 1), alpha=0)]


def lower_layer():
    """For the root of the level, after all that the level consists of."""
    return in_play()


def upper_layer():
    """For the camera."""
    return [
        element("ui_pause_fade", "UI_FadeLevel", (0, 0), WIDE),
        element("ui_splash", "UI_Backdrop", (0, 0), WIDE),
        *glossary("ui_pause_glossary"),
        *pause(),
        *options(),
        *page("ui_howtoplay", "ui_how_to_play", "Page_HowToPlay", "ui_pause_howtoplay_back"),
        *page("ui_pause_credits", "ui_pause_credits", "Page_Credits", "ui_pause_credits_back", size=(1008, 720)),
        *question("ui_quit", "ui_quit_confirm", "Panel_Quit", "ui_quit_yes", "ui_quit_no"),
        *question("ui_quit_menu", "ui_quit_mainmenu_confirm", "Panel_QuitLevel", "ui_pause_quittomenu_yes", "ui_pause_quittomenu_no"),
        *end(),
        *closing(),
    ]
