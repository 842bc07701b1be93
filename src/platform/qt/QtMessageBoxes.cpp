#include "platform/qt/QtMessageBoxes.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <algorithm>

#include "platform/ShownText.h"
#include "platform/qt/BoxPlace.h"

namespace travo::platform::qt {

namespace {

BoxAnswer AnswerWithoutButton(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OKCancel:
            return BoxAnswer::Cancel;
        case BoxButtons::YesNo:
            return BoxAnswer::No;
        case BoxButtons::OK:
            break;
    }
    return BoxAnswer::OK;
}

QMessageBox::StandardButtons StandardButtons(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OKCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::OK:
            break;
    }
    return QMessageBox::Ok;
}

BoxAnswer AnswerOf(int button, BoxButtons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return BoxAnswer::OK;
        case QMessageBox::Cancel:
            return BoxAnswer::Cancel;
        case QMessageBox::Yes:
            return BoxAnswer::Yes;
        case QMessageBox::No:
            return BoxAnswer::No;
        default:
            return AnswerWithoutButton(buttons);
    }
}

// A line from a wire can be a million characters long; no screen shows them and no layout survives them.
QString ReadableText(const QString& text) {
    constexpr qsizetype MostCharacters = 2000;
    return ShownLines(text, MostCharacters);
}

// As far as it can be known before the box is on show: that of another window of ours.
QMargins FrameMargins() {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        const QRect frame = window->frameGeometry();
        const QRect inner = window->geometry();
        if (window->isVisible() && frame != inner) {
            return {inner.left() - frame.left(), inner.top() - frame.top(), frame.right() - inner.right(),
                    frame.bottom() - inner.bottom()};
        }
    }
    return {};
}

// Qt sets the text in by more than the buttons, and wraps it at 500 pixels. After all that makes it lay out
// the box anew: text, icon, buttons.
void LayOut(QMessageBox& box) {
    constexpr int Margin = 20;
    constexpr int Gap = 16;
    constexpr int GreatestWidth = 700;
    auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* const icon = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    auto* const buttons = box.findChild<QDialogButtonBox*>();
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || icon == nullptr || buttons == nullptr || grid == nullptr) {
        return;
    }
    for (int i = grid->count() - 1; i >= 0; --i) {
        if (grid->itemAt(i)->spacerItem() != nullptr) {
            delete grid->takeAt(i);
        }
    }
    grid->setContentsMargins(Margin, Margin, Margin, Margin);
    // Gaps of its own the grid has also beside columns and rows without anything in them.
    grid->setSpacing(0);
    icon->setContentsMargins(0, 0, Gap, 0);
    buttons->setContentsMargins(0, Gap, 0, 0);
    grid->setColumnStretch(grid->columnCount() - 1, 1);
    label->setIndent(0);
    label->setContentsMargins(0, 0, 0, 0);
    label->ensurePolished();
    const QSize whole = label->fontMetrics().size(0, box.text());
    label->setMinimumWidth(std::min(whole.width(), GreatestWidth));
}

class Box : public QMessageBox {
public:
    Box(QWidget* parent, const QRect& beside) : QMessageBox(parent), beside_(beside) {}

protected:
    // Not before: only now it has its size.
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        if (beside_.isEmpty()) {
            return;
        }
        const QScreen* const there = QGuiApplication::screenAt(beside_.center());
        const QScreen* const seen = there != nullptr ? there : screen();
        move(BoxPlace(size().grownBy(FrameMargins()), beside_, seen->availableGeometry()));
    }

private:
    QRect beside_;
};

}  // namespace

BoxAnswer QtMessageBoxes::Show(const QString& text, BoxButtons buttons, BoxIcon icon) {
    return ShowSo(text, buttons, icon, {});
}

BoxAnswer QtMessageBoxes::ShowSo(const QString& text, BoxButtons buttons, BoxIcon icon,
                                 const BoxOpening& opening) {
    if (dismissed_) {
        return AnswerWithoutButton(buttons);
    }
    const QtEventLoop::Wait wait(loop_);
    Box box(QApplication::activeWindow(), opening.beside);
    box.setObjectName(QStringLiteral("MessageBox"));
    // The box has no title of its own: it bears the program's.
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(ReadableText(text));
    box.setIcon(icon == BoxIcon::Stop ? QMessageBox::Critical : QMessageBox::NoIcon);
    box.setStandardButtons(StandardButtons(buttons));
    if (buttons == BoxButtons::YesNo) {
        box.setEscapeButton(QMessageBox::No);
    }
    for (QAbstractButton* const button : box.buttons()) {
        // As large as a gloved finger.
        button->setMinimumSize(88, 44);
        // The toolkit's own pictures are not of this program's hand.
        button->setIcon({});
    }
    LayOut(box);
    if (opening.isFocusOnCancel) {
        box.setDefaultButton(QMessageBox::Cancel);
    }
    return AnswerOf(box.exec(), buttons);
}

void QtMessageBoxes::Dismiss() {
    dismissed_ = true;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const box = qobject_cast<QMessageBox*>(window)) {
            box->reject();
        }
    }
}

}  // namespace travo::platform::qt
