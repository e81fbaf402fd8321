"""What units and shots look like: sheets, loops, blasts and bars agree with the images and with what the game does."""
import math
import unittest

from makers import load
from levels.hazards import hazard_records
from levels.shots import KINDS, REACH, shot
from levels.units import SIZE, unit_record
from pieces import walk
from records import transform

LISTED = load("render_images").read_list()
PIXELS = 720 / (2 * 1303.5 * math.tan(math.radians(22.5)))  # a world unit on a screen of 720 lines
STATES = ("spawn", "death", "once", "loop")
UNITS = {
    "player": dict(side="player", at=[0, 0], health=4, weapons=["BASIC", "PIERCE"]),
    "enemy": dict(side="enemy", at=[0, 0], health=3, weapons=["SWAP", "PUSH"]),
    "boss": dict(side="enemy", at=[0, 0], health=20, boss=True),
}
MADE = {kind: unit_record(unit, 1) for kind, unit in UNITS.items()}


def shots():
    own = transform(size=(SIZE["player"], SIZE["player"]))
    return {name: shot(name, "Weapon0Projectile", own) for name in KINDS}


def child(own, name):
    return next(found for found in own["Childs"] if found["name"] == name)


def sheets(own):
    """The sheets of an object and their numbers of frames, by the state that plays them."""
    played = own.get("Animation", {})
    return {state: (played[f"m_{state}"], played[f"m_{state}_frames"]) for state in STATES if played.get(f"m_{state}_frames")}


def everything():
    for own in (*MADE.values(), *shots().values()):
        yield from (record for record, *_ in walk([own]))


def loops_without_a_twin(records):
    """The names of the sprites with a loop before which no sprite with as many frames stands."""
    found, before = [], None
    for own in records:
        frames = sheets(own).get("loop", ("", 0))[1]
        if frames and before != frames and own["Render"]["m_colour"][3] > 0:
            found.append(own["name"])
        if "Render" in own:
            before = frames
    return found


class Effects(unittest.TestCase):

    def test_a_sheet_has_the_frames_of_its_image(self):
        for own in everything():
            for sheet, frames in sheets(own).values():
                self.assertEqual(frames, LISTED[sheet].frames, f"{own['name']}: {sheet}")

    def test_no_image_of_a_unit_is_larger_than_shown_on_a_screen_of_720_lines(self):
        for own in everything():
            plain = own.get("Render", {}).get("m_tex")
            for state, key in [("", plain), *((state, sheet) for state, (sheet, _) in sheets(own).items())]:
                if key is None or own["name"] == "WeaponText":  # the game sets this one's size
                    continue
                shown = [side * (3 if state == "death" else 1) * PIXELS for side in own["Transform"]["m_world_scale"]]
                self.assertLessEqual(LISTED[key].width, shown[0], f"{own['name']}: {key}")
                self.assertLessEqual(LISTED[key].height, shown[1], f"{own['name']}: {key}")

    def test_every_loop_of_a_unit_has_a_twin_before_it(self):
        for kind, unit in MADE.items():
            self.assertEqual(loops_without_a_twin(unit["Childs"]), [], kind)

    def test_every_loop_of_a_hazard_has_a_twin_before_it(self):
        for kind in ("black_hole", "damage", "destructible"):
            records = hazard_records({"kind": kind, "at": [0, 0]})
            self.assertEqual(loops_without_a_twin(records), [], kind)
            self.assertEqual(loops_without_a_twin(records[1:]), [records[1]["name"]], kind)

    def test_a_shot_keeps_its_shape_however_large_it_is_drawn(self):
        for name, own in shots().items():
            drawn, part = own["Transform"]["m_world_scale"][0], own["ColliderHolder"]["m_local_scale"][0]
            self.assertAlmostEqual(drawn * part, KINDS[name]["size"], msg=name)
            self.assertGreater(drawn, KINDS[name]["size"], name)

    def test_each_weapon_has_a_look_of_its_own(self):
        for look in (lambda own: own["Render"]["m_tex"],
                     lambda own: child(own, "bullet_hit")["Render"]["m_tex"],
                     lambda own: tuple(child(own, "bullet_trail")["ParticleSystemC"]["m_start_color_min"])):
            self.assertEqual(len({look(own) for own in shots().values()}), len(KINDS))

    def test_the_strips_of_a_boss_lie_on_the_lines_of_its_shots(self):
        """All three shots leave from one place, a gun's length before the middle, a quarter of a radian apart."""
        muzzle, angles = child(MADE["boss"], "Weapon0Barrel")["Transform"]["m_world_scale"][1], []
        for own in MADE["boss"]["Childs"]:
            if own.get("Render", {}).get("m_tex") == "UI_Sight":
                strip = own["Transform"]
                angle, half = math.radians(strip["m_world_rotate"]), strip["m_world_scale"][1] / 2
                angles.append(angle)
                self.assertAlmostEqual(strip["m_world_pos"][0] + math.sin(angle) * half, 0)
                self.assertAlmostEqual(strip["m_world_pos"][1] - math.cos(angle) * half, muzzle)
        for angle, expected in zip(angles, (-0.25, 0, 0.25), strict=True):
            self.assertAlmostEqual(angle, expected, places=3)

    def test_a_blast_is_drawn_as_far_as_it_reaches(self):
        for name in ("EXPLOSION", "VACUUM"):
            size = child(shots()[name], "bullet_hit")["Transform"]["m_world_scale"][0]
            self.assertAlmostEqual(size / 2 * REACH, KINDS[name]["fields"]["m_aoe"], msg=name)

    def test_the_hit_of_a_shot_that_flies_on_is_short(self):
        for name in ("BASIC", "BOUNCE", "SWAP"):
            played = child(shots()[name], "bullet_hit")["Animation"]
            self.assertLessEqual(played["m_once_frames"] * played["m_time_per_frame"], 0.1, name)

    def test_a_bar_has_a_tick_for_each_point_of_health_up_to_twelve(self):
        made = {**MADE, "boss of a level": unit_record({**UNITS["boss"], "health": 12}, 1)}
        frames = {kind: child(unit, "ui_hp_frame")["Render"]["m_tex"] for kind, unit in made.items()}
        self.assertEqual(frames, {"player": "UI_HpBarFrame4", "enemy": "UI_HpBarFrame3", "boss": "UI_HpBarFrame",
                                  "boss of a level": "UI_HpBarFrame12"})


if __name__ == "__main__":
    unittest.main()
