"""Every picture of the skin: faces by kind and state, glyphs by skin name."""
from pen import *
import icons as I

R = 5           # corner radius of a button
UP, DOWN, OFF, DOFF = "up", "down", "disabled", "down-disabled"


# ---- faces ---------------------------------------------------------------------------------------------------
def face(w, h, state, two=False, tone="plain"):
    s = ""
    if two and state == DOWN:
        d, ref = vgrad(C["slateHi"], C["slateLo"])
        s = d + rect(0.5, 0.5, w - 1, h - 1, ref, C["slateEdge"], 1, R)
        s += path(f"M4 2.2H{n(w - 4)}", "none", "#0B1C28", 2, cap="butt")
        s += path(f"M5 {n(h - 1.5)}H{n(w - 5)}", "none", "#4D7892", 1, cap="butt")
        return s + rect(5.5, 9, 5, h - 18, C["coral"], C["peach"], 1, 2.5)
    if two and state == DOFF:
        s = rect(0.5, 0.5, w - 1, h - 1, C["slateOff"], C["slateOffEdge"], 1, R)
        s += path(f"M4 2H{n(w - 4)}", "none", C["slateOffEdge"], 1.6, cap="butt")
        return s + rect(5.5, 9, 5, h - 18, C["slotOff"], C["slateOffEdge"], 1, 2.5)
    if state == OFF:
        s = rect(0.5, 0.5, w - 1, h - 1, C["offFace"], C["offEdge"], 1, R)
        if two:
            s += rect(5.5, 9, 5, h - 18, "none", C["offEdge"], 1, 2.5)
        return s
    hi, lo, edge, lip, sw = C["faceHi"], C["faceLo"], C["edge"], C["lip"], 1
    if tone == "go":
        hi, lo, edge, lip = C["coralHi"], C["coral"], C["coralDeep"], C["coralLip"]
    if tone in ("retreat", "clear"):
        hi, lo, edge, lip = "#FFFFFF", C["blush"], C["coralDeep"], "#D9A698"
    if tone == "retreat":
        sw = 2
    if state == UP:
        d, ref = vgrad(hi, lo)
        s = d + rect(0.5, 2.5, w - 1, h - 3, lip, edge, 1, R)
        s += rect(sw / 2, sw / 2, w - sw, h - 2.5 - sw / 2, ref, edge, sw, R)
        s += path(f"M{n(R)} {n(sw + 0.7)}H{n(w - R)}", "none", "#FFFFFF", 1.2, cap="butt", extra=' stroke-opacity="0.9"')
        if two:
            s += rect(5.5, 9, 5, h - 19.5, "#CBDAE5", "#8DA4B4", 1, 2.5)
        return s
    # pressed push button
    hi, lo = C["pressHi"], C["pressLo"]
    if tone == "go":
        hi, lo = "#DE7A66", "#EE8C78"
    if tone in ("retreat", "clear"):
        hi, lo = "#E9B5A7", "#F6D2C8"
    d, ref = vgrad(hi, lo)
    s = d + rect(sw / 2, sw / 2, w - sw, h - sw, ref, edge, sw, R)
    return s + path(f"M4 {n(sw + 1.2)}H{n(w - 4)}", "none", "#24465D", 2, cap="butt", extra=' stroke-opacity="0.28"')


def inks(state, two, tone="plain"):
    """Glyph colour, and the fill that icons may use inside."""
    if state == OFF:
        return C["off"]
    if state == DOFF:
        return C["onSlateOff"]
    if two and state == DOWN:
        return C["onSlate"]
    if tone in ("retreat", "clear"):
        return "#7C2413"
    return C["ink"]


# ---- glyphs --------------------------------------------------------------------------------------------------
def _centre(w, h, two, state):
    cx = w / 2 + (4.5 if two else 0)
    cy = h / 2 - (0 if (two and state in (DOWN, DOFF)) or state in (DOWN, OFF) else 1)
    if not two and state == DOWN:
        cy += 0.5
    return cx, cy


def icon(fn, cx, cy, s, *a, **k):
    return at(cx - s / 2, cy - s / 2, fn(*a, **k), s / 24)


def line_of(cx, cy, parts, gap=8):
    """Lay parts of (width, drawer(x, cy)) in a row round cx."""
    total = sum(p[0] for p in parts) + gap * (len(parts) - 1)
    x, s = cx - total / 2, ""
    for wd, fn in parts:
        s += fn(x, cy)
        x += wd + gap
    return s


def word(t, size, col, weight=600, track=0.0):
    wd = width(t, size, weight, track)
    return wd, lambda x, cy: text(t, x, cy + size * 0.357, size, col, weight, track=track)


