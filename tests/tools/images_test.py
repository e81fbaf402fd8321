"""The list of images: what each is drawn from, by which the check knows whether it is up to date."""
import unittest

from makers import ROOT, load

render_images = load("render_images")
FOLDER = ROOT / "assets/images"
LISTED = render_images.read_list()


class Images(unittest.TestCase):

    def test_every_file_that_an_image_is_drawn_from_exists(self):
        for image in LISTED.values():
            for file in (image.source, *image.further):
                self.assertTrue((FOLDER / file).is_file(), f"{image.name} is drawn from {file}")

    def test_a_further_file_is_part_of_what_decides_the_look(self):
        page = LISTED["Page_HowToPlay"]
        self.assertIn("beetle.svg", page.further)
        self.assertIn((FOLDER / "beetle.svg").read_bytes(), page.content())
        alone = page._replace(further=())
        self.assertNotEqual(alone.content(), page.content())

    def test_every_described_level_has_a_preview_of_itself(self):
        for number in range(1, 5):
            description = f"../levels/level{number:02}.toml"
            preview = LISTED[f"Menu_Preview_Level{number:02}"]
            for file in (description, f"previews/level{number:02}.png"):
                self.assertEqual(file in preview.further, (FOLDER / description).is_file(), preview.name)


if __name__ == "__main__":
    unittest.main()
