"""The common part of the makers' tests: the makers themselves, and the files that the level maker makes of a description."""
import importlib.machinery
import importlib.util
import pathlib
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tools"))

LEVEL01 = (ROOT / "assets/levels/level01.toml").read_text()


def load(name):
    """A script of tools/ as a module."""
    loader = importlib.machinery.SourceFileLoader(name, str(ROOT / "tools" / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(name, loader))
    loader.exec_module(module)
    return module


level_maker = load("levelmaker")


def make_level(text):
    """The files of a level with this description, by their paths."""
    with tempfile.TemporaryDirectory() as folder:
        description = pathlib.Path(folder) / "level.toml"
        description.write_text(text)
        return level_maker.make(description)
