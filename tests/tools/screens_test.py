"""The screens of levels and of the menu: nothing that the program knows by name is missing in them, and they fit the screen."""
import functools
import itertools
import json
import re
import subprocess
import unittest

from makers import ROOT, load

import pieces
from levels import interface
from pieces import walk

MENU = "MainMenu"
LEVELS = [path.parent.parent.name for path in sorted((ROOT / "Level Editor/Levels").glob("Level*/Entity/Units.json"))]
# The names that no data file carries, and why.
UNUSED_BEHAVIOURS = {"ui_element_default": "does nothing", "ui_selection_circle": "the turn machine sets it"}
UNUSED_HANDLERS = {"default": "reports a button that was forgotten"}
KEY_HINTS = {"ui_skip", "ui_cycle_left", "ui_cycle_right", "ui_undo"}
EXAMPLES = ("EnvDestructible", "EnvDamage", "EnvBlackhole")
GUN_SIDES = ("_Green", "_Red")
HALF_WIDTH, HALF_HEIGHT = 720, 540  # of a screen of 4 by 3
STRIP_PIECES = ("ui_strip", "ui_energy", "ui_cycle", "ui_undo", "ui_skip", "ui_weapon", "ui_turn_line")  # how their names begin
LABEL = 121  # to the right of a unit that leans on the right wall of an arena there is no more room for its label
LABEL_HEIGHT, STRIPS = 100, 480  # of the image; from here on the strip lies over the arena
HALF_UNIT, DIGIT = 45, 24  # world units; a digit beside the bar of health is so high
SHOTS = "zovengine/game/shots"
TARGET = 0.8  # of a button's height


def read(source):
    return (ROOT / "zovengine" / source).read_text()


def rows(source, table):
    """The keys of a table of functions."""
    body = read(source).split(f" {table} = {{")[1].split("\n};")[0]
    return set(re.findall(r'^    \{"(\w+)",', body, re.M))


BEHAVIOURS = rows("ui/elements/behaviours.cpp", "g_element_behaviours")
HANDLERS = rows("ui/buttons/clickhandlers.cpp", "g_click_handlers")
STATES = set(re.findall(r'Show(?:Screen|Page)<"(\w+)">', read("ui/buttons/clickhandlers.cpp"))) | {"ui_level_end"}
LISTED = set(load("render_images").read_list())


def objects(screen):
    text = (ROOT / f"Level Editor/Levels/{screen}/Entity/Units.json").read_text()
    return json.loads(text)["GameObjFactory"]


def root(screen):
    """The object that runs the screen."""
    return next(own for own in objects(screen) if "GameController" in own or "MainMenuController" in own)


SCREENS = {name: [own for own, _ in walk(objects(name))] for name in (*LEVELS, MENU)}


def elements(screen):
    return {own["UIElement"]["m_ui_element_name"] for own in SCREENS[screen] if "UIElement" in own}


def buttons(screen):
    return [own for own in SCREENS[screen] if "Button" in own]


def clicks(screen):
    return {own["Button"]["m_click_name"] for own in buttons(screen)}


def of_menu(names):
    return {name for name in names if name.startswith("menu_")}


def over_all(screen):
    """The object whose children are drawn over all else."""
    return next(own for own in SCREENS[screen] if "Camera" in own)


@functools.cache
def drawn_part(texture):
    """Where what is drawn of an image begins and ends, as parts of its width."""
    path = ROOT / f"Resources/Textures/{texture}.png"
    printed = subprocess.run(["convert", str(path), "-alpha", "extract", "-threshold", "30%", "-format", "%@ %w", "info:"], check=True,
                             stdout=subprocess.PIPE, text=True).stdout
    width, _, left, _, whole = map(int, re.findall(r"\d+", printed))
    return left / whole, (left + width) / whole


def overlap(a, b):
    (ax, ay), (aw, ah) = (own["Transform"][key][:2] for own, key in ((a, "m_world_pos"), (a, "m_world_scale")))
    (bx, by), (bw, bh) = (own["Transform"][key][:2] for own, key in ((b, "m_world_pos"), (b, "m_world_scale")))
    return abs(ax - bx) < (aw + bw) / 2 and abs(ay - by) < (ah + bh) / 2 * TARGET


