"""Renews in a level that its author has changed what all levels share, and leaves the author's own work as it is.

Renewed are the pieces of the interface, and the children that the maker gives every unit. docs/levels.md has the list.
"""
from levels import interface
from levels.shots import KINDS
from levels.units import pieces
from places import derive

WEAPONS = {kind["component"]: name for name, kind in KINDS.items()}
INTERFACE_PARTS = ("UIElement", "Button")


def renew(records):
    """Renews the records of an object file in place. Returns a sentence for each unit that it had to leave alone."""
    left = []
    for root in (own for own in records if "GameController" in own):
        gone = interface.RETIRED | {own["name"] for own in interface.upper_layer()}
        root["Childs"] = [own for own in root["Childs"] if not is_interface(own) or own["name"] not in gone]
        root["Childs"] = exchanged(root["Childs"], interface.lower_layer(), is_interface)
        for child in root["Childs"]:
            if "Camera" in child:
                child["Childs"] = exchanged(child["Childs"], interface.upper_layer(), is_interface)
            elif "Player" in child or "Enemy" in child:
                left += renew_unit(child)
    derive(records)
    return left


def is_interface(own):
    """True for a piece of the interface. The examples of the glossary have the names of hazards."""
    return own["name"].startswith("ui_") or any(part in own for part in INTERFACE_PARTS)


def exchanged(children, fresh, may_go):
    """The children with the fresh ones in place of the old ones of their names, at the place of the first of those."""
    names = {own["name"] for own in fresh}
    old = [own["name"] in names and may_go(own) for own in children]
    start = old.index(True) if True in old else len(children)
    kept = [[own for own, goes in zip(part, gone) if not goes]
            for part, gone in ((children[:start], old[:start]), (children[start:], old[start:]))]
    return [*kept[0], *fresh, *kept[1]]


def renew_unit(own):
    kind = "player" if "Player" in own else "boss" if own["Enemy"]["m_boss"] else "enemy"
    weapons = [weapon(own, index) for index in (0, 1)]
    if kind != "boss" and None in weapons:
        return [f"{own['name']} has a weapon that the maker does not know, and is left as it is"]
    health = own["Player" if kind == "player" else "Enemy"]["m_max_health"]
    fresh = list(pieces({"weapons": weapons, "health": health}, kind, own["Transform"]))
    own["Childs"] = exchanged(own["Childs"], fresh, lambda _: True)
    return []


def weapon(own, index):
    """The name of the weapon that a unit has in a slot; None for one of another kind."""
    for child in own["Childs"]:
        if child["name"] == f"Weapon{index}Projectile":
            return next((WEAPONS[component] for component in child["components"] if component in WEAPONS), None)
    return None