def ico(fn, s, *a, **k):
    return s, lambda x, cy: icon(fn, x + s / 2, cy, s, *a, **k)


def two_lines(cx, cy, top, bottom, gap=3):
    """top and bottom are (height, drawer(cx, cy))."""
    t = top[0] + gap + bottom[0]
    return top[1](cx, cy - t / 2 + top[0] / 2) + bottom[1](cx, cy + t / 2 - bottom[0] / 2)


def mid(t, size, col, weight=600):
    return size * 0.80, lambda cx, cy: text(t, cx, cy + size * 0.357, size, col, weight, "middle")


def _needle_fill(state, two=True):
    return {UP: C["needle"], DOWN: C["needle"], OFF: C["offFace"], DOFF: "#C6D3DC"}[state]


def glyph(name, state, w, h):
    """The picture on the button named name. Returns SVG for the whole button area."""
    kind = SKIN[name]
    two, tone = kind["two"], kind["tone"]
    c = inks(state, two, tone)
    cx, cy = _centre(w, h, two, state)
    off = state in (OFF, DOFF)

    if name.startswith("ExpManiSelect") or name.startswith("SelectManipulator"):
        d = name[-1]
        nk = _needle_fill(state)
        if name.startswith("Exp"):
            row = lambda x, y: line_of(x, y, [ico(I.needle, 26, c, nk), word(d, 30, c, 700)], 6)
            return two_lines(cx, cy - 1, (26, row), mid("Needle", 13, c), 5)
        return line_of(cx, cy, [ico(I.needle, 24, c, nk), word(d, 26, c, 700)], 9)
    if name == "ExpView":
        ic = (26, lambda x, y: icon(I.view, x, y, 28, c, None if off else (C["peach"] if state == DOWN else C["coralDeep"])))
        return two_lines(cx, cy - 1, ic, mid("View", 13, c), 5)
    if name.startswith("ExpPosSelect"):
        L = name[-1]
        k = CELL[L] if not off else (C["offFace"] if state == OFF else "#C6D3DC")
        key = C["ink"] if not off else (C["off"] if state == OFF else C["onSlateOff"])
        if state == DOWN:
            key = "#FFFFFF"
        return line_of(cx, cy, [ico(I.cross, 28, key, k), word(L, 30, c, 700)], 6)
    if name == "ExpMove":
        return line_of(cx, cy, [word("Move", 30, c, 700), ico(I.arrow_right, 32, c)], 16)
    if name == "ExpSynchro":
        return two_lines(cx, cy, (26, lambda x, y: icon(I.link, x, y, 27, c)), mid("Synchro", 13.5, c), 6)
    if name == "ExpDirect":
        k = c if off else (C["peach"] if state == DOWN else C["coralDeep"])
        return two_lines(cx, cy, (26, lambda x, y: icon(I.jump, x, y, 27, c, k)), mid("Direct", 13.5, c), 6)
    if name in ("ExpEscape1", "ExpEscape2"):
        fn, t = (I.objective_up, "Objective escape") if name[-1] == "1" else (I.needle_home, "Needle escape")
        return line_of(cx, cy, [ico(fn, 28, c, None if name[-1] == "1" else (C["needle"] if not off else C["offFace"])), word(t, 17, c, 700)], 11)
    if name.startswith("CalibrationMode"):
        fn, t = (I.marks, "Full calibration") if name[-1] == "1" else (I.view, "Re-calibration")
        return line_of(cx, cy, [ico(fn, 23, c), word(t, 16, c)], 10)
    if name in ("PositionA", "PositionB", "PositionC"):
        return line_of(cx, cy, [ico(_mark, 24, c), word(name[-1], 28, c, 700)], 10)
    if name == "PositionZ":
        return line_of(cx, cy, [word("Z", 28, c, 700), word("Needle in focus", 16, c)], 14)
    if name == "PositionCenter":
        return line_of(cx, cy, [ico(I.view, 24, c), word("Tip on the centre", 16, c)], 12)
    if name in ("SET", "RESET", "TEST", "OPEN"):
        return text(name, cx, cy + 17 * 0.357, 17, c, 700, "middle", 0.6)
    if name == "ALLRESET":
        return two_lines(cx, cy, mid("ALL", 14, c, 700), mid("RESET", 14, c, 700), 5)
    if name in ("Down", "Up"):
        return icon(_tri, cx, cy, 24, c, name == "Down")
    if name == "CellPosSelect":
        return _pages(w, h, state)
    if name == "ONOFF":
        return _switch(w, h, state)
    if name.startswith("UserMode"):
        fn, t = (I.tabs, "Tabs") if name[-1] == "1" else (I.steps, "Step by step")
        return line_of(cx, cy, [ico(fn, 24, c), word(t, 16, c)], 11)
    if name.startswith("CtlUserWindow"):
        fn, t = {"1": (I.camera, "Camera"), "2": (I.bird, "Bird's eye"), "3": (I.pad, "Mirror"),
                 "4": (I.sheet, "Needles"), "5": (I.lens, "Magnify")}[name[-1]]
        return two_lines(cx, cy, (28, lambda x, y: icon(fn, x, y, 30, c)), mid(t, 13, c), 8)
    if name == "Previous":
        return line_of(cx, cy, [ico(_chev, 15, c, True), word("Previous", 14.5, c)], 8)
    if name == "Next":
        return line_of(cx, cy, [word("Next", 14.5, c), ico(_chev, 15, c, False)], 8)
    if name == "User":
        return line_of(cx, cy, [ico(I.person, 16, c), word("User", 14.5, c)], 8)
    if name in ("MirrorUp2", "MirrorUp", "MirrorDown", "MirrorDown2"):
        many, down = name.endswith("2"), "Down" in name
        return line_of(cx, cy, [ico(I.chevrons, 22, c, 2 if many else 1, down), word("1000" if many else "100", 13, c)], 5)
    if name.startswith("ctlmag"):
        t = {"ctlmag035": "0.35", "ctlmag2": "2", "ctlmag4": "4"}[name]
        return line_of(cx, cy, [word(t, 21, c, 700), word("\u00d7", 19, c, 600)], 1)
    if name in ("On", "Off"):
        return line_of(cx, cy, [ico(I.power, 21, c, name == "On"), word(name, 18, c, 700)], 9)
    if name in ("CLOSE", "size"):
        c = C["ink"] if state == DOWN else ("#8FA9BA" if off else "#FFFFFF")
        return icon(I.close if name == "CLOSE" else I.size, w / 2, h / 2, w * 0.66, c)
    if name == "BirdMode":
        s = _chev_v(w - 16, cy, c, state in (DOWN, DOFF))
        return line_of(cx - 9, cy, [ico(I.sliders, 20, c), word("Adjust", 14.5, c)], 6) + s
    if name == "ManiLine":
        hid = state in (DOWN, DOFF)
        return line_of(cx, cy, [ico(I.line, 20, c, None, hid), word("No lines" if hid else "Lines", 14, c)], 7)
    if name == "ViewShift":
        return line_of(cx, cy, [ico(I.shift, 19, c), word("Shift", 14, c)], 8)
    raise KeyError(name)


