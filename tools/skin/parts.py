"""Pictures of the skin that are no buttons: tabs, pad, arrows, lamps, letters, calibration steps, window parts, markers."""
import math
from pen import *
import icons as I
from skin import icon, line_of, word, ico, two_lines, mid

# ---- tabs ----------------------------------------------------------------------------------------------------
TABS = ["Experiment", "Calibration", "Cell position", "Escape", "Connection", "User"]
TAB_ICON = [I.experiment, I.marks, I.cross, I.escape, I.plug, I.person]
TAB_W, TAB_LOW, TAB_UP = 162, 36, 32
TAB_BACK, TAB_IDLE = "#BCD0DE", "#D0E0EB"


def _shape(w, h, r=6, x0=0.5, y0=0.5):
    return f"M{n(x0)} {n(h)}V{n(y0 + r)}a{r} {r} 0 0 1 {r} -{r}H{n(w - x0 - r)}a{r} {r} 0 0 1 {r} {r}V{n(h)}"


def tab_face(kind, w, h):
    if kind == 2:                                   # back row
        return path(_shape(w, h) + "z", TAB_BACK) + path(_shape(w, h), "none", "#8BA5B8", 1, cap="butt")
    s = rect(0, 0, w, 12, TAB_BACK)                 # the back row shows behind the corners
    if kind == 1:
        s += path(_shape(w, h) + "z", TAB_IDLE) + path(_shape(w, h), "none", "#8BA5B8", 1, cap="butt")
        return s + path(f"M0 {n(h - 0.5)}H{n(w)}", "none", "#8BA5B8", 1, cap="butt")
    s += path(_shape(w, h) + "z", C["ground"]) + path(_shape(w, h), "none", C["edge"], 1, cap="butt")
    return s + rect(8, 3.5, w - 16, 4, C["coral"], C["coralDeep"], 0.8, 2)


def tab_glyph(kind, which, w, h):
    sel = kind == 0
    c = C["ink"] if sel else C["ink2"]
    cy = h / 2 + (2.5 if sel else 0.5)
    k = None
    if TABS[which] == "Cell position":
        k = C["coral"] if sel else "none"
    return line_of(w / 2, cy, [ico(TAB_ICON[which], 19, c, k), word(TABS[which], 15, c, 700 if sel else 600)], 8)


# ---- experiment arrow and lamps ------------------------------------------------------------------------------
def _chev_down(y, fill, stroke=None):
    d = f"M16 {n(y)}L50 {n(y + 5)}L84 {n(y)}V{n(y + 5)}L50 {n(y + 10)}L16 {n(y + 5)}z"
    return path(d, fill, stroke, 1, join="round")


def exp_arrow(frame):
    """0 the resting track, 1 to 3 one chevron lit, 4 the double arrow of the synchronised mode; 100 by 34."""
    if frame == 4:
        s = path("M50 1L72 12H57V22H72L50 33L28 22H43V12H28z", C["coral"], C["ink"], 1.4)
        return s
    if frame == 0:
        return "".join(_chev_down(1.2 + 10.8 * i, "#CBDBE6", "#B3C7D6") for i in range(3))
    return _chev_down(1.2 + 10.8 * (frame - 1), C["coral"], C["ink"])


def lamp():
    return path("M8 1.2H74V5.6H47.5L41 11.2L34.5 5.6H8z", C["coral"], C["ink"], 1.2)


# ---- cell letters --------------------------------------------------------------------------------------------
def letters(page, w=56, pitch=74, h=58):
    s = ""
    for r in range(4):
        L = "ABCDEFGH"[page * 4 + r]
        y = r * pitch + h / 2
        s += icon(I.cross, 15, y, 24, C["ink"], CELL[L]) + text(L, 42, y + 26 * 0.357, 26, C["ink"], 700, "middle")
    return s


# ---- needle picture: connected or not ------------------------------------------------------------------------
def connected_face(on, w=64, h=52):
    if on:
        return rect(0.5, 0.5, w - 1, h - 1, C["slate"], C["slateEdge"], 1, 4) + rect(5.5, 9, 5, h - 18, C["coral"], C["peach"], 1, 2.5)
    return rect(1, 1, w - 2, h - 2, C["ground"], C["off"], 1.4, 4, ' stroke-dasharray="4 3"')


def connected_glyph(i, on, w=64, h=52):
    d = str(i + 1)
    if on:
        return line_of(w / 2 + 4, h / 2, [ico(I.needle, 22, C["onSlate"], C["needle"]), word(d, 24, C["onSlate"], 700)], 4)
    s = line_of(w / 2 + 4, h / 2, [ico(I.needle, 22, C["off"], C["ground"]), word(d, 24, C["off"], 700)], 4)
    return s + path(f"M12 {n(h - 10)}L{n(w - 10)} 10", "none", C["off"], 1.8)


