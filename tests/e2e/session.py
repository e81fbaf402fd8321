"""A session of the game from the splash screen on, in levels that are over after one shot."""
import json

from case import SETTINGS, WINDOW
from driver import tap, wait_until
from ears import Ears
from level import LevelTest
from moments import Moments
from player import REST, Player

SIDE, BELOW = 660, -250  # where the two units of a duel stand, to the left and the right; a window of 4 to 3 shows them
LEVELS = ("Level01", "Level02")
ASIDE = (0, 300)  # where it is out of the units' way

# What the masks hide, in world units: x, y, width, height.
CROSSHAIR = 84
ARENA = (0, 0, 1920, 964)  # units move there
PROMPT = (0, -220, 500, 90)  # it blinks
HOLE = (0, 285, 760, 510)  # it turns
HOLE_ABOVE_PANEL = (0, 475, 1000, 130)  # what is seen of it while the levels are shown


class Session(LevelTest):
    """A session from the splash screen on. The levels are an empty field with one weak unit a side."""

    def setUp(self):
        super().setUp()
        for level in LEVELS:
            self.make_duel(level)
        self.ears = Ears(self.directory)

    def make_duel(self, level):
        """Leaves a level its first units, its interface and the walls around it."""
        plan = self.read_json(f"Level Editor/Levels/{level}/{level}.json")
        objects, walls, tiles = (self.read_json(plan[key]) for key in ("Objects", "TileMap", "Tiles"))
        root = next(record for record in objects["GameObjFactory"] if "GameController" in record)
        units = [next(record for record in root["Childs"] if key in record) for key in ("Player", "Enemy")]
        for unit, key, x in zip(units, ("Player", "Enemy"), (-SIDE, SIDE)):
            unit["Transform"]["m_pos"][:2] = unit["Transform"]["m_world_pos"][:2] = [x, BELOW]
            unit[key]["m_health"] = unit[key]["m_max_health"] = 1
        root["Childs"] = units + [record for record in root["Childs"] if self.is_interface(record)]
        objects["GameObjFactory"] = [root]
        self.write_json(plan["Objects"], objects)
        columns, rows = walls["Width"], walls["Height"]
        border = [(x, y) for y in range(rows) for x in range(columns) if x in (0, columns - 1) or y in (0, rows - 1)]
        walls["TileMap"] = [[int((x, y) in border) for x in range(columns)] for y in range(rows)]
        self.write_json(plan["TileMap"], walls)
        tiles["GameObjFactory"] = list(self.walls_at(border, walls, tiles["GameObjFactory"]))
        self.write_json(plan["Tiles"], tiles)

    @staticmethod
    def is_interface(record):
        return "UIElement" in record or "Camera" in record or record["name"].startswith("ui_")

    @staticmethod
    def walls_at(cells, walls, tiles):
        """A wall for each cell, made like the first one of the level."""
        wall = next(tile for tile in tiles if tile["Render"]["m_tex"].startswith("Wall_"))
        for x, y in cells:
            size = walls["TileSize"]
            place = [(x + 0.5 - walls["Width"] / 2) * size, (walls["Height"] / 2 - 0.5 - y) * size]
            copy = json.loads(json.dumps(wall))
            copy["Transform"]["m_pos"][:2] = copy["Transform"]["m_world_pos"][:2] = place
            yield copy

    def begin(self, size=WINDOW):
        settings = self.read_json(SETTINGS)
        settings["winwidth"], settings["winheight"] = size
        self.write_json(SETTINGS, settings)
        self.game = self.start(environment=self.ears.environment())
        self.window = self.game.wait_for_window()
        wait_until(lambda: self.window.size() == size, "the window's size")
        self.corner = self.window.rectangle()[:2]
        self.player = Player(self.directory, self.window)
        self.player.turn_to("MainMenu")
        self.moments = Moments(self.logs)

    def expect(self, name, masks=()):
        """The window shows the moment of this name, apart from the crosshair."""
        mouse = self.player.mouse
        crosshair = [] if mouse is None else [(*mouse, CROSSHAIR, CROSSHAIR)]
        self.moments.expect(self.window, name, [*masks, *crosshair])

    def wait_for_turn(self, turns):
        """Waits for the player's turn, after so many since the start; returns the place of the unit."""
        self.wait_for("Player Unit Select", turns)
        self.player.point_at(ASIDE)
        self.mouse = ASIDE
        return self.wait_for_aim(turns)

    def expect_level(self, level, turns):
        """The player's turn comes in this level, whose weapons tell it from the other, after so many since the start."""
        self.wait_for_turn(turns)
        self.expect(f"play-{level}", [ARENA])

    def skip_the_splash(self):
        self.player.point_at(REST)
        for key in ("space", "Return", "a"):
            tap(key)
        self.expect("splash", [PROMPT])
        tap("space")
        self.expect("menu", [HOLE])
