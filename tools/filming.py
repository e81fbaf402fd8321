"""Films scenes of play for tools/trailer and tools/screenshots, by the program of tools/film/film.cpp.

tools/film/scenes.toml describes the scenes. The simulation repeats itself, so a scene is the same on every machine, however slow;
only its frames need a display.
"""
import os
import pathlib
import re
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
SEEDS = range(1, 61)  # that are tried for a scene which does no more what it was chosen for
AIM_STEP = 2  # between the angles that are tried (unit: degrees)


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


def does_its_part(scene):
    """Whether the scene's last shot does what it was chosen for; and what it does."""
    done = rehearse(scene)
    return bool(re.search(scene.does, done)), done


def aims(scene):
    """The scene with each other angle of its last shot, the nearest ones first; none if it does not end in one."""
    *turns, last = scene.turns
    fired = re.search(r"fire=(-?\d+)", last)
    for off in range(AIM_STEP, 180 + AIM_STEP, AIM_STEP) if fired else ():
        for angle in (int(fired[1]) - off, int(fired[1]) + off):
            angle = (angle + 180) % 360 - 180
            yield scene._replace(turns=[*turns, last.replace(fired[0], f"fire={angle}")])


def settle(scene):
    """The scene as it does what it was chosen for: as it is described, or else with another angle of its last shot, or with another seed,
    which is then said. Ends the program if none does.
    """
    good, done = does_its_part(scene)
    if good:
        return scene
    print(f"{scene.name}: {done}", flush=True)
    for tried in (*aims(scene), *(scene._replace(seed=seed) for seed in SEEDS)):
        if does_its_part(tried)[0]:
            print(f"{scene.name}: taken with seed = {tried.seed}, turns = {tried.turns} instead: look at it, and write that into {SCENES.name}", flush=True)
            return tried
    sys.exit(f"{scene.name}: no angle and none of {len(SEEDS)} seeds does \"{scene.does}\"")


def film(scene, steps, every=EVERY):
    """The frames of a scene, each SIZE pixels of r, g, b."""
    command = scene.command("--before", str(scene.before), "--frames", str(steps), "--every", str(every))
    data = subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.PIPE).stdout
    area = SIZE[0] * SIZE[1] * 3
    assert data and len(data) % area == 0, f"{scene.name}: the film has broken frames"
    return [data[at:at + area] for at in range(0, len(data), area)]


def still(scene):
    """The frame of a settled scene's screenshot."""
    return film(scene, scene.still + 1, scene.still)[-1]


def require_display(program):
    if not os.environ.get("DISPLAY"):
        sys.exit(f"There is no display here: tools/screen {program} gives it one.")


def convert(pixels, *arguments):
    """Runs ImageMagick on a frame, or on frames that follow each other."""
    subprocess.run(["convert", "-size", "{}x{}".format(*SIZE), "-depth", "8", "rgb:-", *map(str, arguments)], input=pixels, check=True)
