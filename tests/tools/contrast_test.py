"""Whether everything that moves or hurts stands out from the floor, for all eyes; and the measure itself."""
import unittest

from makers import load

import colours
import scene

contrast = load("contrast")

WHITE, BLACK, RED, GREEN = (1, 1, 1), (0, 0, 0), (1, 0, 0), (0, 1, 0)


def light(place, diffuse=(1, 1, 1), ambient=(0, 0, 0), specular=(0, 0, 0)):
    return scene.Light(place, ambient, diffuse, specular)


class Colours(unittest.TestCase):

    def test_contrast_goes_from_1_to_21(self):
        self.assertEqual(colours.contrast(0.3, 0.3), 1)
        self.assertAlmostEqual(colours.contrast(colours.luminance(BLACK), colours.luminance(WHITE)), 21)
        self.assertEqual(colours.contrast(0.1, 0.4), colours.contrast(0.4, 0.1))

    def test_grey_of_half_the_steps_has_a_fifth_of_the_light(self):
        self.assertAlmostEqual(colours.to_linear(128 / 255), 0.2159, 4)
        self.assertEqual(colours.linear((1.5, -1, 1)), (1, 0, 1))

    def test_all_eyes_see_white_as_white(self):
        for eyes in colours.EYES:
            for channel in colours.look(WHITE, eyes):
                self.assertAlmostEqual(channel, 1, 3, eyes)

    def test_red_is_dark_to_protanopes_and_near_to_green_for_both(self):
        red = {eyes: colours.look(RED, eyes) for eyes in colours.EYES}
        green = {eyes: colours.look(GREEN, eyes) for eyes in colours.EYES}
        self.assertLess(colours.luminance(red["protanopia"]), colours.luminance(RED))
        for eyes in ("protanopia", "deuteranopia"):
            self.assertLess(colours.distance(red[eyes], green[eyes]), colours.distance(RED, GREEN))

    def test_black_and_white_lie_100_apart(self):
        self.assertAlmostEqual(colours.distance(BLACK, WHITE), 100, 3)
        self.assertEqual(colours.distance(RED, RED), 0)


class Light(unittest.TestCase):

    def test_a_place_without_light_shows_half(self):
        self.assertEqual(scene.shine([], (0, 0)), ([0.5] * 3, [0] * 3))
        self.assertEqual(scene.shine([light((300, 0, 1))], (0, 0)), ([0.5] * 3, [0] * 3))

    def test_a_light_above_a_place_adds_all_of_its_strength(self):
        glow, _ = scene.shine([light((10, 10, 60), (0.4, 0.2, 0), (0.1, 0, 0))], (10, 10))
        for seen, expected in zip(glow, (1.0, 0.7, 0.5)):
            self.assertAlmostEqual(seen, expected)

    def test_it_falls_off_as_in_the_shader(self):
        glow, _ = scene.shine([light((150, 0, 1), (1, 1, 1))], (0, 0))
        self.assertAlmostEqual(glow[0], 0.5 + 0.75 ** 2 * 80 / (150 ** 2 + 80 ** 2) ** 0.5)

    def test_the_constants_are_those_of_the_shader(self):
        shader = (scene.ROOT / "Resources/Shaders/light.frag").read_text()
        for line in (f"kBaseShare = {scene.BASE};", f"kLampHeight = {scene.HEIGHT}.0;", f"lightReach = {scene.REACH}.0;"):
            self.assertIn(line, shader)


class Contrast(unittest.TestCase):

    def test_the_share_that_must_reach_the_contrast_counts(self):
        self.assertEqual(contrast.reached([1, 2, 3, 4], 0.5), 3)
        self.assertEqual(contrast.reached([5, 1, 1, 1], 0.25), 5)
        self.assertEqual(contrast.reached([5, 1, 1, 1], 0.5), 1)
        self.assertEqual(contrast.reached([], 0.5), 1)

    def test_a_floor_does_not_stand_out_from_itself(self):
        plates = list(contrast.places(lambda own: False))
        self.assertGreater(len(plates), 0)
        for place in plates:
            itself = contrast.Subject("floor", "hazard", place.plate, ())
            self.assertLess(contrast.measure(itself, place)["usual"], 2)

    def test_every_kind_is_looked_at(self):
        found = contrast.subjects()
        self.assertEqual({subject.kind for subject in found}, contrast.SHARE.keys())
        self.assertEqual({subject.name.split()[0] for subject in found if subject.kind == "unit"}, {"player", "enemy", "boss"})
        self.assertEqual(len({subject.name for subject in found if subject.kind == "shot"}), 7)
        self.assertGreaterEqual(len({subject.name.split()[0] for subject in found if subject.kind == "hazard"}), 6)

    def test_everything_stands_out(self):
        weak = {(subject.sprite.texture, place.name): found for subject, place, found in contrast.measurements()
                if min(found.values()) < contrast.LEAST}
        self.assertEqual(weak, {}, "tools/contrast tells more")

    def test_the_sides_are_apart_in_grey_and_for_colour_blind_eyes(self):
        distances = contrast.team_distances()
        self.assertEqual(distances.keys(), {"grey", "protanopia", "deuteranopia"})
        for eyes, apart in distances.items():
            self.assertGreaterEqual(apart, contrast.TEAMS_APART[eyes], eyes)


if __name__ == "__main__":
    unittest.main()
