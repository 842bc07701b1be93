"""What must be found: controls.toml."""
import os
import tomllib
from dataclasses import dataclass

MAIN_WINDOW = "Main window"


@dataclass(frozen=True)
class Row:
    name: str
    role: str
    help: str
    text: str | None
    at: tuple

    @property
    def is_button(self):
        return self.role in ("push button", "check box", "page tab")


@dataclass(frozen=True)
class Place:
    name: str
    tab: str | None
    rows: tuple


def read():
    """All places, the main window first."""
    with open(os.path.join(os.path.dirname(os.path.realpath(__file__)), "controls.toml"), "rb") as file:
        told = tomllib.load(file)
    return [Place(place["name"], place.get("tab"),
                  tuple(Row(row["name"], row["role"], row.get("help", ""), row.get("text"),
                            tuple(row["at"].split())) for row in place["controls"]))
            for place in told["place"]]