# ---- calibration step pictures (438 by 130) ------------------------------------------------------------------
def _needle_in(x, y, ang, L, fill=None, k=1.0):
    """A needle with its tip at x, y, coming from direction ang (degrees)."""
    a = math.radians(ang)
    pts = I._taper(x + L * math.cos(a), y + L * math.sin(a), x, y, 5 * k, 0.6, 0.42)
    return poly(pts, fill or C["needle"], C["ink"], 1.3)


def _badge(x, y, t, fill=None, col=None):
    return circle(x, y, 11, fill or C["slate"], C["slateEdge"], 1) + text(t, x, y + 5.2, 14.5, col or C["onSlate"], 700, "middle")


def _m(x, y, c):
    return path(f"M{n(x)} {n(y - 9)}v18M{n(x - 9)} {n(y)}h18", "none", c, 2.2, cap="butt")


def _say(x, y, lines):
    s = ""
    for i, (t, wt) in enumerate(lines):
        s += text(t, x, y + i * 21, 15, C["ink"] if wt > 500 else C["ink2"], wt)
    return s


def calib_face(w=438, h=130):
    return rect(0.5, 0.5, w - 1, h - 1, C["field"], C["hair"], 1, 4)


def calib_glyph(step):
    s = ""
    if step in (0, 2):
        s += rect(14, 11, 144, 108, "#E9EEF2", C["edge"], 1.5)
        s += path("M14 23V11H26M146 11H158V23M158 107V119H146M26 119H14V107", "none", C["ink"], 3, cap="butt", join="miter")
    if step == 0:
        A, B, D = (86, 33), (42, 97), (130, 97)
        s += path(f"M{n(*A)}L{n(*B)}L{n(*D)}z", "none", C["edge"], 1.2, extra=' stroke-dasharray="2 4"')
        s += _needle_in(A[0], A[1], -9, 88)
        for p, t, bx, by in ((A, "A", -20, -1), (B, "B", 2, -22), (D, "C", 2, -22)):
            s += _m(p[0], p[1], C["ink"]) + _badge(p[0] + bx, p[1] + by, t)
        s += _say(192, 36, [("Bring the tip to each mark,", 600), ("in focus, and press its", 600), ("button: A, then B, then C.", 600)])
        s += _say(192, 108, [("Use the needle's own controls.", 400)])
    if step == 1:
        # side view: objective above, focal plane, needle below reaching up
        s += path("M50 8h56v30l-12 18H62L50 38z", "#DCE8F0", C["ink"], 1.6) + path("M50 24h56", "none", C["ink"], 1.2)
        s += path("M14 84H172", "none", C["coralDeep"], 1.6, extra=' stroke-dasharray="6 4"')
        s += _needle_in(78, 84, 22, 84)
        s += path("M128 45V18M121 25l7-7.500 7 7.500", "none", C["ink"], 2.6)
        s += path("M32 119V92M25.5 98.500l6.500-7 6.500 7", "none", C["coralDeep"], 2.6)
        s += _badge(152, 66, "Z")
        s += _say(192, 36, [("Bring the tip back to A's place,", 600), ("adjust its Z axis until it is", 600), ("sharp again; press Z.", 600)])
        s += _say(192, 108, [("Leave the focus knob alone.", 400)])
    if step == 2:
        s += circle(86, 65, 14, "none", C["ink"], 1.6) + path("M86 41v48M62 65h48", "none", C["ink"], 2.2, cap="butt")
        s += _needle_in(86, 65, -9, 88)
        s += _say(192, 36, [("Bring the tip to the centre", 600), ("cross, in focus, and press", 600), ("the button.", 600)])
        s += _say(192, 108, [("The axes stay as calibrated.", 400)])
    return s


# ---- mirror pad (165 by 165) ---------------------------------------------------------------------------------
PC, R0, R1, R2 = 82.5, 27.5, 50.5, 82.5
DIRS = {1: 0, 2: 45, 3: 90, 4: 135, 5: 180, 6: 225, 7: 270, 8: 315}   # degrees clockwise from the top
GAP = 0.9


def _pt(r, x=None, y=None, sx=1, sy=-1):
    """A point of the circle of radius r at abscissa or ordinate offset x, y from the centre."""
    if x is not None:
        return PC + x, PC + sy * math.sqrt(max(r * r - x * x, 0))
    return PC + sx * math.sqrt(max(r * r - y * y, 0)), PC + y


