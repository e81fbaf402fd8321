"""What an author does in the editor, from an empty level to a test-play: the steps of the tutorial in docs/editor.md.

The tutorial of ./edit and the end-to-end test of the editor take them.
"""
from driver import wait_until
from editordriver import CHECK_TABS, PATIENCE, Editor

PLAYERS = ((-600, 240), (-600, -240))
ENEMIES = ((600, 240), (600, -240))
HAZARD, HAZARD_MOVED = (300, 0), (300, -240)
FLOOR_ROWS = [420 - 120 * row for row in range(8)]
COVER = [((x, 150), (x, -150)) for x in (-30, 30)]  # the strokes of a wall in the middle, two cells thick
RENAMED = "Gunner"
FIRST_TURN = "Enemy Unit Select"  # what the game prints when a level runs


class AuthorSession:
    """The running editor with a level of this name; each step is one line of the tutorial."""

    def __init__(self, program, directory, logs, name):
        self.name = name
        self.editor = Editor(program, directory, logs)

    def begin(self):
        self.editor.new_level(self.name)
        self.wait_for_line(f"Opened {self.name}.")

    def lay_floor(self):
        self.editor.choose_tile("Floor", "Draw Row")
        for y in FLOOR_ROWS:
            self.editor.stroke((0, y))
        self.editor.settle()

    def build_walls(self):
        self.editor.choose_tile("Wall", "Draw Row")
        self.editor.stroke((0, 510))
        self.editor.stroke((0, -510))
        self.editor.choose_tile("Wall", "Draw Column")
        self.editor.stroke((-930, 0))
        self.editor.stroke((930, 0))
        self.editor.choose_tile("Wall", "Draw Single")
        for ends in COVER:
            self.editor.stroke(*ends)
        self.editor.settle()

    def place_units(self):
        for entry, places in (("Player unit", PLAYERS), ("Enemy unit", ENEMIES)):
            self.editor.search_palette(entry)
            for place in places:
                self.editor.put(place)
            self.editor.settle()

    def place_hazard(self):
        self.editor.search_palette("Damaging")
        self.editor.put(HAZARD)
        self.editor.settle()

    def move_hazard(self):
        self.editor.drag(self.editor.place(*HAZARD), self.editor.place(*HAZARD_MOVED))
        self.editor.settle()

    def rename_unit(self):
        """Types a new name for the first unit into the inspector."""
        self.editor.click(self.editor.place(*PLAYERS[0]))
        self.editor.fill_name(RENAMED)
        self.editor.settle()

    def check(self):
        self.editor.click(CHECK_TABS["Problems"])

    def save(self):
        """Saves, and waits until the files are written."""
        times = self.lines().count(f"Saved {self.name}.")
        self.editor.save()
        wait_until(lambda: self.lines().count(f"Saved {self.name}.") > times, "the save", PATIENCE)

    def play(self):
        """Test-plays the level until its first unit's turn."""
        self.editor.key("F9")
        self.wait_for_line(FIRST_TURN)

    def come_back(self):
        self.editor.key("Escape")
        self.wait_for_line("Back from the test-play.")

    def quit(self):
        """Quits by the menu; returns the exit status."""
        return self.editor.quit()

    def end(self):
        self.editor.game.kill()

    def lines(self):
        return self.editor.game.output().splitlines()

    def wait_for_line(self, line):
        wait_until(lambda: line in self.lines(), f"'{line}'", PATIENCE)
