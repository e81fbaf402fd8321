"""A player who finds the buttons of a screen by their names, points at them and clicks.

Places are world units from the middle of the window, y upwards; a window of any size shows 1080 of them in its height.
"""
import json
import pathlib
import time

from driver import TAP, Picture, call, move_mouse, wait_until

HEIGHT = 1080
REST = (500, -300)  # where the mouse is over no button
NEAR = 20  # pixels around the mouse in which the crosshair is seen
CHANGED = 3  # mean change around the mouse, when the crosshair has come
LOOK = 0.2  # seconds from the mouse's coming to the button's answer: a few frames
COMING = 150.0  # seconds in which a button must have come, on a loaded machine
LIT = 2  # mean change of a part of a button that lights up
EDGE = 30  # world units of a button that are looked at, left of the crosshair


def read_objects(directory, screen):
    """The records of the objects of a level or a screen."""
    directory = pathlib.Path(directory)
    level = json.loads((directory / f"Level Editor/Levels/{screen}/{screen}.json").read_text())
    return json.loads((directory / level["Objects"]).read_text())["GameObjFactory"]


def find_all(records, component):
    """The records of all objects with a component, in a tree of object records."""
    for record in records:
        if component in record:
            yield record
        yield from find_all(record["Childs"], component)


class Player:
    """The hand on the mouse of one window."""

    def __init__(self, directory, window):
        self.directory, self.window = directory, window
        self.buttons = {}
        self.mouse = None

    def turn_to(self, screen):
        """From now on the buttons' names are those of this level or screen."""
        self.buttons = {record["name"]: record["Transform"] for record in find_all(read_objects(self.directory, screen), "Button")}

    def place(self, button):
        """The middle of a button."""
        return tuple(self.buttons[button]["m_pos"][:2])

    def pixel_at(self, place):
        """The pixel of the screen that shows a place."""
        x, y, width, height = self.window.rectangle()
        return (round(x + width / 2 + place[0] * height / HEIGHT), round(y + height / 2 - place[1] * height / HEIGHT))

    def point_at(self, place):
        """Moves the mouse to a place and waits until the game shows it there."""
        if place == self.mouse:
            return
        x, y = self.pixel_at(place)
        area = (x - NEAR, y - NEAR, 2 * NEAR, 2 * NEAR)
        before = Picture.of_part(*area)
        move_mouse(x, y)
        self.mouse = place
        wait_until(lambda: Picture.of_part(*area).difference(before) > CHANGED, f"the crosshair at {place}")

    def hover(self, button):
        self.point_at(self.place(button))

    def click(self, button):
        """Clicks on a button, by its name."""
        self.hover(button)
        self.press()

    def press(self):
        """Clicks where the mouse is."""
        time.sleep(TAP)
        call("xdotool", "mousedown", "1")
        time.sleep(TAP)
        call("xdotool", "mouseup", "1")

    def wait_for(self, button):
        """Waits until a button lights up under the mouse and only there, as it does once it has come; leaves the mouse on it."""
        def answers():
            before, lit, after = (self._look_from(place, button) for place in (REST, self.place(button), REST))
            return before.difference(after) < LIT / 2 and before.difference(lit) > LIT
        wait_until(answers, f"{button} under the mouse", COMING)
        self.hover(button)

    def _look_from(self, place, button):
        """The left end of a button while the mouse is at a place."""
        self.point_at(place)
        time.sleep(LOOK)
        return self._left_end(button)

    def _left_end(self, button):
        (x, y), (width, height) = self.place(button), self.buttons[button]["m_scale"][:2]
        left, top = self.pixel_at((x - 0.4 * width, y + 0.25 * height))
        right, bottom = self.pixel_at((x - 0.4 * width + EDGE, y - 0.25 * height))
        return Picture.of_part(left, top, right - left, bottom - top)
