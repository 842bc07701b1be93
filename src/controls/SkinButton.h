// What the skinned buttons share: pictures by skin name, rings, a fallback without pictures.
#pragma once

#include <QAbstractButton>

#include "controls/DesignSized.h"
#include "controls/FocusMark.h"
#include "controls/Pressable.h"
#include "controls/SkinPictures.h"

namespace travo {

// A press with the left mouse button, with Space, or with the accessible action Press emits `clicked`
// once. Where the picture of a state is missing or unusable a plain button is drawn that bears `text()`,
// or the skin name while that is empty.
class SkinButton : public QAbstractButton, public DesignSized, public Pressable {
    Q_OBJECT

public:
    // The skin name.
    void path(const QString& name);
    const QString& path() const { return path_; }
    // The program's folder; the pictures lie in its folder skin.
    void inipath(const QString& folder);
    const QString& inipath() const { return pictures_.Folder(); }

    // A disabled button takes no click, from nowhere.
    void Enabled(bool enabled) { setEnabled(enabled); }
    bool Enabled() const { return isEnabled(); }

    // What a click of the mouse would do now: nothing when the button is disabled, not on show, or shut
    // off by a modal window; else it takes the focus and is clicked.
    void Press() override;
    QAccessible::Role AccessibleRole() const override { return QAccessible::Button; }
    QString NameWithoutName() const override { return text().isEmpty() ? path_ : text(); }

    QSize sizeHint() const override;

protected:
    explicit SkinButton(QWidget* parent);

    // Name of the picture for the present state, without its ending.
    virtual QString PictureName() const = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void DesignSizeChanged() override;

private:
    void PaintHoverRing(QPainter& painter) const;
    bool ShowsHover() const;

    QString path_;
    SkinPictures pictures_;
    FocusMark focusMark_;
};

}  // namespace travo
