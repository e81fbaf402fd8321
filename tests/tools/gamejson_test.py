"""JSON as the game writes it. That whole files come out so is shown by the tests that load and save the shipped levels."""
import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))

import gamejson  # noqa: E402


class GameJson(unittest.TestCase):

    def assert_texts(self, texts):
        for value, text in texts.items():
            with self.subTest(value=value):
                self.assertEqual(gamejson.text(value), text)

    def test_a_float_is_written_as_the_double_of_its_32_bits(self):
        self.assert_texts({0.5: "0.5", 0.7: "0.699999988079071", 1 / 3: "0.3333333432674408", -1600.0: "-1600.0"})

    def test_zeros_keep_their_sign(self):
        self.assertEqual(gamejson.text(0.0), "0.0")
        self.assertEqual(gamejson.text(-0.0), "-0.0")

    def test_large_and_small_numbers_have_exponents(self):
        self.assert_texts({1e20: "100000002004087730000.0", 1e21: "1.0000000200408774e21", 2.0 ** 100: "1.2676506002282295e30",
                           1e-5: "0.000009999999747378752", 1e-6: "9.999999974752428e-7", 2.0 ** -149: "1.401298464324817e-45"})

    def test_digits_are_those_of_the_games_library_where_they_are_not_the_nearest(self):
        self.assertEqual(repr(gamejson.single(1637.9007568359375)), "1637.9007568359375")
        self.assertEqual(gamejson.text(1637.9007568359375), "1637.9007568359376")

    def test_whole_numbers_flags_and_words(self):
        self.assert_texts({7: "7", True: "true", False: "false", "a/b": '"a/b"', 'say "so"\\': '"say \\"so\\"\\\\"',
                           "\n\t\x1f": '"\\n\\t\\u001F"', "grün": '"grün"'})

    def test_four_spaces_and_no_line_break_at_the_end(self):
        self.assertEqual(gamejson.text({"a": [1, {"b": []}], "c": {}}),
                         '{\n    "a": [\n        1,\n        {\n            "b": []\n        }\n    ],\n    "c": {}\n}')


if __name__ == "__main__":
    unittest.main()
