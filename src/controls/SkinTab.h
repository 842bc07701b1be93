// A picture of the tab strip: a click on the picture is a click on the tab that it shows.
#pragma once

#include "controls/SkinButton.h"

namespace travo {

// `path` is the whole name of its one picture, as in "tab-07".
class SkinTab : public SkinButton {
    Q_OBJECT

public:
    explicit SkinTab(QWidget* parent = nullptr) : SkinButton(parent) {}

    QAccessible::Role AccessibleRole() const override { return QAccessible::PageTab; }

protected:
    QString PictureName() const override { return path(); }
};

}  // namespace travo
