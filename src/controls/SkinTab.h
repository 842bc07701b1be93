// A picture of the tab strip: a click on the picture is a click on the tab that it shows.
#pragma once

#include "controls/SkinButton.h"

namespace travo {

// `path` is the whole name of its one picture, as in "tab-07". Of the pictures of one tab one at a time is on
// show, and by that one the tab is selected or not.
class SkinTab : public SkinButton {
    Q_OBJECT

public:
    explicit SkinTab(QWidget* parent = nullptr) : SkinButton(parent) {}

    // The picture is the one that stands for its tab while that is selected; at first it is not.
    void StandsForSelected(bool stands) { standsForSelected_ = stands; }
    // The tab is selected, and this picture says so.
    bool Selected() const { return standsForSelected_ && !isHidden(); }

    QAccessible::Role AccessibleRole() const override { return QAccessible::PageTab; }
    void AddToState(QAccessible::State& state) const override;

protected:
    QString PictureName() const override { return path(); }
    // Assistive programs are told of a tab that is selected now.
    void showEvent(QShowEvent* event) override;

private:
    bool standsForSelected_ = false;
};

}  // namespace travo
