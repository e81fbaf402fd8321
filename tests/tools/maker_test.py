"""The common part of the makers: writing, listing, and the checks, in a small repository of their own."""
import contextlib
import io
import pathlib
import sys
import tempfile
import unittest
import unittest.mock

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))

import maker  # noqa: E402


class MakerTest(unittest.TestCase):
    """A test in an empty directory, which the makers take for the repository."""

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name)
        root = unittest.mock.patch.object(maker, "ROOT", self.root)
        root.start()
        self.addCleanup(root.stop)

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text)

    def files(self):
        """The contents of all files by their paths."""
        return {path.relative_to(self.root).as_posix(): path.read_text() for path in self.root.rglob("*") if path.is_file()}

    def words(self, *arguments):
        """The output of the maker."""
        with contextlib.redirect_stdout(io.StringIO()) as out:
            self.make(*arguments)
        return out.getvalue()

    def assert_refused(self, words, *arguments):
        """The maker fails with exactly these words and writes nothing."""
        before = self.files()
        with self.assertRaises(SystemExit) as refused:
            self.make(*arguments)
        self.assertEqual(refused.exception.code, words)
        self.assertEqual(self.files(), before)


class TextMaker(MakerTest):
    TEXTS = {"one": {"data/a.json": "a", "data/b.json": "b"}, "two": {"data/c.json": "c"}}

    def make(self, *arguments):
        maker.run_text_maker(arguments, self.TEXTS, lambda name: self.TEXTS[name])

    def test_writes_every_file(self):
        self.words()
        self.assertEqual(self.files(), {"data/a.json": "a", "data/b.json": "b", "data/c.json": "c"})

    def test_writes_only_what_is_named(self):
        self.words("two")
        self.assertEqual(self.files(), {"data/c.json": "c"})

    def test_the_list_names_the_files_and_writes_none(self):
        self.assertEqual(self.words("--list"), "data/a.json\ndata/b.json\ndata/c.json\n")
        self.assertEqual(self.files(), {})

    def test_the_check_passes_after_a_run(self):
        self.words()
        self.assertEqual(self.words("--check"), "3 files are what their sources say\n")

    def test_the_check_names_each_file_that_differs_or_is_missing(self):
        self.words()
        self.write("data/b.json", "b\n")
        (self.root / "data/c.json").unlink()
        self.assert_refused("data/b.json differs from what its maker writes\ndata/c.json is missing", "--check")

    def test_an_option_that_changes_what_an_author_did_needs_a_name(self):
        with self.assertRaises(SystemExit) as refused:
            maker.read_arguments(["--start-over"], self.TEXTS, ("--check", "--start-over"))
        self.assertEqual(refused.exception.code, "--start-over needs the names of what it is to change")

    def test_an_unknown_name_or_option_is_refused(self):
        self.assert_refused("nothing is named three; the names are one, two", "three")
        for options in (["--force"], ["--check", "--list"]):
            self.assert_refused("the options are --check and --list, one at a time", *options)


class Renderer(MakerTest):

    def setUp(self):
        super().setUp()
        self.sources = {"data/a.png": b"red", "data/b.png": b"green"}
        self.write("assets/sources", "")

    def make(self, *arguments):
        paths = {"a": "data/a.png", "b": "data/b.png"}
        files = {name: path for name, path in paths.items() if path in self.sources}
        rendered = maker.Rendered("assets", self.sources)
        maker.run_renderer(arguments, files, rendered, lambda name: self.write(paths[name], f"picture {name}"))

    def test_the_check_passes_after_rendering(self):
        self.make()
        self.assertEqual(self.words("--check"), "2 files are what their sources say\n")

    def test_the_check_does_not_render(self):
        self.assert_refused("data/a.png is missing\ndata/b.png is missing", "--check")

    def test_a_source_that_changed_after_rendering(self):
        self.make()
        self.sources["data/b.png"] = b"blue"
        self.assert_refused("data/b.png is older than its source", "--check")
        self.make("b")
        self.words("--check")

    def test_a_file_that_was_edited(self):
        self.make()
        self.write("data/a.png", "retouched")
        self.assert_refused("data/a.png is not the file that was rendered from its source", "--check")

    def test_a_file_that_nobody_rendered(self):
        self.make("a")
        self.write("data/b.png", "a stranger")
        self.assert_refused("data/b.png is not in assets/rendered.json", "--check")

    def test_a_source_that_is_gone(self):
        self.make()
        del self.sources["data/b.png"]
        self.assert_refused("data/b.png has no source", "--check")
        self.make("a")
        self.words("--check")


if __name__ == "__main__":
    unittest.main()
