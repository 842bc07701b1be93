#include "workbench/window/BenchPlate.h"

#include <QPainter>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

BenchPlate::BenchPlate(const QString& objectName, const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(objectName);
    setAccessibleName(name);
}

void BenchPlate::Captions(std::vector<Caption> captions) {
    captions_ = std::move(captions);
    update();
}

void BenchPlate::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPlate(painter, QRectF(rect()), palette::Well, palette::Hair);
    for (const Caption& caption : captions_) {
        Write(painter, {caption.text,
                        {caption.x, caption.baseline},
                        TextFont(caption.pixels, caption.weight),
                        caption.colour});
    }
    PaintMore(painter);
}

}  // namespace workbench
