// A picture of the skin that takes no mouse: lamps, arrows, letters, title strips, step pictures.
#pragma once

#include <QWidget>

#include "controls/DesignSized.h"
#include "controls/SkinPictures.h"

namespace travo {

// Lamps and some others fill their rectangle (IsStretchedSkin), all the rest keep their proportions. Where
// the picture is unusable a plain plate with the accessible name is drawn.
class SkinImage : public QWidget, public DesignSized {
    Q_OBJECT

public:
    explicit SkinImage(QWidget* parent = nullptr);

    // The picture's name, without its ending.
    void path(const QString& name);
    const QString& path() const { return path_; }
    // The program's folder; the pictures lie in its folder skin.
    void inipath(const QString& folder);
    const QString& inipath() const { return pictures_.Folder(); }

    QSize sizeHint() const override { return DesignSize().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void DesignSizeChanged() override;

private:
    QString path_;
    SkinPictures pictures_;
};

}  // namespace travo
