#include "controls/SkinImage.h"

#include <QPainter>

#include "controls/ControlAccess.h"
#include "controls/PlainButton.h"
#include "controls/SkinNames.h"

namespace travo {

SkinImage::SkinImage(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    InstallControlAccess();
}

void SkinImage::path(const QString& name) {
    path_ = name;
    update();
}

void SkinImage::inipath(const QString& folder) {
    pictures_.Folder(folder);
    update();
}

void SkinImage::DesignSizeChanged() {
    updateGeometry();
    update();
}

void SkinImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double scale = ScaleAt(QSizeF(size()));
    const SkinFit fit = IsStretchedSkin(path_) ? SkinFit::Stretch : SkinFit::Proportion;
    const QPixmap picture = pictures_.Picture(path_, size(), devicePixelRatioF(), scale, fit);
    if (picture.isNull()) {
        PaintPlainPicture(painter, QRectF(rect()), accessibleName(), scale);
    } else {
        painter.drawPixmap(QPointF(0, 0), picture);
    }
}

}  // namespace travo
