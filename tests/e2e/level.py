"""What the tests of the levels share: the turns that the program prints, and the units in its pictures."""
import math
import os
import time

from case import SETTINGS, WORLD, GameTest
from driver import call, move_mouse, wait_until

TURN_LINES = {
    "Enemy Turn Begin", "Enemy Unit Select", "Enemy Shoot", "Enemy Aim", "Enemy Turn End", "Player Turn Begin",
    "Player Unit Select", "Player Move", "Player Shoot", "Player Turn End"
}
MUSIC = "maintheme03.ogg"
SMALLER_WINDOW = (960, 540)  # a software renderer keeps up with it, which saves half of the time

TURN_PATIENCE = 150.0  # seconds on a loaded machine for a whole round, or until all is at rest
LOOK_PAUSE = 0.25  # seconds between two looks: a picture takes as long as some steps of the game

# World units.
SAMPLES = 4.5  # between the samples that look for units
BODY = (30, 150)  # a unit's body is about 75 wide and high, its bar of health only 7 high, a closing ring much larger
SOLID = 0.15  # of its rectangle a body fills at least; the strip that shows an enemy's aim fills a tenth when it lies across
ARENA = 475  # from the middle up and down: beyond lie the strips with the keys and the weapons
NEAR = 12  # two looks at the same unit differ by less, however it is turned
MUZZLE = (28, 45)  # how far the yellow end of a gun is from the middle of its unit; the corners of its outline are farther
MUZZLE_SIZE = 12  # what is yellow farther apart is not the same muzzle

# Steps of brightness, of 255.
LINE_SEEN = 20  # the aim line adds about 40 to its ground
LINE_UNSEEN = 10
SHOT_SEEN = 50  # the middle of a shot against its ground


def is_green(r, g, b):
    """Whether a colour is a player's: smoke in its light is bluer."""
    return g > 100 and g > r + 45 and g > b + 14


def is_red(r, g, b):
    return r > g + 80 and r > b + 60


def is_yellow(r, g, b):
    return g > 140 and r > g and g > b + 70


def distance(a, b):
    return math.hypot(a[0] - b[0], a[1] - b[1])


def bearing(start, end):
    """Degrees from the x axis, counter-clockwise."""
    return math.degrees(math.atan2(end[1] - start[1], end[0] - start[0]))


def angle_between(a, b):
    """Degrees, 0 to 180."""
    return abs((a - b + 180) % 360 - 180)


