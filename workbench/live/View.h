// Where things of the common frame lie in the camera's picture.
#pragma once

#include <QPointF>
#include <QSize>
#include <QSizeF>
#include <cstdint>

#include "workbench/client/WorkbenchClient.h"

namespace workbench::live {

// The size of the camera's picture, in pixels. At 0.35x a pixel is as large as one of the bird's-eye
// view, whose still has this size.
inline constexpr QSize PictureSize{640, 480};

// How far the picture reaches, in common units: by what the microscope truly shows, else by the
// magnification index that has been told, else as at 0.35x.
QSizeF FieldOf(const WorkbenchClient::CameraState* scene, std::int16_t toldMagnification);

// The common frame in a picture of a size in pixels.
class View {
public:
    View(const QPointF& centre, const QSizeF& field, const QSizeF& picture)
        : centre_(centre), scale_(picture.width() / field.width()), picture_(picture) {}

    double PixelsPerUnit() const { return scale_; }
    QPointF Pixel(double x, double y) const {
        return {(x - centre_.x()) * scale_ + picture_.width() / 2.0,
                (y - centre_.y()) * scale_ + picture_.height() / 2.0};
    }
    QPointF Pixel(const QPointF& place) const { return Pixel(place.x(), place.y()); }
    QPointF Place(const QPointF& pixel) const {
        return {(pixel.x() - picture_.width() / 2.0) / scale_ + centre_.x(),
                (pixel.y() - picture_.height() / 2.0) / scale_ + centre_.y()};
    }
    QSizeF Picture() const { return picture_; }

private:
    QPointF centre_;
    double scale_;
    QSizeF picture_;
};

// How far something is blurred, in pixels: in proportion to its distance from the focal plane, up to a
// limit. Nothing within the depth of field.
double BlurRadius(double distance, double pixelsPerUnit);

}  // namespace workbench::live
