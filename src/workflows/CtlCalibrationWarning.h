// The strip on the calibration panel that says that the magnification is wrong.
#pragma once

#include <QLabel>

#include "controls/DesignSized.h"
#include "controls/SkinPictures.h"

namespace travo {

// A sign and one line of text on blush. Takes no mouse. A program's folder without pictures leaves out the
// sign alone.
class CtlCalibrationWarning : public QLabel, public DesignSized {
    Q_OBJECT

public:
    explicit CtlCalibrationWarning(QWidget* parent = nullptr);

    // The program's folder; the pictures lie in its folder skin.
    void inipath(const QString& folder);

protected:
    void paintEvent(QPaintEvent* event) override;
    void DesignSizeChanged() override { update(); }

private:
    SkinPictures pictures_;
};

}  // namespace travo