class View:
    """A picture of the window, addressed by places of the world."""

    def __init__(self, picture):
        self.picture = picture
        self.ratio = picture.height / WORLD[1]

    def pixel_at(self, place):
        return (round(self.picture.width / 2 + place[0] * self.ratio),
                round(self.picture.height / 2 - place[1] * self.ratio))

    def place_at(self, pixel):
        return ((pixel[0] - self.picture.width / 2) / self.ratio, (self.picture.height / 2 - pixel[1]) / self.ratio)

    def colour(self, place):
        x, y = self.pixel_at(place)
        at = (y * self.picture.width + x) * 3
        return self.picture.data[at:at + 3]

    def crop(self, middle, width, height):
        """A part of the picture, its size in world units."""
        x, y = self.pixel_at((middle[0] - width / 2, middle[1] + height / 2))
        return self.picture.crop(x, y, round(width * self.ratio), round(height * self.ratio))

    def units(self, colour):
        """The middles of the bodies of one side, from the top downwards: of what is coloured, not of its rectangle, whose sides
        lie on legs that are as thin as the samples.

        A ring that closes around a selected unit hides the units of its side that it touches.
        """
        data, width = self.picture.data, self.picture.width
        grid = round(SAMPLES * self.ratio)
        top, bottom = (self.pixel_at((0, y))[1] for y in (ARENA, -ARENA))
        left = {(x, y) for y in range(top, bottom, grid) for x in range(0, width, grid)
                if colour(*data[(y * width + x) * 3:(y * width + x) * 3 + 3])}
        places = []
        while left:
            patch = _take_patch(left, grid)
            xs, ys = [x for x, _ in patch], [y for _, y in patch]
            sides = sorted((max(xs) - min(xs), max(ys) - min(ys)))
            filled = len(patch) * grid * grid / ((sides[0] + grid) * (sides[1] + grid))
            if BODY[0] * self.ratio <= sides[0] and sides[1] <= BODY[1] * self.ratio and filled >= SOLID:
                places.append(self.place_at((sum(xs) / len(xs), sum(ys) / len(ys))))
        return sorted(places, key=lambda place: -place[1])

    def gun_bearing(self, unit):
        """The direction of a unit's gun, by the yellow of its muzzle: the densest of what is yellow around the unit."""
        reach = range(-MUZZLE[1], MUZZLE[1] + 1, 2)
        seen = [(dx, dy) for dx in reach for dy in reach
                if MUZZLE[0] < math.hypot(dx, dy) < MUZZLE[1] and is_yellow(*self.colour((unit[0] + dx, unit[1] + dy)))]
        assert seen, f"no gun is seen at {unit}"
        muzzle = max(([other for other in seen if distance(point, other) < MUZZLE_SIZE] for point in seen), key=len)
        return bearing((0, 0), (sum(x for x, _ in muzzle), sum(y for _, y in muzzle)))

    def gains(self, start, end, near=120, far=60):
        """How much brighter each point of a straight path is than the ground beside it.

        Returns pairs of the offset from the start and the difference; `near` and `far` cut off the ends of the path.
        """
        length = distance(start, end)
        along = ((end[0] - start[0]) / length, (end[1] - start[1]) / length)
        result = []
        for offset in range(near, int(length) - far, 4):
            x, y = start[0] + along[0] * offset, start[1] + along[1] * offset
            beside = [sum(self.colour((x - side * along[1], y + side * along[0]))) for side in (-28, 28)]
            result.append((offset, (sum(self.colour((x, y))) - max(beside)) / 3))
        return result

    def line_gain(self, start, end):
        """How much brighter than the ground beside it the path is, for half of its points."""
        gains = sorted(gain for _, gain in self.gains(start, end))
        return gains[len(gains) // 2]


def _take_patch(left, grid):
    """Takes samples that lie within two steps of each other out of the set."""
    patch = [left.pop()]
    steps = (-2 * grid, -grid, 0, grid, 2 * grid)
    for x, y in patch:
        for near in ((x + dx, y + dy) for dx in steps for dy in steps):
            if near in left:
                left.remove(near)
                patch.append(near)
    return patch


class LevelTest(GameTest):
    """The game, started in a level."""

    LEVEL = ""

    def setUp(self):
        super().setUp()
        self.noted = []
        self.mouse = None
        self.addCleanup(self.save_pictures)

    def level_file(self):
        return f"Level Editor/Levels/{self.LEVEL}/{self.LEVEL}.json"

    def objects_file(self):
        return self.read_json(self.level_file())["Objects"]

    def change_units(self, change):
        """Calls `change` with the record of each unit of the level, and writes the records back."""
        objects = self.read_json(self.objects_file())
        for root in objects["GameObjFactory"]:
            for record in root["Childs"]:
                if "Player" in record or "Enemy" in record:
                    change(record)
        self.write_json(self.objects_file(), objects)

    def start_level(self, size=SMALLER_WINDOW):
        settings = self.read_json(SETTINGS)
        settings["winwidth"], settings["winheight"] = size
        self.write_json(SETTINGS, settings)
        self.game = self.start(arguments=["--level", self.level_file()])
        self.window = self.game.wait_for_window()
        wait_until(lambda: self.window.size() == size, "the window's size")
        self.corner = self.window.rectangle()[:2]

    # The picture

    def look(self, name=None):
        """The view of the window; with a name the picture is kept beside the program's output."""
        picture = self.window.picture()
        if name is not None:
            self.noted.append((name, picture))
        return View(picture)

    def save_pictures(self):
        """Saves at the end, since packing a picture takes as long as many steps of the game."""
        for count, (name, picture) in enumerate(self.noted, 1):
            picture.save(self.logs / f"{count:02}-{name}.png")

    def watch(self, condition, what, patience=TURN_PATIENCE):
        """Looks at the window until a condition on the view holds, and returns the condition's result."""
        def seen():
            result = condition(self.look())
            if not result:
                time.sleep(LOOK_PAUSE)
            return result
        return wait_until(seen, what, patience)

    def players(self):
        return self.look().units(is_green)

    def enemies(self):
        return self.look().units(is_red)

    def wait_for_shot(self, paths, name):
        """Waits until a shot has been seen at two offsets of one of several paths, the second one larger."""
        first = [None] * len(paths)

        def flown():
            view = self.look()
            for index, path in enumerate(paths):
                spot, gain = max(view.gains(*path), key=lambda pair: pair[1])
                if gain < SHOT_SEEN or view.line_gain(*path) > LINE_UNSEEN:
                    continue
                farther = first[index] is not None and spot > first[index] + 40
                if first[index] is None or farther:
                    self.noted.append((name, view.picture))
                first[index] = spot if first[index] is None else min(first[index], spot)
                if farther:
                    return True
            return False
        wait_until(flown, name)

    def open_files(self):
        """The names of the files that the program has open."""
        folder = f"/proc/{self.game.process.pid}/fd"
        names = []
        for name in os.listdir(folder):
            try:
                names.append(os.path.basename(os.readlink(f"{folder}/{name}")))
            except FileNotFoundError:
                pass
        return names

    # The printed lines

    def turns(self):
        """The lines of the turn machine so far."""
        return [line for line in self.game.output().splitlines() if line in TURN_LINES]

    def count(self, line):
        return self.turns().count(line)

    def wait_for(self, line, times=1):
        """Waits until a line has been printed this many times since the start."""
        wait_until(lambda: self.count(line) >= times, f"{times} times '{line}'", TURN_PATIENCE)

    def assert_no_turns(self, seconds):
        """The turn machine prints nothing for a while."""
        before = self.turns()
        time.sleep(seconds)
        self.assertEqual(self.turns()[len(before):], [])

    # The player's input

    def point_at(self, place):
        """Moves the mouse to a place in the world."""
        x, y = View(self.window.picture()).pixel_at(place)
        self.mouse = place
        move_mouse(self.corner[0] + x, self.corner[1] + y)

    def fire(self):
        """Holds the button until the selected unit has fired: the game polls it."""
        shots = self.count("Player Shoot")
        call("xdotool", "mousedown", "1")
        try:
            wait_until(lambda: self.count("Player Shoot") > shots, "the shot")
        finally:
            call("xdotool", "mouseup", "1")

    def wait_for_aim(self, times):
        """Waits until a player unit aims at the mouse, after this many selections since the start; returns its place."""
        self.wait_for("Player Unit Select", times)

        def aiming(view):
            units = [unit for unit in view.units(is_green) if distance(unit, self.mouse) > 250]
            lines = [unit for unit in units if view.line_gain(unit, self.mouse) > LINE_SEEN]
            return lines[0] if len(lines) == 1 else None
        return self.watch(aiming, "the aim line")