def _mark(c):
    return path("M12 2v20M2 12h20", "none", c, 2.4) + circle(12, 12, 5.4, "none", c, 2)


def _tri(c, down):
    d = "M5 8.5h14L12 17z" if down else "M5 15.5h14L12 7z"
    return path(d, c, c, 2)


def _chev(c, left):
    return path("M15.5 4L7.5 12l8 8" if left else "M8.5 4l8 8-8 8", "none", c, 4)


def _chev_v(x, y, c, up):
    return path(f"M{n(x - 5)} {n(y + (3 if up else -2.5))}l5 {-5 if up else 5}l5 {5 if up else -5}", "none", c, 2.2)


def _halves(w, h, state):
    """The face of the page switch: the page on show is the dark half, with a coral bar."""
    second, off = state in (DOWN, DOFF), state in (OFF, DOFF)
    s = rect(0.5, 0.5, w - 1, h - 1, C["offFace"] if off else C["faceLo"], C["offEdge"] if off else C["edge"], 1, R)
    x0, x1 = (w / 2, w - 3.5) if second else (3.5, w / 2)
    s += rect(x0, 3.5, x1 - x0, h - 7, C["slateOff"] if off else C["slate"], None, 1, 3)
    return s + rect(x0 + 14, h - 10, x1 - x0 - 28, 4, C["slotOff"] if off else C["coral"], None, 1, 2)


def _pages(w, h, state):
    second, off = state in (DOWN, DOFF), state in (OFF, DOFF)
    s = ""
    for i, t in enumerate(("Cells A \u2013 D", "Cells E \u2013 H")):
        on = (i == 1) == second
        col = (C["onSlateOff"] if off else C["onSlate"]) if on else (C["off"] if off else C["ink"])
        s += text(t, w * (0.25 + 0.5 * i), h / 2 + 17 * 0.357 - (2 if on else 0), 17, col, 700 if on else 600, "middle")
    return s


