"""The pictures of the levels: which levels have one, where their player aims, and when a picture is out of date."""
import pathlib
import tempfile
import unittest

from makers import ROOT, load

previews = load("previews")


class Previews(unittest.TestCase):

    def aim(self, unit):
        with tempfile.TemporaryDirectory() as folder:
            description = pathlib.Path(folder) / "level.toml"
            description.write_text('[[units]]\nside = "enemy"\nat = [500, 500]\nturn = 90\n' + unit)
            return tuple(round(value, 6) for value in previews.aim(description))

    def test_every_level_of_the_menu_that_has_a_description_has_a_picture(self):
        described = [name for name in ("level01", "level02", "level03", "level04") if (ROOT / f"assets/levels/{name}.toml").exists()]
        self.assertGreater(len(described), 0)
        self.assertEqual(list(previews.descriptions()), described)

    def test_a_description_that_changed_makes_its_picture_old_and_no_other(self):
        contents = {name: file.read_bytes() for name, file in previews.descriptions().items()}
        contents["level01"] += b"\n"
        taken = previews.record(contents)
        self.assertEqual(list(taken.faults(taken.sources)), ["assets/images/previews/level01.png is older than its source"])

    def test_the_first_unit_of_the_player_aims_straight_ahead(self):
        for turn, place in ((0, (100, 530)), (-90, (430, 200)), (90, (-230, 200)), (180, (100, -130))):
            with self.subTest(turn=turn):
                self.assertEqual(self.aim(f'[[units]]\nside = "player"\nat = [100, 200]\nturn = {turn}\n'), place)


if __name__ == "__main__":
    unittest.main()
