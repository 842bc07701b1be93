"""Drawing basics of the skin: the palette (one line for each colour), outlined text, small SVG helpers.

Only what Qt 6.4's SVG reader knows is used in skin pictures: paths, rectangles, circles, linear gradients,
plain attributes. No filters, masks, clips, patterns, style sheets or text elements.
"""
import logging
import math
import subprocess
from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

# ---- colours -------------------------------------------------------------------------------------------------
C = dict(
    ground="#F0F7FC", frame="#D3E2ED", well="#DFEBF4", field="#FFFFFF", read="#F8FBFE",
    hair="#B3C7D6", edge="#6B8799", lip="#A3BACA",
    ink="#182733", ink2="#3B5364", off="#6C8191",
    faceHi="#FFFFFF", faceLo="#E2EDF5", pressHi="#B9CEDD", pressLo="#CFDFEA",
    offFace="#E5EEF4", offEdge="#BACAD6",
    slate="#23465D", slateHi="#193649", slateLo="#2C566F", slateEdge="#0F2432", onSlate="#F4FAFE",
    slateOff="#A8BBC8", slateOffEdge="#7F96A6", onSlateOff="#385061", slotOff="#F0C9BC",
    coral="#FF9986", coralHi="#FFB5A3", peach="#FFCCB0", blush="#FFEDE6", coralDeep="#A93A25", coralLip="#D07A67", ring="#2F7196",
    needle="#FF9999", digit="#F29A87", view="#FFCCB0", canvas="#FF9986",
)
CELL = dict(A="#00CCFF", B="#6699CC", C="#FF6699", D="#FFCC66", E="#CCCC66", F="#66CC66", G="#FF3333", H="#FFFF99")

# ---- outlined text -------------------------------------------------------------------------------------------
_STYLES = {400: "Regular", 600: "Semibold", 700: "Bold", 800: "Extrabold"}
_fonts = {}


def _font(weight):
    if weight not in _fonts:
        found = subprocess.run(["fc-match", "-f", "%{file}", "Open Sans:style=" + _STYLES[weight]], capture_output=True, text=True).stdout
        if "OpenSans" not in found:
            raise SystemExit("Open Sans is needed: apt-get install fonts-open-sans")
        logging.getLogger("fontTools").setLevel(logging.ERROR)
        f = TTFont(found)
        kern = {}
        if "kern" in f:
            for t in f["kern"].kernTables:
                kern.update(getattr(t, "kernTable", {}))
        _fonts[weight] = (f, f.getBestCmap(), f.getGlyphSet(), f["hmtx"], f["head"].unitsPerEm, kern)
    return _fonts[weight]


def _run(s, weight, size, track):
    f, cmap, gs, hmtx, upm, kern = _font(weight)
    k = size / upm
    x, out, last = 0.0, [], None
    for ch in s:
        g = cmap.get(ord(ch), ".notdef")
        if last:
            x += kern.get((last, g), 0) * k
        out.append((g, x))
        x += hmtx[g][0] * k + track
        last = g
    return out, x - track


def width(s, size, weight=600, track=0.0):
    return _run(s, weight, size, track)[1]


def _num(v):
    r = f"{v:.2f}".rstrip("0").rstrip(".")
    return "0" if r in ("-0", "") else r


def text(s, x, y, size, fill, weight=600, anchor="start", track=0.0, extra=""):
    """Text as an outline, baseline at y."""
    _, _, gs, _, upm, _ = _font(weight)
    run, w = _run(s, weight, size, track)
    x0 = x - (w if anchor == "end" else w / 2 if anchor == "middle" else 0)
    k = size / upm
    pen = SVGPathPen(gs, ntos=_num)
    for g, dx in run:
        gs[g].draw(TransformPen(pen, (k, 0, 0, -k, x0 + dx, y)))
    return f'<path d="{pen.getCommands()}" fill="{fill}"{extra}/>'


# ---- shapes --------------------------------------------------------------------------------------------------
def n(*v):
    return " ".join(_num(a) for a in v)


def rect(x, y, w, h, fill="none", stroke=None, sw=1.0, r=0.0, extra=""):
    s = f'<rect x="{_num(x)}" y="{_num(y)}" width="{_num(w)}" height="{_num(h)}"'
    if r:
        s += f' rx="{_num(r)}"'
    s += f' fill="{fill}"'
    if stroke:
        s += f' stroke="{stroke}" stroke-width="{_num(sw)}"'
    return s + extra + "/>"


def path(d, fill="none", stroke=None, sw=2.0, cap="round", join="round", extra=""):
    s = f'<path d="{d}" fill="{fill}"'
    if stroke:
        s += f' stroke="{stroke}" stroke-width="{_num(sw)}" stroke-linecap="{cap}" stroke-linejoin="{join}"'
    return s + extra + "/>"


def circle(x, y, r, fill="none", stroke=None, sw=1.0):
    s = f'<circle cx="{_num(x)}" cy="{_num(y)}" r="{_num(r)}" fill="{fill}"'
    if stroke:
        s += f' stroke="{stroke}" stroke-width="{_num(sw)}"'
    return s + "/>"


def poly(points, fill, stroke=None, sw=1.0):
    d = "M" + " L".join(n(*p) for p in points) + " Z"
    return path(d, fill, stroke, sw)


_grad = [0]


def vgrad(top, bottom):
    """A vertical gradient; returns (definition, reference)."""
    _grad[0] += 1
    i = f"g{_grad[0]}"
    return (f'<linearGradient id="{i}" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="{top}"/>'
            f'<stop offset="1" stop-color="{bottom}"/></linearGradient>'), f"url(#{i})"


def at(x, y, body, scale=None, rot=None):
    t = f"translate({n(x, y)})"
    if rot:
        t += f" rotate({_num(rot)})"
    if scale:
        t += f" scale({_num(scale)})"
    return f'<g transform="{t}">{body}</g>'


def doc(w, h, body, scale=1):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'width="{_num(w * scale)}" height="{_num(h * scale)}" viewBox="0 0 {_num(w)} {_num(h)}">{body}</svg>\n')
