#include "workbench/tour/BoxOperator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

namespace workbench::tour {

namespace {

// "&OK" and "OK" are the same button to an operator.
QString Label(const QAbstractButton& button) { return button.text().remove(QLatin1Char('&')); }

QString FileName(const QString& text) {
    static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9]+"));
    return QString(text).replace(others, QStringLiteral("-")).left(48).toLower();
}

}  // namespace

BoxOperator::BoxOperator() { QApplication::instance()->installEventFilter(this); }

BoxOperator::~BoxOperator() { QApplication::instance()->removeEventFilter(this); }

void BoxOperator::Expect(const QString& text, const QString& button) { expected_.push_back({text, button}); }

QStringList BoxOperator::TakeSeen() { return std::exchange(seen_, {}); }

bool BoxOperator::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        if (auto* const box = qobject_cast<QMessageBox*>(watched)) {
            // The box must be on show before a hand can reach it.
            QTimer::singleShot(50, box, [this, box = QPointer<QMessageBox>(box)] {
                if (box) {
                    AnswerBox(*box);
                }
            });
        }
    }
    return false;
}

void BoxOperator::AnswerBox(QMessageBox& box) {
    seen_ << box.text();
    if (tolerant_ && (expected_.empty() || expected_.front().text != box.text())) {
        box.accept();
        return;
    }
    SavePicture(box);
    if (expected_.empty() || expected_.front().text != box.text()) {
        unexpected_ << box.text();
        box.reject();
        return;
    }
    const QString label = expected_.front().button;
    expected_.pop_front();
    if (const auto look = std::exchange(look_, nullptr)) {
        look();
    }
    for (QAbstractButton* const button : box.buttons()) {
        if (Label(*button) == label) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    unexpected_ << box.text() + QStringLiteral(" (without the button ") + label + QLatin1Char(')');
    box.reject();
}

void BoxOperator::SavePicture(QMessageBox& box) {
    if (pictures_.isEmpty()) {
        return;
    }
    box.grab().save(
        QDir(pictures_).filePath(QStringLiteral("box-") + FileName(box.text()) + QStringLiteral(".png")));
}

}  // namespace workbench::tour
