"""The pages: every relative link and every path in backticks leads to something that exists."""
import os
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGES = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md")])

FENCE = re.compile(r"^```.*?^```$", re.M | re.S)
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
# Names, folders and patterns of files. `Level Editor` is the one folder with a space.
PATH = re.compile(r"(\./)?(Level Editor/)?[\w.*/<>{},-]+")
# A word that ends in one of these is a file, even without a folder before it.
ENDINGS = tuple("cpp h py md json toml txt png svg ogg ttf vert frag cmake log *".split())


def ignored():
    """The paths that git does not keep: what the build and the game write."""
    return [line.strip("/") for line in (ROOT / ".gitignore").read_text().split()]


def tree():
    """All files and folders of the repository, by their paths."""
    left_out = {".git", *ignored()}
    paths = []
    for folder, folders, files in os.walk(ROOT):
        place = pathlib.Path(folder).relative_to(ROOT)
        folders[:] = [name for name in folders if (place / name).as_posix() not in left_out and name != "__pycache__"]
        paths += [(place / name).as_posix() for name in (*folders, *files)]
    return paths


TREE = tree()
NAMES = [path.rsplit("/", 1)[-1] for path in TREE]


def pattern(path):
    """`*` and `<kind>` stand for a part of a name, `**` for any number of folders, `{a,b}` for either."""
    parts = re.split(r"(\*\*|\*|<\w+>|\{[^}]*\})", path)

    def meaning(part):
        if part == "**":
            return ".*"
        if part == "*" or part.startswith("<"):
            return "[^/]*"
        if part.startswith("{"):
            return "(" + "|".join(map(re.escape, part[1:-1].split(","))) + ")"
        return re.escape(part)
    return re.compile("".join(map(meaning, parts)))


def is_path(text):
    """True for the name of a file, and for anything with a folder in it."""
    name, _, ending = text.rpartition(".")
    return PATH.fullmatch(text) is not None and ("/" in text or bool(name) and ending in ENDINGS)


def exists(path):
    """True for a path from the repository's root or from zovengine/, and for the mere name of a file anywhere."""
    path = path.removeprefix("./").rstrip("/")
    if any(path == kept or path.startswith(f"{kept}/") for kept in ignored()):
        return True
    wanted = pattern(path)
    places = TREE if "/" in path else [*TREE, *NAMES]
    return any(wanted.fullmatch(place) or wanted.fullmatch(place.removeprefix("zovengine/")) for place in places)


def anchors(page):
    """The names by which the headings of a page can be linked to."""
    titles = re.findall(r"^#+ (.+)$", FENCE.sub("", page.read_text()), re.M)
    return {re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-") for title in titles}


def paths_in(text):
    """The paths in backticks. Of a command only its first word counts, and only if that is a path."""
    for code in CODE.findall(FENCE.sub("", text)):
        if is_path(code):
            yield code
        elif is_path(code.split(" ")[0]):
            yield code.split(" ")[0]


def links_in(text):
    return [target for target in LINK.findall(FENCE.sub("", text)) if "://" not in target]


class Pages(unittest.TestCase):

    def test_the_pages_have_links_and_paths(self):
        text = "".join(page.read_text() for page in PAGES)
        self.assertGreater(len(links_in(text)), 20)
        self.assertGreater(len(list(paths_in(text))), 100)

    def test_every_relative_link_leads_to_a_file_and_a_heading(self):
        for page in PAGES:
            for target in links_in(page.read_text()):
                with self.subTest(page=page.name, target=target):
                    path, _, heading = target.partition("#")
                    file = page.parent / path if path else page
                    self.assertTrue(file.exists(), "no such file")
                    if heading:
                        self.assertIn(heading, anchors(file))

    def test_every_path_in_backticks_leads_to_something(self):
        for page in PAGES:
            for path in paths_in(page.read_text()):
                with self.subTest(page=page.name, path=path):
                    self.assertTrue(exists(path), "no such file")

    def test_every_page_of_docs_can_be_reached_from_the_readme(self):
        reached, new = set(), {ROOT / "README.md"}
        while new:
            page = new.pop()
            reached.add(page)
            targets = {(page.parent / target.partition("#")[0]).resolve() for target in links_in(page.read_text())}
            new |= {target for target in targets if target in PAGES} - reached
        self.assertEqual([page.name for page in PAGES if page not in reached], [])


class Paths(unittest.TestCase):

    def test_what_counts_as_a_path(self):
        for text in ("zovengine/gameobj.h", "gameobj.*", "docs/", "Level Editor/Levels/", "./play", "projectile<kind>.cpp",
                     "tools/{screen,setup}", "log_file.log"):
            self.assertTrue(is_path(text), text)
        for text in ("m_pos", "1.0", "GameObj::Set", "a / b", "--level FILE", "n/60 steps", ".cpp", "*"):
            self.assertFalse(is_path(text), text)

    def test_what_exists(self):
        for path in ("zovengine/gameobj.h", "gameobj.h", "core/engine.h", "engine.*", "docs/", "./play", "tools/{screen,setup}",
                     "build/shots", "log_file.log", "Level Editor/Levels/Level<NN>/Level<NN>.json"):
            self.assertTrue(exists(path), path)
        for path in ("gameobject.h", "core/gameobj.h", "engine/", "docs/nothing.md", "tools/{a,b}"):
            self.assertFalse(exists(path), path)

    def test_the_paths_of_a_page(self):
        text = "Run `tools/screen COMMAND` and `ctest -L unit`, see `core/engine.h`.\n```\n`no/such/path`\n```\n"
        self.assertEqual(list(paths_in(text)), ["tools/screen", "core/engine.h"])
        self.assertEqual(links_in("[a](b.md#c) [d](https://e.org)"), ["b.md#c"])


if __name__ == "__main__":
    unittest.main()
