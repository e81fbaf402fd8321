"""The tests mirror the sources: most headers have a test of the same name, and every component has tests in its folder."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HEADERS = sorted((ROOT / "zovengine").rglob("*.h"))
TESTS = {path.relative_to(ROOT / "tests").as_posix(): path.read_text() for path in (ROOT / "tests").rglob("*_test.cpp")}

CLASS = re.compile(r"\bclass (\w+)(?: final)? : public (\w+)")


def name(header):
    """The path of a header below zovengine/, without its ending."""
    return header.relative_to(ROOT / "zovengine").with_suffix("").as_posix()


def has_test(header):
    """True if a test has the header's name."""
    return any(test.rpartition("/")[2] == f"{header.stem}_test.cpp" for test in TESTS)


def bases():
    """The direct base of each class of the headers, and the header of each."""
    found = {}
    for header in HEADERS:
        for own, base in CLASS.findall(header.read_text()):
            found[own] = (base, header)
    return found


def component_headers():
    """The headers of all classes below GameComponentBase from which no other class derives."""
    classes = bases()
    derived_from = {base for base, _ in classes.values()}
    headers = []
    for own, (base, header) in classes.items():
        while base in classes:
            base = classes[base][0]
        if base == "GameComponentBase" and own not in derived_from:
            headers.append(header)
    return headers


class Names(unittest.TestCase):

    def test_four_of_five_headers_have_a_test_of_the_same_name(self):
        missing = [name(header) for header in HEADERS if not has_test(header)]
        self.assertGreater(len(HEADERS), 100)
        self.assertLessEqual(len(missing) / len(HEADERS), 0.2, f"without a test of their name: {missing}")

    def test_every_component_is_included_by_a_test_of_its_folder(self):
        headers = component_headers()
        self.assertGreater(len(headers), 30)
        for header in headers:
            folder = name(header).rpartition("/")[0]
            include = f'#include "{name(header)}.h"'
            with self.subTest(component=name(header)):
                self.assertTrue(any(test.startswith(f"{folder}/") and include in text for test, text in TESTS.items()),
                                "no test of its folder includes it")


if __name__ == "__main__":
    unittest.main()
