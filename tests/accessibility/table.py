"""What must be found: controls.toml."""
import os
import tomllib
from dataclasses import dataclass

MAIN_WINDOW = "Main window"
PRESS = "Press"


@dataclass(frozen=True)
class Row:
    name: str
    role: str
    help: str
    text: str | None
    at: tuple
    own_actions: tuple

    @property
    def is_button(self):
        return self.role in ("push button", "check box", "page tab")

    @property
    def actions(self):
        """What the control can be asked to do, first of all its actions and in this order."""
        return (PRESS,) if self.is_button else self.own_actions


@dataclass(frozen=True)
class Place:
    name: str
    tab: str | None
    window: str | None
    dialog: str | None
    rows: tuple


def read():
    """All places that stay, the main window first."""
    return [place for place in _all_places() if not place.dialog]


def dialogs():
    """The places that are there only while they are open."""
    return [place for place in _all_places() if place.dialog]


def _all_places():
    with open(os.path.join(os.path.dirname(os.path.realpath(__file__)), "controls.toml"), "rb") as file:
        told = tomllib.load(file)
    return [Place(place["name"], place.get("tab"), place.get("window"), place.get("dialog"),
                  tuple(Row(row["name"], row["role"], row.get("help", ""), row.get("text"),
                            tuple(row["at"].split()), tuple(row.get("actions", ()))) for row in place["controls"]))
            for place in told["place"]]
