"""Films scenes of play for tools/trailer and tools/screenshots, by the program of tools/film/film.cpp.

tools/film/scenes.toml describes the scenes. The simulation repeats itself, so a scene is the same on every machine, however slow;
only its frames need a display.
"""
import os
import pathlib
import subprocess
import sys
import tomllib
import typing

ROOT = pathlib.Path(__file__).resolve().parents[1]
SCENES = ROOT / "tools/film/scenes.toml"
PROGRAM = ROOT / "build/release/carapace_film"

SIZE = (1280, 720)
EVERY = 5  # steps from one frame of a film to the next
STEPS_A_SECOND = 60


class Scene(typing.NamedTuple):
    """A scene of play; docs/art.md and scenes.toml tell what the values mean."""

    name: str
    level: str
    turns: list
    does: str
    before: int
    still: int
    steps: int = 0
    seed: int = 1

    def command(self, *options):
        level = f"Level Editor/Levels/{self.level}/{self.level}.json"
        return [str(PROGRAM), level, str(self.seed), *self.turns, *options]


def read_scenes():
    return [Scene(**described) for described in tomllib.loads(SCENES.read_text())["scene"]]


def build():
    """Builds the program that films, which no other target needs."""
    quietly = dict(cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--preset", "release"], **quietly)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "carapace_film"], **quietly)


def rehearse(scene):
    """What the scene's last shot does, in words, without a picture."""
    done = subprocess.run(scene.command(), cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.stdout.strip()


def film(scene, steps, every=EVERY):
    """The frames of a scene, each SIZE pixels of r, g, b."""
    command = scene.command("--before", str(scene.before), "--frames", str(steps), "--every", str(every))
    data = subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.PIPE).stdout
    area = SIZE[0] * SIZE[1] * 3
    assert data and len(data) % area == 0, f"{scene.name}: the film has broken frames"
    return [data[at:at + area] for at in range(0, len(data), area)]


def still(scene):
    """The frame of the scene's screenshot."""
    return film(scene, scene.still + 1, scene.still)[-1]


def require_display(program):
    if not os.environ.get("DISPLAY"):
        sys.exit(f"There is no display here: tools/screen {program} gives it one.")


def convert(pixels, *arguments):
    """Runs ImageMagick on a frame, or on frames that follow each other."""
    subprocess.run(["convert", "-size", "{}x{}".format(*SIZE), "-depth", "8", "rgb:-", *map(str, arguments)], input=pixels, check=True)
