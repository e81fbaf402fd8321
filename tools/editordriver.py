"""Drives the level editor in its window of 1920 by 1080 pixels, as an author does: by real keys and clicks.

The tutorial of ./edit and the end-to-end test of the editor use it. Places are pixels of the client area, where the
editor's layout has them at that size.
"""
import time

from driver import Game, Picture, call, move_mouse, wait_until

TITLE = "Carapace level editor"
PATIENCE = 180.0  # seconds: on a loaded machine the editor has to catch up with all that was done before
PAUSE = 0.4  # seconds that the editor gets to show what a click did

MENU_BAR = {"Level": (29, 15), "Edit": (77, 15), "View": (122, 15)}
LEVEL_MENU = {"New": 40, "Open": 64, "Recent": 86, "Save": 112, "Test-play": 135, "Close": 157, "Quit": 184}
BUILD_TABS = {"Palette": (40, 790), "Tiles": (100, 790), "Assets": (160, 790)}
CHECK_TABS = {"Problems": (815, 790), "History": (890, 790), "Log": (950, 790), "Winnable?": (1020, 790)}
TILE_MODES = {"Draw Single": (22, 820), "Erase": (140, 820), "Draw Row": (218, 820), "Draw Column": (325, 820),
              "Rotate Tile": (454, 820)}
TILE_TEXTURES = {"Floor": (50, 877), "Wall": (143, 877)}
SEARCH, FIRST_ENTRY = (85, 823), (50, 900)  # of the palette
NAME_FIELD = (1800, 71)  # of the inspector
CREATE = (853, 517)  # of the dialog for a new level
PICTURE = (250, 25)  # the upper left corner of the level's picture
UNITS_PER_PIXEL = 1.5


class Editor:
    """The running editor and its window."""

    def __init__(self, program, directory, logs):
        self.game = Game(program, directory, logs, arguments=["--edit"])
        self.window = wait_until(self.find_window, "the editor's window")
        wait_until(lambda: Picture.of_screen().brightness() > 5, "the first picture")
        self.left, self.top = self.window.rectangle()[:2]
        time.sleep(2 * PAUSE)

    def find_window(self):
        assert self.game.is_running(), "the editor failed:\n" + self.game.output() + self.game.errors()
        window = self.game.find_window(TITLE)
        return window if window and window.has_focus() else None

    def settle(self):
        """Waits until the window stands still, so that a picture of it shows all that was done."""
        last = None

        def stands():
            nonlocal last
            before, last = last, Picture.of_screen().data
            return before == last
        wait_until(stands, "a picture at rest", PATIENCE)

    def move(self, place):
        move_mouse(self.left + int(place[0]), self.top + int(place[1]))
        time.sleep(0.15)

    def click(self, place, times=1):
        self.move(place)
        for _ in range(times):
            call("xdotool", "mousedown", "1")
            time.sleep(0.12)
            call("xdotool", "mouseup", "1")
            time.sleep(0.1)
        time.sleep(PAUSE)

    def drag(self, start, end):
        self.move(start)
        call("xdotool", "mousedown", "1")
        for part in (0.25, 0.5, 0.75, 1):
            time.sleep(0.12)
            self.move([a + (b - a) * part for a, b in zip(start, end)])
        time.sleep(0.2)
        call("xdotool", "mouseup", "1")
        time.sleep(PAUSE)

    def key(self, *keys):
        """Presses keys in their order, and lets go of them."""
        for key in keys:
            call("xdotool", "keydown", key)
            time.sleep(0.1)
        for key in reversed(keys):
            call("xdotool", "keyup", key)
            time.sleep(0.05)
        time.sleep(PAUSE)

    def type(self, text):
        call("xdotool", "type", "--delay", "120", text)
        time.sleep(PAUSE)

    def level_menu(self, item):
        self.click(MENU_BAR["Level"])
        self.click((60, LEVEL_MENU[item]))

    def new_level(self, name):
        self.level_menu("New")
        time.sleep(PAUSE)
        self.type(name)
        self.click(CREATE)
        time.sleep(PAUSE)

    def choose_tile(self, texture, mode):
        """Takes a tile and a tool in hand."""
        self.click(BUILD_TABS["Tiles"])
        self.click(TILE_TEXTURES[texture])
        self.click(TILE_MODES[mode])

    def stroke(self, start, end=None):
        """A stroke of the tool in hand between two places of the level."""
        self.drag(self.place(*start), self.place(*(end or start)))

    def search_palette(self, entry):
        """Leaves one entry of the palette."""
        self.click(BUILD_TABS["Palette"])
        self.click(SEARCH)
        self.key("ctrl", "a")
        self.type(entry)

    def put(self, at):
        """Puts the entry that is left at a place of the level."""
        self.click(FIRST_ENTRY)
        self.click(self.place(*at))

    def fill_name(self, name):
        """Types a name for the object that the inspector shows."""
        self.click(NAME_FIELD)
        self.key("ctrl", "a")
        self.type(name)
        self.key("Return")

    def save(self):
        self.move(self.place(0, 0))
        self.key("ctrl", "s")

    def quit(self):
        self.level_menu("Quit")
        return self.game.wait_for_end()

    @staticmethod
    def place(x, y):
        """The pixel of a point of the level, while the view is not moved (unit: world units)."""
        return PICTURE[0] + 640 + x / UNITS_PER_PIXEL, PICTURE[1] + 360 - y / UNITS_PER_PIXEL