def _area_path(area):
    """Outline of an area, pointing up or to the upper right; rotated by the caller."""
    inner = area > 8
    ra, rb = (R0 + GAP, R1 - GAP) if inner else (R1 + GAP, R2 - 1.2)
    e = 12.5
    if area in (1, 9):
        a, b = _pt(rb, x=-(e - GAP)), _pt(rb, x=e - GAP)
        c, d = _pt(ra, x=e - GAP), _pt(ra, x=-(e - GAP))
        return f"M{n(*a)}A{n(rb, rb)} 0 0 1 {n(*b)}L{n(*c)}A{n(ra, ra)} 0 0 0 {n(*d)}z"
    a, b = _pt(rb, x=e + GAP), _pt(rb, y=-(e + GAP))
    c, d = _pt(ra, y=-(e + GAP)), _pt(ra, x=e + GAP)
    return f"M{n(*a)}A{n(rb, rb)} 0 0 1 {n(*b)}L{n(*c)}A{n(ra, ra)} 0 0 0 {n(*d)}z"


def _pad_area(area, fill, edge, ink, press=False):
    inner = area > 8
    k = area - 8 if inner else area
    ang = DIRS[k]
    base = 9 if inner else 1
    diag = k % 2 == 0
    ref = base + 1 if diag else base
    rot = ang - (45 if diag else 0)
    s = path(_area_path(ref), fill, edge, 1)
    # chevrons along the direction, drawn upright and turned
    r = (R0 + R1) / 2 if inner else (R1 + R2) / 2
    sw = 2.6
    if inner:
        g = _chv(r - 2.2, 4.6, sw, ink)
    else:
        g = _chv(r + 1.4, 5.6, sw, ink) + _chv(r - 5.6, 5.6, sw, ink)
    if diag:
        g = f'<g transform="rotate(45 {PC} {PC})">{g}</g>'
    body = s + g
    return f'<g transform="rotate({rot} {PC} {PC})">{body}</g>' if rot else body


def _chv(r, half, sw, ink):
    y = PC - r
    return path(f"M{n(PC - half)} {n(y + half * 0.55)}L{n(PC)} {n(y - half * 0.55)}L{n(PC + half)} {n(y + half * 0.55)}", "none", ink, sw)


def pad(num):
    """0 at rest, 1 to 17 this area pressed, 18 disabled."""
    dis = num == 18
    s = circle(PC, PC, R2 - 0.5, "#C9D6DF" if dis else "#8DA6B8", C["offEdge"] if dis else C["slate"], 1)
    d = ""
    for a in range(1, 18):
        pressed = a == num
        inner = a > 8
        if dis:
            fill, edge, ink = C["offFace"], C["offEdge"], "#93A6B3"
        elif pressed:
            fill, edge, ink = C["slate"], C["slateEdge"], C["coral"]
        else:
            diag = (a - (8 if inner else 0)) % 2 == 0
            fill = ("#E9F2F8" if diag else "#FFFFFF") if inner else ("#D7E5EF" if diag else "#F3F9FD")
            edge, ink = C["edge"], C["ink"]
        if a == 17:
            s += circle(PC, PC, R0 - 0.6, fill if (dis or pressed) else "#FFFFFF", edge, 1.2)
            s += circle(PC, PC, 8.5, "none", ink, 2.4) + circle(PC, PC, 2.6, ink)
            for t in (0, 90, 180, 270):
                s += f'<g transform="rotate({t} {PC} {PC})">' + path(f"M{PC} {PC - 16.5}v6", "none", ink, 2.4) + "</g>"
        else:
            s += _pad_area(a, fill, edge, ink)
    return d + s


# ---- window parts --------------------------------------------------------------------------------------------
TITLE_H = 32


def title(name, w, h=TITLE_H):
    d, ref = vgrad("#2E5A74", C["slate"])
    s = d + rect(0, 0, w, h, ref) + path(f"M0 {n(h - 0.5)}H{n(w)}", "none", C["slateEdge"], 1, cap="butt")
    s += rect(0, h - 3, w, 2, C["coral"])
    return s + text(name, 12, h / 2 + 4.2, 15, C["onSlate"], 600)


def bird_xyz():
    return "".join(text(t, 6 + 84 * i, 25, 14, C["ink2"], 700, "middle") for i, t in enumerate("XYZ"))


def bird_parm():
    return "".join(text(t, 0, 25 + 46 * i, 14, C["ink2"], 600) for i, t in enumerate(("Brightness", "Contrast")))


def corner(right=False):
    s = path("M0 4V2A2 2 0 0 1 2 0H4V4z", "#2E5A74") + path("M0.500 4V2A1.500 1.500 0 0 1 2 0.500H4", "none", C["slateEdge"], 1, cap="butt")
    return f'<g transform="translate(4 0) scale(-1 1)">{s}</g>' if right else s


