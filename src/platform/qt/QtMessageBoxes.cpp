#include "platform/qt/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "platform/ShownText.h"

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

}  // namespace

BoxAnswer QtMessageBoxes::Show(const QString& text, BoxButtons buttons, BoxIcon icon) {
    if (dismissed_) {
        return AnswerWithoutButton(buttons);
    }
    const QtEventLoop::Wait wait(loop_);
    QMessageBox box(QApplication::activeWindow());
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
