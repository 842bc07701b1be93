// What the main window paints round its controls: frame, panel card and step trail.
#pragma once

#include <QPainter>
#include <QSize>
#include <cstdint>

#include "core/owner/FormMainLayout.h"

namespace travo {

// Paints over the whole inner size. `shownStep` is 0 to 4, or beyond for the side visit to the user panel.
void PaintMainFrame(QPainter& painter, const QSize& inner, const FormMainLayout& layout,
                    std::int16_t shownStep);

}  // namespace travo
