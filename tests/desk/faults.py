"""What each fault of the workbench does to the program, in the order of the chips."""
from dataclasses import dataclass

# The rows of the connection panel, and what connects each.
ROWS = {"Mirror": "Connect mirror", "Magnescale": "Connect Magnescale", "Motor": "Connect motor", "Manipulator": None,
        "Live camera": "Connect camera"}
LOST_NEEDLES = "Manipulator was disconnected. Reconnect Manipulator?"
FAILED = "box 'Manipulator : Communication failed'"
MOTOR_UNKNOWN = "box '...: Motor : Unknown Error'"


@dataclass(frozen=True)
class Fault:
    name: str  # of the chip
    world: str  # what `fault list` or the traffic calls it
    by: str  # what the operator does then: "objective", "focus", "reading", or nothing
    shows: str  # what the program shows
    needed: str = ""  # what the operator presses after "All clear"


FAULTS = (
    Fault("Mirror silent", "mirror:silent", "objective", ""),
    Fault("Mirror cable out", "mirror:vanished", "", "Mirror Connection lost", " after Connect mirror"),
    Fault("Mirror noise", "noise 20", "objective", ""),
    Fault("Mirror garble", "garbled", "objective", ""),
    Fault("Mirror cut", "cut", "objective", ""),
    Fault("Mirror flood", "flood 200", "objective", ""),
    Fault("Mirror error", "mirror:error", "objective", "box 'nMAG8 : Mirror : Unknown Error'"),
    Fault("Mirror fields", "sSAA", "objective", ""),
    Fault("Mirror limit X", "mirror:limitx", "", "box 'Movement limit X'"),
    Fault("Mirror limit Y", "mirror:limity", "", "box 'Movement limit Y'"),
    Fault("Mirror motors off", "motors", "", "magnification disabled"),
    Fault("Gauge silent", "gauge:silent", "reading", "the old reading"),
    Fault("Gauge cable out", "gauge:vanished", "", "Magnescale Connection lost", " after Connect Magnescale"),
    Fault("Gauge noise", "noise 20", "reading", ""),
    Fault("Gauge garble", "garbled", "reading", ""),
    Fault("Gauge cut", "cut", "reading", ""),
    Fault("Gauge flood", "flood 200", "reading", "the old reading"),
    Fault("Gauge garbage", "gauge:garbage", "reading", "the old reading"),
    Fault("Motor silent", "motor:silent", "focus", "focus in use", " after Connect motor"),
    Fault("Motor cable out", "motor:vanished", "", "Motor Connection lost", " after Connect motor"),
    Fault("Motor noise", "noise 20", "focus", ""),
    Fault("Motor garble", "motor:garble", "focus", MOTOR_UNKNOWN),
    Fault("Motor cut", "motor:cut", "focus", ""),
    Fault("Motor flood", "flood 200", "focus", MOTOR_UNKNOWN),
    Fault("Motor refuses", "motor:refuse", "focus", MOTOR_UNKNOWN),
    Fault("Driver fails once", "= -1", "", FAILED),
    Fault("Driver fails", "fail", "", f"{FAILED}, box '{LOST_NEEDLES}'"),
    Fault("Driver hangs", "hang", "", FAILED),
    Fault("Three needles", "count", "", ""),
    Fault("Out of range", "range", "", ""),
    Fault("Key moves on", "selected 2", "", ""),
    Fault("Camera hides", "camera", "", "camera button raised", " after Connect camera"),
    Fault("Camera closes", "camera", "", "Live camera Not connected, camera button raised", " after Connect camera"),
    Fault("Camera killed", "camera", "", "Live camera Not connected, camera button raised", " after Connect camera"),
    Fault("Camera hangs", "camera", "objective", "Live camera Not connected, camera button raised",
          " after Connect camera"),
    Fault("Camera fails", "camera", "objective", "Live camera Not connected, camera button raised",
          " after Connect camera"),
)
