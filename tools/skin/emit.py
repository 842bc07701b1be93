"""Writes every picture of the skin into a folder:  python3 emit.py FOLDER"""
import os
import sys
import pen
from skin import *
from parts import *
import icons as I

TITLES = {"FormBirdView": ("Bird's-eye view", 410), "FormMirrorCtl": ("Mirror and focus", 276),
          "FormMirrorCtl2": ("Magnification", 276), "FormManiInfo": ("Needles", 340)}
ICONS = {"mirror": I.mirror, "gauge": I.gauge, "motor": I.motor, "needle": I.needle, "camera": I.camera, "plug": I.plug,
         "objective": I.objective_up, "zero": I.zero, "info": I.info}


def g(i, body):
    return f'<g id="{i}">{body}</g>'


def full(w, h):
    """An empty frame that makes the group's bounds the whole picture."""
    return rect(0, 0, w, h)


def pictures():
    """Yields (file name without .svg, width, height, maker, what it shows)."""
    for nm, sp in SKIN.items():
        for st in states(nm):
            w, h = sp["w"], sp["h"]
            if nm in ("CLOSE", "size"):
                yield f"{nm}-{st}", w, h, lambda nm=nm, st=st: button(nm, st), nm
                continue
            yield (f"{nm}-{st}", w, h, lambda nm=nm, st=st, w=w, h=h: g("face", full(w, h) + faces(nm, st, w, h)) + g("glyph", full(w, h) + glyph(nm, st, w, h)), nm)
    for i in range(18):
        kind, which = divmod(i, 6)
        h = TAB_UP if kind == 2 else TAB_LOW
        yield (f"tab-{i:02d}", TAB_W, h, lambda kind=kind, which=which, h=h: g("face", full(TAB_W, h) + tab_face(kind, TAB_W, h)) +
               g("glyph", full(TAB_W, h) + tab_glyph(kind, which, TAB_W, h)),
               f"{TABS[which]}, {('lower row, selected', 'lower row, not selected', 'upper row, not selected')[kind]}")
    for i in range(19):
        yield f"pad-{i:02d}", 165, 165, lambda i=i: pad(i), ""
    for i in range(3):
        yield f"calibpos-{i}", 438, 130, lambda i=i: g("face", full(438, 130) + calib_face()) + g("glyph", full(438, 130) + calib_glyph(i)), ""
    for i in range(5):
        yield f"exparrow-{i}", 100, 34, lambda i=i: exp_arrow(i), ""
    yield "lamp-move", 82, 12, lamp, ""
    yield "lamp-target", 82, 12, lamp, ""
    for i in range(2):
        yield f"cellletters-{i}", 56, 282, lambda i=i: letters(i, 56, 74, 60), ""
    for i in range(4):
        for on, nm in ((True, "connected"), (False, "missing")):
            yield (f"mani-{nm}-{i + 1}", 64, 52, lambda i=i, on=on: g("face", full(64, 52) + connected_face(on)) +
                   g("glyph", full(64, 52) + connected_glyph(i, on)), "")
    for k, (t, w) in TITLES.items():
        yield f"title-{k}", w, TITLE_H, lambda t=t, w=w: g("face", title("", w)) + g("glyph-left", full(w, TITLE_H) + text(t, 12, TITLE_H / 2 + 4.2, 15, C["onSlate"], 600)), ""
    yield "corner-left", 4, 4, corner, ""
    yield "corner-right", 4, 4, lambda: corner(True), ""
    yield "birdxyz", 250, 40, bird_xyz, ""
    yield "birdparm", 80, 86, bird_parm, ""
    for st in ("up", "disabled"):
        yield f"xscroll-track-{st}", 182, 36, lambda st=st: track(182, 36), ""
    for st in ("up", "down", "disabled"):
        yield f"xscroll-left-{st}", 36, 36, lambda st=st: scroll_end("left", 36, st), ""
        yield f"xscroll-right-{st}", 36, 36, lambda st=st: scroll_end("right", 36, st), ""
        yield f"xscroll-thumb-{st}", 26, 36, lambda st=st: thumb(36, st), ""
    for i in range(12):
        yield f"needle-{i:02d}", 34, 27, lambda i=i: marker_needle(i, False), ""
        yield f"needleB-{i:02d}", 34, 27, lambda i=i: marker_needle(i, True), ""
    for i in range(16):
        yield f"cell-{i:02d}", 34, 27, lambda i=i: marker_cell(i, False), ""
        yield f"cellB-{i:02d}", 34, 27, lambda i=i: marker_cell(i, True), ""
    for k, (w, h) in enumerate(((102, 76), (51, 38), (23, 23))):
        yield f"view-{k + 1}", w, h, lambda k=k: marker_view(k, False), ""
        yield f"viewB-{k + 1}", w, h, lambda k=k: marker_view(k, True), ""
    yield "icon-warn", 24, 24, lambda: I.warn(C["coralDeep"]), ""
    for k, fn in ICONS.items():
        yield f"icon-{k}", 24, 24, lambda fn=fn: fn(C["ink2"]), ""


if __name__ == "__main__":
    out = sys.argv[1]
    os.makedirs(out, exist_ok=True)
    seen = set()
    for nm, w, h, make, _ in pictures():
        assert nm.lower() not in seen, nm
        seen.add(nm.lower())
        pen._grad[0] = 0
        with open(os.path.join(out, nm + ".svg"), "w") as f:
            f.write(doc(w, h, make()))
    print(len(seen), "pictures")
