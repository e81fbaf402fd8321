"""A session of the game from the splash screen on, in levels that are over after one shot."""
from case import SETTINGS, WINDOW
from driver import tap, wait_until
from ears import Ears
from level import LevelTest
from moments import Moments
from player import REST, Player

SIDE, BELOW = 760, -250  # where the two units of a duel stand, to the left and the right
INNER = (900, 480)  # the middles of the walls around a level lie farther out
LEVELS = ("Level01", "Level02")
ASIDE = (0, 300)  # where it is out of the units' way

# What the masks hide, in world units: x, y, width, height.
CROSSHAIR = 84
PROMPT = (0, -220, 500, 90)  # it blinks
HOLE = (0, 265, 640, 510)  # it turns


class Session(LevelTest):
    """A session from the splash screen on. The levels are an empty field with one weak unit a side."""

    def setUp(self):
        super().setUp()
        for level in LEVELS:
            self.make_duel(level)
        self.ears = Ears(self.directory)

    def make_duel(self, level):
        """Writes a level with all that the first level has but its walls and most of its units."""
        plan = self.read_json("Level Editor/Levels/Level01/Level01.json")
        objects, walls, tiles = (self.read_json(plan[key]) for key in ("Objects", "TileMap", "Tiles"))
        root = next(record for record in objects["GameObjFactory"] if "GameController" in record)
        sides = {key: [record for record in root["Childs"] if key in record] for key in ("Player", "Enemy")}
        for x, (key, records) in zip((-SIDE, SIDE), sides.items()):
            for record in records[1:]:
                root["Childs"].remove(record)
            records[0]["Transform"]["m_pos"][:2] = records[0]["Transform"]["m_world_pos"][:2] = [x, BELOW]
            records[0][key]["m_health"] = records[0][key]["m_max_health"] = 1
        root["GameController"]["m_level_map"] = f"Level Editor/Levels/{level}/{level}.json"
        objects["GameObjFactory"] = [root]
        for row in walls["TileMap"][1:-1]:
            row[1:-1] = [0] * len(row[1:-1])
        tiles["GameObjFactory"] = [tile for tile in tiles["GameObjFactory"] if not self.is_inner_wall(tile)]
        for key, value in (("Objects", objects), ("TileMap", walls), ("Tiles", tiles)):
            plan[key] = f"{level}-{key}.json"
            self.write_json(plan[key], value)
        (self.directory / f"Level Editor/Levels/{level}").mkdir(exist_ok=True)
        self.write_json(f"Level Editor/Levels/{level}/{level}.json", plan)

    @staticmethod
    def is_inner_wall(tile):
        x, y = tile["Transform"]["m_pos"][:2]
        return "Wall" in tile["Render"]["m_tex"] and abs(x) < INNER[0] and abs(y) < INNER[1]

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

    def skip_the_splash(self):
        self.player.point_at(REST)
        for key in ("space", "Return", "a"):
            tap(key)
        self.expect("splash", [PROMPT])
        tap("space")
        self.expect("menu", [HOLE])