def _switch(w, h, state):
    """Raised: the guard is ON, knob left, tick. Pressed: OFF, knob right, warning sign."""
    isoff = state in (DOWN, DOFF)
    dis = state in (OFF, DOFF)
    c = inks(state, True)
    cx = w / 2 + 4.5
    cy = h / 2 - (0 if isoff or dis else 1)
    if isoff:
        return line_of(cx, cy, [ico(I.warn, 22, c if dis else C["coral"]), word("OFF", 18, c, 700, 0.5)], 8)
    return line_of(cx, cy, [ico(_tick, 22, c), word("ON", 18, c, 700, 0.5)], 8)


def _tick(c):
    return path("M4 12.5l5.5 6L20 5.5", "none", c, 3)


# ---- names: natural size, kind, tone -------------------------------------------------------------------------
SKIN = {}


def _add(names, w, h, two=False, tone="plain"):
    for nm in names.split():
        SKIN[nm] = dict(w=w, h=h, two=two, tone=tone)


_add("ExpMove", 260, 72, tone="go")
_add(" ".join(f"ExpManiSelect{i}" for i in range(1, 5)), 82, 64, True)
_add("ExpView", 82, 64, True)
_add(" ".join(f"ExpPosSelect{c}" for c in "ABCDEFGH"), 82, 64, True)
_add("ExpSynchro ExpDirect", 82, 72, True)
_add("ExpEscape1 ExpEscape2", 215, 50, tone="retreat")
_add("PositionA PositionB PositionC", 140, 56, True)
_add("PositionZ PositionCenter", 438, 56, True)
_add("CalibrationMode1 CalibrationMode2", 215, 48, True)
_add(" ".join(f"SelectManipulator{i}" for i in range(1, 5)), 102, 48, True)
_add("SET TEST", 70, 52)
_add("OPEN", 148, 52)
_add("RESET ALLRESET", 86, 52, tone="clear")
_add("Down Up", 42, 52)
_add("CellPosSelect", 462, 52, True)
_add("ONOFF", 104, 48, True)
_add("UserMode1 UserMode2", 215, 48, True)
_add(" ".join(f"CtlUserWindow{i}" for i in range(1, 6)), 82, 76, True)
_add("Previous Next", 156, 27)
_add("User", 156, 27, True)
_add("MirrorUp2 MirrorUp MirrorDown MirrorDown2", 73, 36)
_add("ctlmag035 ctlmag2 ctlmag4", 80, 50, True)
_add("On Off", 123, 46, True)
_add("CLOSE size", 24, 24)
_add("BirdMode", 120, 40, True)
_add("ManiLine ViewShift", 104, 40, True)


def faces(name, state, w, h):
    kind = SKIN[name]
    if name in ("CLOSE", "size"):
        bg = {UP: "#3D6780", DOWN: C["peach"], OFF: "#2C566F"}[state]
        ed = {UP: "#7FA3B8", DOWN: "#FFFFFF", OFF: "#4B7289"}[state]
        return rect(0.5, 0.5, w - 1, h - 1, bg, ed, 1, 3)
    if name == "CellPosSelect":
        return _halves(w, h, state)
    if kind["h"] < 30 and kind["two"]:
        # slim two-state button: the slot is shortened
        return face_slim(w, h, state)
    return face(w, h, state, kind["two"], kind["tone"])


def face_slim(w, h, state):
    s = face(w, h, state, False) if state in (UP, OFF) else ""
    if state == DOWN:
        d, ref = vgrad(C["slateHi"], C["slateLo"])
        s = d + rect(0.5, 0.5, w - 1, h - 1, ref, C["slateEdge"], 1, R) + path(f"M4 2H{n(w - 4)}", "none", "#0B1C28", 1.6, cap="butt")
    if state == DOFF:
        s = rect(0.5, 0.5, w - 1, h - 1, C["slateOff"], C["slateOffEdge"], 1, R)
    f, e = {UP: ("#CBDAE5", "#8DA4B4"), DOWN: (C["coral"], C["peach"]), OFF: ("none", C["offEdge"]), DOFF: (C["slotOff"], C["slateOffEdge"])}[state]
    return s + rect(5.5, 6, 5, h - 13.5 if state == UP else h - 12, f, e, 1, 2.5)


def button(name, state="up", w=None, h=None):
    sp = SKIN[name]
    w, h = w or sp["w"], h or sp["h"]
    return faces(name, state, w, h) + glyph(name, state, w, h)


def states(name):
    return [UP, DOWN, OFF] + ([DOFF] if SKIN[name]["two"] else [])
