// Soft pictures of what lies out of focus.
#pragma once

#include <QImage>

namespace workbench::live {

// Blurs a premultiplied ARGB picture in place, close to a Gaussian whose radius is given in pixels. The
// time does not depend on the radius. Nothing happens below half a pixel.
void BlurImage(QImage& image, double radius);

}  // namespace workbench::live
