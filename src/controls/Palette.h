// The colours of the look. The pictures of skin/ are drawn with the same ones (tools/skin/pen.py).
#pragma once

#include <QColor>

namespace travo::palette {

// From 0xRRGGBB.
constexpr QColor Hex(unsigned rgb) {
    return QColor(static_cast<int>(rgb >> 16U & 0xFFU), static_cast<int>(rgb >> 8U & 0xFFU),
                  static_cast<int>(rgb & 0xFFU));
}

constexpr QColor Ground = Hex(0xF0F7FC);      // panel face, body of small windows, scroll bars
constexpr QColor Frame = Hex(0xD3E2ED);       // main window round the panel, behind the tabs
constexpr QColor FrameEdge = Hex(0x8BA5B8);   // outline of the main window, line of the step trail
constexpr QColor Well = Hex(0xDFEBF4);        // plates that hold a group
constexpr QColor Field = Hex(0xFFFFFF);       // text boxes
constexpr QColor FieldShade = Hex(0xC9D8E3);  // shade along the top of a text box
constexpr QColor Read = Hex(0xF8FBFE);        // number labels
constexpr QColor Hair = Hex(0xB3C7D6);        // hairlines of plates and labels
constexpr QColor Edge = Hex(0x6B8799);        // outlines of buttons, boxes, panel
constexpr QColor Dashes = Hex(0x9DB4C4);      // outline of an empty slot
constexpr QColor FaceHigh = Hex(0xFFFFFF);    // raised button, top ...
constexpr QColor FaceLow = Hex(0xE2EDF5);     // ... to bottom
constexpr QColor Lip = Hex(0xA3BACA);         // lip below a raised face
constexpr QColor PressHigh = Hex(0xB9CEDD);   // push button held down, top ...
constexpr QColor PressLow = Hex(0xCFDFEA);    // ... to bottom
constexpr QColor Ink = Hex(0x182733);         // text and icons
constexpr QColor Ink2 = Hex(0x3B5364);        // captions, hints, idle tabs
constexpr QColor Off = Hex(0x6C8191);         // disabled text, "N/A"
constexpr QColor OffFace = Hex(0xE5EEF4);
constexpr QColor OffEdge = Hex(0xBACAD6);
constexpr QColor Slate = Hex(0x23465D);      // title strips, latched face
constexpr QColor SlateHigh = Hex(0x193649);  // latched face, top ...
constexpr QColor SlateLow = Hex(0x2C566F);   // ... to bottom
constexpr QColor SlateEdge = Hex(0x0F2432);
constexpr QColor OnSlate = Hex(0xF4FAFE);   // text on slate
constexpr QColor SlateOff = Hex(0xA8BBC8);  // latched and disabled
constexpr QColor SlateOffEdge = Hex(0x7F96A6);
constexpr QColor OnSlateOff = Hex(0x385061);
constexpr QColor SlotUp = Hex(0xCBDAE5);  // empty slot of a raised two-state button
constexpr QColor SlotUpEdge = Hex(0x8DA4B4);
constexpr QColor SlotOff = Hex(0xF0C9BC);    // filled slot of a disabled one
constexpr QColor Coral = Hex(0xFF9986);      // the accent; the canvas of the bird's-eye view
constexpr QColor Needle = Hex(0xFF9999);     // needle icons and markers
constexpr QColor Peach = Hex(0xFFCCB0);      // the view's marker, rim of the lit slot
constexpr QColor CoralDeep = Hex(0xA93A25);  // outline of what clears or retreats; warnings
constexpr QColor CoralDeepText = Hex(0x7C2413);
constexpr QColor Blush = Hex(0xFFEDE6);
constexpr QColor Ring = Hex(0x2F7196);  // under the pointer; focus of a text box

}  // namespace travo::palette