# ---- scroll bar (h 36) ---------------------------------------------------------------------------------------
def track(w, h):
    s = rect(0.5, 0.5, w - 1, h - 1, C["ground"], C["hair"], 1, 4)
    s += path(f"M36 {n(h / 2)}H{n(w - 36)}", "none", "#B9CCDA", 4, cap="round")
    return s + path(f"M{n(w / 2)} {n(h / 2 - 9)}v18", "none", "#8DA4B4", 2)


def scroll_end(side, h, state):
    from skin import face
    c = C["off"] if state == "disabled" else C["ink"]
    d = "M15 5.500L8 12l7 6.500z" if side == "left" else "M9 5.500L16 12l-7 6.500z"
    return face(36, h, state) + icon(lambda c: path(d, c, c, 2), 18, h / 2 - (1 if state == "up" else 0), 22, c)


def thumb(h, state):
    if state == "down":
        return rect(0.5, 3.5, 25, h - 7, C["slate"], C["slateEdge"], 1, 4) + path(f"M10 11v{n(h - 22)}M16 11v{n(h - 22)}", "none", C["coral"], 2)
    if state == "disabled":
        return rect(0.5, 3.5, 25, h - 7, C["offFace"], C["offEdge"], 1, 4)
    d, ref = vgrad("#FFFFFF", "#D3E2EC")
    return d + rect(0.5, 3.5, 25, h - 7, ref, C["edge"], 1, 4) + path(f"M10 11v{n(h - 22)}M16 11v{n(h - 22)}", "none", C["edge"], 2)


# ---- markers -------------------------------------------------------------------------------------------------
def needle_shape(shape, grow=0.0, fill="#000"):
    """Centre 9, 9."""
    if shape == 2:
        return circle(9, 9, 6.6 + grow, fill)
    up = [(9, 1.7), (16.2, 14.8), (1.8, 14.8)]
    if shape == 1:
        up = [(x, 18 - y) for x, y in up]
    return poly(up, fill, fill if grow else None, 2 * grow)


def digit(d, grow, fill):
    return text(d, 26, 17.2, 21.5, fill, 800, "middle", extra=f' stroke="{fill}" stroke-width="{2 * grow}" stroke-linejoin="round"' if grow else "")


def cell_cross(cx, cy, grow, fill):
    a, t = 7.5 + grow, 2.5 + grow
    return rect(cx - a, cy - t, 2 * a, 2 * t, fill) + rect(cx - t, cy - a, 2 * t, 2 * a, fill)


def cell_letter(L, left, grow, fill):
    x = 9.8 if left else 24.2
    return text(L, x, 14.9, 19.5, fill, 800, "middle", extra=f' stroke="{fill}" stroke-width="{2 * grow}" stroke-linejoin="round"' if grow else "")


def marker_needle(i, mask):
    shape, nd = divmod(i, 4)
    if mask:
        return rect(0, 0, 34, 27, "#FFFFFF") + needle_shape(shape, 1.3) + digit(str(nd + 1), 1.3, "#000")
    return rect(0, 0, 34, 27, "#000000") + needle_shape(shape, 0, C["needle"]) + digit(str(nd + 1), 0, C["digit"])


def marker_cell(i, mask):
    left, L = i >= 8, "ABCDEFGH"[i % 8]
    cx = 25.5 if left else 9.5
    cx = 25 + 0.5 if left else 9 + 0.5
    cy = 18 + 0.5
    if mask:
        return rect(0, 0, 34, 27, "#FFFFFF") + cell_cross(cx, cy, 1, "#000") + cell_letter(L, left, 1.2, "#000")
    return rect(0, 0, 34, 27, "#000000") + cell_cross(cx, cy, 0, CELL[L]) + cell_letter(L, left, 0, CELL[L])


def marker_view(which, mask):
    """0 the frame at 2x, 1 the frame at 4x, 2 the plain cross."""
    w, h = ((102, 76), (51, 38), (23, 23))[which]
    fg, bg = ("#000000", "#FFFFFF") if mask else (C["view"], "#000000")
    s, g = rect(0, 0, w, h, bg), 1 if mask else 0       # g: the keyline, on the inner side only
    if which == 2:
        return s + rect(0, 10 - g, 23, 3 + 2 * g, fg) + rect(10 - g, 0, 3 + 2 * g, 23, fg)
    t = (3 if which == 0 else 2) + g
    return s + rect(t / 2, t / 2, w - t, h - t, "none", fg, t, extra=' stroke-linejoin="miter"')