@functools.cache
def colour_at(texture, where):
    """The red, green, blue and alpha that an image has at a place, u and v from its upper left corner."""
    u, v = where
    values = " ".join(f"%[fx:round(255*p{{{u}*w,{v}*h}}.{channel})]" for channel in "rgba")
    path = ROOT / f"Resources/Textures/{texture}.png"
    printed = subprocess.run(["convert", str(path), "-format", values, "info:"], check=True, stdout=subprocess.PIPE, text=True).stdout
    return tuple(map(int, printed.split()))


class Screens(unittest.TestCase):

    def test_the_tables_and_the_files_are_found(self):
        self.assertGreater(len(BEHAVIOURS), 30)
        self.assertGreater(len(HANDLERS), 35)
        self.assertGreater(len(STATES), 10)
        self.assertGreater(len(LEVELS), 0)

    def test_every_behaviour_has_an_element(self):
        wanted = BEHAVIOURS - UNUSED_BEHAVIOURS.keys()
        self.assertLessEqual(of_menu(wanted), elements(MENU))
        for level in LEVELS:
            self.assertLessEqual(wanted - of_menu(wanted), elements(level), level)

    def test_every_click_handler_has_a_button(self):
        wanted = HANDLERS - UNUSED_HANDLERS.keys()
        self.assertLessEqual(of_menu(wanted), clicks(MENU))
        for level in LEVELS:
            self.assertLessEqual(wanted - of_menu(wanted), clicks(level), level)

    def test_what_is_left_out_with_a_reason_is_in_the_tables_and_in_no_file(self):
        self.assertLessEqual(UNUSED_BEHAVIOURS.keys(), BEHAVIOURS)
        self.assertLessEqual(UNUSED_HANDLERS.keys(), HANDLERS)
        for screen in SCREENS:
            self.assertFalse(elements(screen) & UNUSED_BEHAVIOURS.keys(), screen)
            self.assertFalse(clicks(screen) & UNUSED_HANDLERS.keys(), screen)

    def test_every_element_has_a_behaviour_and_every_button_a_handler(self):
        for screen in SCREENS:
            self.assertLessEqual(elements(screen), BEHAVIOURS, screen)
            self.assertLessEqual(clicks(screen) - KEY_HINTS, HANDLERS, screen)

    def test_every_button_lives_in_a_state_that_comes_but_the_hints_of_keys(self):
        for screen in SCREENS:
            for own in buttons(screen):
                name, state = own["Button"]["m_click_name"], own["Button"]["m_usable_state"]
                self.assertEqual(state in STATES, name not in KEY_HINTS, f"{screen}: {name} in {state}")

    def test_every_level_shows_the_hints_of_keys(self):
        for level in LEVELS:
            self.assertLessEqual(KEY_HINTS, clicks(level), level)

    def test_lines_along_both_strips_show_whose_turn_it_is(self):
        for level in LEVELS:
            for strip in ("top", "bottom"):
                lines = [own for own in SCREENS[level] if own["name"] in (f"ui_turn_line_{strip}0", f"ui_turn_line_{strip}1")]
                self.assertEqual([own["UIElement"]["m_ui_element_name"] for own in lines], ["ui_weapon0_tex", "ui_weapon1_tex"], level)
                self.assertEqual(lines[0]["Transform"], lines[1]["Transform"], level)
                for own in lines:
                    self.assertEqual({tuple(vertex[3:5]) for vertex in own["iModel"]["m_vertices"]}, {interface.SHELL}, level)

    def test_a_gun_has_the_colour_of_its_side_where_the_lines_take_theirs(self):
        strongest = {"Green": 1, "Red": 0, "Boss": 2}
        guns = {key: strongest[key.rsplit("_", 1)[1]] for key in LISTED if key.startswith("Gun_")}
        self.assertEqual(set(guns.values()), {0, 1, 2})
        for gun, channel in guns.items():
            colour = colour_at(gun, interface.SHELL)
            others = [value for place, value in enumerate(colour[:3]) if place != channel]
            self.assertEqual(colour[3], 255, gun)
            self.assertGreater(colour[channel], max(others) + 40, f"{gun}: {colour}")

    def test_every_button_has_a_click_to_hear(self):
        for screen in SCREENS:
            for own in buttons(screen):
                self.assertEqual(own["AudioSource"]["sounds"], ["button_click.ogg"], f"{screen}: {own['name']}")

    def test_buttons_of_a_state_do_not_overlap(self):
        for screen in SCREENS:
            for a, b in itertools.combinations(buttons(screen), 2):
                if a["Button"]["m_usable_state"] == b["Button"]["m_usable_state"]:
                    self.assertFalse(overlap(a, b), f"{screen}: {a['name']} and {b['name']}")

    def test_the_buttons_of_a_defeat_do_not_overlap(self):
        places = re.findall(r'\{"(ui_end_\w+)", Vector3D\(([-\d.]+)f, ([-\d.]+)f', read("ui/buttons/button.cpp"))
        self.assertEqual(len(places), 3)
        moved = []
        for name, x, y in places:
            own = next(own for own in buttons(LEVELS[0]) if own["name"] == name)
            moved.append({"Transform": {**own["Transform"], "m_world_pos": [float(x), float(y)]}})
        for a, b in itertools.combinations(moved, 2):
            self.assertFalse(overlap(a, b))

    def test_buttons_fit_a_narrow_screen(self):
        for screen in SCREENS:
            for own in buttons(screen):
                (x, y), (width, height) = own["Transform"]["m_world_pos"][:2], own["Transform"]["m_world_scale"][:2]
                self.assertLessEqual(abs(x) + width / 2, HALF_WIDTH, f"{screen}: {own['name']}")
                self.assertLessEqual(abs(y) + height / 2 * TARGET, HALF_HEIGHT, f"{screen}: {own['name']}")

    def test_every_texture_of_a_screen_is_drawn(self):
        for screen in SCREENS:
            self.assertEqual(set(pieces.textures(objects(screen))) - LISTED, set(), screen)

    def test_every_texture_that_the_program_names_is_drawn(self):
        """A word that ends in _ only tells kinds apart."""
        kinds = r'"((?:Menu|Glossary|UI|UnitBeetle|Sheet|WeaponFloat)_\w*[^\W_]|Gun_\w+)"'
        named = {key for path in (ROOT / "zovengine").rglob("*.[ch]*") for key in re.findall(kinds, path.read_text())}
        guns = {key + side for key in named if key.startswith("Gun_") and key != "Gun_Boss" for side in GUN_SIDES}
        self.assertGreater(len(guns), 10)
        shown = {key for key in named if not key.startswith("Gun_")} | guns | {"Gun_Boss"}
        self.assertEqual(shown - LISTED, set())

    def test_the_root_of_the_menu_is_the_first_object(self):
        self.assertIn("MainMenuController", objects(MENU)[0])

    def test_nothing_that_drifts_in_the_menu_covers_a_page(self):
        """Children of a camera are drawn last, and what an emitter gives off is no child of it."""
        self.assertIn("Camera", root(MENU))
        emitters = [own for own in objects(MENU)[1:] if "ParticleSystemC" in own]
        self.assertGreater(len(emitters), 0)
        self.assertEqual([own["name"] for own, _ in walk(root(MENU)["Childs"]) if "ParticleSystemC" in own], [])

    def test_nothing_that_is_drawn_comes_after_the_interface_of_a_level(self):
        for level in LEVELS:
            after = objects(level)[objects(level).index(root(level)) + 1:]
            self.assertEqual([own["name"] for own, _ in walk(after) if "Render" in own], [], level)

    def test_the_title_starts_below_its_place(self):
        title = next(child for child in root(MENU)["Childs"] if child["name"] == "game_logo")
        self.assertLess(title["Transform"]["m_pos"][1], 200)

    def test_the_preview_carries_its_name_twice(self):
        name = "menu_levelselect_preview"
        found = [child for child in root(MENU)["Childs"] if child["name"] == name]
        self.assertEqual([child["UIElement"]["m_ui_element_name"] for child in found], [name])

    def test_the_pieces_of_the_glossary_lie_beside_its_tabs_and_over_all_of_a_level(self):
        for screen, prefix in (*((level, "ui_pause_glossary") for level in LEVELS), (MENU, "menu_glossary")):
            names = [child["name"] for child in over_all(screen)["Childs"]]
            for piece in (*(f"{prefix}_{part}" for part in ("img", "weapons", "enviro")), *EXAMPLES):
                self.assertIn(piece, names, screen)

    def test_the_sheet_that_dims_a_level_covers_particles_and_no_screen(self):
        """Particles are created last, so they are drawn over all that is not below the camera."""
        for level in LEVELS:
            self.assertEqual(over_all(level)["Childs"][0]["name"], "ui_pause_fade", level)

    def test_of_the_strips_of_a_level_nothing_is_seen_beside_a_screen_or_the_end(self):
        for level in LEVELS:
            sheet = next(own for own in SCREENS[level] if own["name"] == "ui_pause_fade")
            height, texture = sheet["Transform"]["m_world_scale"][1], sheet["Render"]["m_tex"]
            pieces_of_strips = [own for own in SCREENS[level] if own["name"].startswith(STRIP_PIECES) and "Render" in own]
            self.assertGreater(len(pieces_of_strips), 15)
            for own in pieces_of_strips:
                y, half = own["Transform"]["m_world_pos"][1], own["Transform"]["m_world_scale"][1] / 2
                for edge in (min(y + half, HALF_HEIGHT), max(y - half, -HALF_HEIGHT)):
                    self.assertEqual(colour_at(texture, (0.5, 0.5 - edge / height))[3], 255, f"{level}: {own['name']}")

    def test_the_label_of_each_weapon_lies_in_the_middle_above_or_below_its_unit(self):
        """The game puts the label's middle 120 units to the right of the unit, and makes it as wide as the weapon says."""
        widths = dict(re.findall(r'"(WeaponFloat_\w+)", (\d\.\d+)f', "".join(path.read_text() for path in (ROOT / SHOTS).glob("*.h"))))
        self.assertEqual(set(widths), {key for key in LISTED if key.startswith("WeaponFloat_")})
        units = [own for level in LEVELS for own in SCREENS[level] if "Player" in own or "Enemy" in own and not own["Enemy"]["m_boss"]]
        for own in units:
            label = next(child for child in own["Childs"] if child["name"] == "WeaponText")
            places = [vertex[:2] for vertex in label["iModel"]["m_vertices"]]
            aside, up = (sum(place[axis] for place in places) / 4 for axis in (0, 1))
            for texture, width in widths.items():
                left, right = (own["Transform"]["m_scale"][0] * float(width) * (aside + side - 0.5) + 120 for side in drawn_part(texture))
                self.assertLess(abs(left + right) / 2, 4, texture)
                self.assertLess(right, LABEL, texture)
            bar = next(child for child in own["Childs"] if child["name"] == "hp_font")["Transform"]["m_pos"][1]
            self.assertTrue((up - 0.25) * LABEL_HEIGHT > bar + DIGIT or (up + 0.25) * LABEL_HEIGHT < -HALF_UNIT, own["name"])
            self.assertLess(own["Transform"]["m_pos"][1] + (up + 0.25) * LABEL_HEIGHT, STRIPS, f"{own['name']} at the strip")

    def test_nothing_touches_the_examples_of_the_glossary(self):
        for screen in SCREENS:
            examples = [own for own in SCREENS[screen] if own["name"] in EXAMPLES and "UIElement" in own]
            self.assertEqual({own["name"] for own in examples}, {*EXAMPLES}, screen)
            for own in examples:
                self.assertNotIn("ColliderHolder", own, f"{screen}: {own['name']}")
                self.assertNotIn("RigidBody", own, f"{screen}: {own['name']}")

    def test_the_numbers_of_units_come_back_after_a_pause(self):
        for level in LEVELS:
            for own in SCREENS[level]:
                if own["name"] in ("hp_font", "turn_font"):
                    self.assertEqual(own["UIElement"]["m_ui_element_name"], "ui_font", level)

    def test_every_unit_has_a_ring(self):
        for level in LEVELS:
            for own in SCREENS[level]:
                if "Player" in own or "Enemy" in own:
                    rings = [child for child in own["Childs"] if child.get("UIElement", {}).get("m_ui_element_name") == "ui_selection_circle_off"]
                    self.assertEqual(len(rings), 1, f"{level}: {own['name']}")


if __name__ == "__main__":
    unittest.main()
