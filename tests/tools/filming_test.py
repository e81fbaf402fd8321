"""The scenes of the trailer: one that does no more what it was chosen for is aimed anew, or played with another seed."""
import contextlib
import io
import unittest
import unittest.mock

import makers  # finds the modules of tools/
import filming

FIRED = filming.Scene("s", "Level01", ["skip", "switch,fire=178"], "1 dead", before=1, still=1)
WAITED = FIRED._replace(turns=["fall=Boss"])


def settled(scene, does):
    """The scene that is taken if only scenes for which `does` holds kill somebody."""
    outcome = lambda tried: "enemies 1 dead" if does(tried) else "carapace_film: the level is over before that"
    with unittest.mock.patch.object(filming, "rehearse", outcome), contextlib.redirect_stdout(io.StringIO()):
        return filming.settle(scene)


class Settle(unittest.TestCase):
    def test_a_scene_that_does_its_part_is_taken_as_it_is(self):
        self.assertEqual(settled(FIRED, lambda tried: True), FIRED)

    def test_otherwise_the_nearest_angle_is_taken_across_half_a_turn_too(self):
        good = ("switch,fire=-174", "switch,fire=150")
        self.assertEqual(settled(FIRED, lambda tried: tried.turns[-1] in good).turns, ["skip", "switch,fire=-174"])

    def test_every_angle_is_tried_before_any_seed(self):
        angles = {scene.turns[-1] for scene in filming.aims(FIRED)}
        self.assertEqual(len(angles | {FIRED.turns[-1]}), 180)
        self.assertEqual(settled(FIRED, lambda tried: tried.seed == 7), FIRED._replace(seed=7))

    def test_a_scene_that_waits_for_something_gets_another_seed(self):
        self.assertEqual(list(filming.aims(WAITED)), [])
        self.assertEqual(settled(WAITED, lambda tried: tried.seed in (5, 9)), WAITED._replace(seed=5))

    def test_a_scene_that_nothing_helps_ends_the_program(self):
        with self.assertRaisesRegex(SystemExit, "no angle"):
            settled(FIRED, lambda tried: False)


if __name__ == "__main__":
    unittest.main()
