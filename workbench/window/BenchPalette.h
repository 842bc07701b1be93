// The colours of the workbench's window. The program's own stand in src/controls/Palette.h, which the
// workbench, standing outside of the program, does not know: those that its plates and buttons share stand
// here once more.
#pragma once

#include <QColor>
#include <array>
#include <cstddef>

namespace workbench::palette {

// From 0xRRGGBB.
constexpr QColor Hex(unsigned rgb) {
    return QColor(static_cast<int>(rgb >> 16U & 0xFFU), static_cast<int>(rgb >> 8U & 0xFFU),
                  static_cast<int>(rgb & 0xFFU));
}

// Shared with the program.
constexpr QColor Ground = Hex(0xF0F7FC);     // card, score
constexpr QColor Frame = Hex(0xD3E2ED);      // behind the plates
constexpr QColor Well = Hex(0xDFEBF4);       // plates
constexpr QColor Field = Hex(0xFFFFFF);      // the list of the traffic
constexpr QColor Read = Hex(0xF8FBFE);       // number labels
constexpr QColor Hair = Hex(0xB3C7D6);       // hairlines of plates and labels
constexpr QColor Edge = Hex(0x6B8799);       // outlines of buttons
constexpr QColor FaceHigh = Hex(0xFFFFFF);   // raised button, top ...
constexpr QColor FaceLow = Hex(0xE2EDF5);    // ... to bottom
constexpr QColor Lip = Hex(0xA3BACA);        // lip below a raised face
constexpr QColor PressHigh = Hex(0xB9CEDD);  // push button held down, top ...
constexpr QColor PressLow = Hex(0xCFDFEA);   // ... to bottom
constexpr QColor Ink = Hex(0x182733);        // text and icons
constexpr QColor Ink2 = Hex(0x3B5364);       // captions, hints
constexpr QColor Off = Hex(0x6C8191);        // disabled text
constexpr QColor OffFace = Hex(0xE5EEF4);    // disabled face
constexpr QColor OffEdge = Hex(0xBACAD6);    // its outline
constexpr QColor Slate = Hex(0x23465D);      // header, at its bottom
constexpr QColor SlateHigh = Hex(0x193649);  // latched face, top ...
constexpr QColor SlateLow = Hex(0x2C566F);   // ... to bottom
constexpr QColor SlateEdge = Hex(0x0F2432);  // its outline
constexpr QColor OnSlate = Hex(0xF4FAFE);    // text on slate
constexpr QColor SlateOff = Hex(0xA8BBC8);   // latched and disabled
constexpr QColor SlateOffEdge = Hex(0x7F96A6);
constexpr QColor OnSlateOff = Hex(0x385061);
constexpr QColor SlotUp = Hex(0xCBDAE5);  // empty slot of a raised two-state button
constexpr QColor SlotUpEdge = Hex(0x8DA4B4);
constexpr QColor CoralDeep = Hex(0xA93A25);  // outline of what clears
constexpr QColor CoralDeepText = Hex(0x7C2413);
constexpr QColor Blush = Hex(0xFFEDE6);  // ground of what went wrong in the traffic
constexpr QColor Ring = Hex(0x2F7196);   // under the pointer

// Of buttons alone.
constexpr QColor PressShade = Hex(0x24465D);        // along the top of a face held down
constexpr QColor SlateShade = Hex(0x0B1C28);        // along the top of a latched one
constexpr QColor SlotOff = Hex(0xF0C9BC);           // filled slot of a disabled one
constexpr QColor RetreatLip = Hex(0xD9A698);        // lip of a face that clears
constexpr QColor RetreatPressHigh = Hex(0xE9B5A7);  // the same held down, top ...
constexpr QColor RetreatPressLow = Hex(0xF6D2C8);   // ... to bottom
constexpr QColor FaultEdge = Hex(0x5E1D10);         // outline of a fault that is on
constexpr QColor FaultSlot = Hex(0xFFD9CC);         // its slot
constexpr QColor TabIdle = Hex(0xBCD0DE);           // the tab that is not shown
constexpr QColor WheelHigh = Hex(0xDCE8F0);         // the focus wheel, top ...
constexpr QColor WheelLow = Hex(0x9DB6C6);          // ... to bottom

// Violet: what is simulated.
constexpr QColor Sim = Hex(0x8F6FE0);      // outline and bar of the card, bar of a tab
constexpr QColor SimDeep = Hex(0x56379C);  // numbers, ticks, landing, arrow from an instrument
constexpr QColor SimLit = Hex(0xCDBEFF);   // lit slots, marks, gauge digits
constexpr QColor SimTag = Hex(0xB79CFF);   // the tag, the bars, a tool that is on, ground of a landing's text
constexpr QColor SimInk = Hex(0x1E1440);   // text on it
constexpr QColor SimWash = Hex(0xE9E3FA);  // the next step

// The dark plan.
constexpr QColor Night = Hex(0x0E1F2B);   // its ground
constexpr QColor Night2 = Hex(0x142B3A);  // bar, heights, line under the plan
constexpr QColor Grid = Hex(0x183040);
constexpr QColor Grid2 = Hex(0x22435A);      // each fifth line, tools
constexpr QColor NightHair = Hex(0x33566C);  // hairlines, reach of the view
constexpr QColor NightInk = Hex(0xEAF4FA);   // text, the picked tip
constexpr QColor NightText = Hex(0xA9C3D3);  // axes, ticks
constexpr QColor NightDim = Hex(0x7FA0B4);   // quiet text, missing needles
// Needles 1 to 4, by index from 0: shaft, tip, tag, target, height, slot and icon at the joystick.
constexpr std::array<QColor, 4> Needles = {Hex(0xFF9986), Hex(0xFFD166), Hex(0x7FD8A8), Hex(0x8CC8FF)};
constexpr QColor View = Hex(0xFFCCB0);      // field of view, focal plane: the view's colour in the program
constexpr QColor Cell = Hex(0xC9DCC0);      // outline and name
constexpr QColor CellFill = Hex(0x26403F);  // body

// What went wrong.
constexpr QColor Alarm = Hex(0xFF6B5E);      // crossing on the plan, cable out in the header
constexpr QColor Fault = Hex(0xA93A25);      // a fault that is on, bottom ...
constexpr QColor FaultHigh = Hex(0x8E2C1A);  // ... and top
constexpr QColor OnFault = Hex(0xFFFFFF);    // text on it

// The header.
constexpr QColor HeaderHigh = Hex(0x2E5A74);  // top; Slate at the bottom
constexpr QColor Pill = Hex(0x1B3A4E);
constexpr QColor PillEdge = Hex(0x4D7892);
constexpr QColor SecondLine = Hex(0xCFE0EA);
constexpr QColor Lamp = Hex(0x7FD8A8);  // open, on

// Of needle 1 to 4; a number beyond counts as the nearest.
constexpr QColor NeedleColour(int number) {
    return Needles[static_cast<std::size_t>(number < 1 ? 0 : (number > 4 ? 3 : number - 1))];
}

}  // namespace workbench::palette
