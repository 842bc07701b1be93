#include "controls/NumberBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QValidator>
#include <algorithm>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {
// In design pixels.
constexpr double Radius = 3;
constexpr double TextSides = 12;

bool IsFigure(QChar character) { return character >= QLatin1Char('0') && character <= QLatin1Char('9'); }
}  // namespace

// Sees every text before anybody else does.
class NumberBox::Filter : public QValidator {
public:
    explicit Filter(NumberBox& box) : QValidator(&box), box_(box) {}

    State validate(QString& text, int& place) const override {
        QString number = text.trimmed();
        number.remove(0, number.startsWith(QLatin1Char('+')) ? 1 : 0);
        if (number != text && IsWhole(number)) {
            text = number;
        }
        if (text.size() > box_.mostCharacters_) {
            // A figure more is no figure in place of another.
            if (box_.typing_) {
                return Invalid;
            }
            text.truncate(box_.mostCharacters_);
        }
        place = std::min(place, static_cast<int>(text.size()));
        return Acceptable;
    }

private:
    static bool IsWhole(const QString& text) {
        return !text.isEmpty() && std::all_of(text.begin(), text.end(), IsFigure);
    }

    NumberBox& box_;
};

NumberBox::NumberBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new Filter(*this));
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setDragEnabled(false);
    setAcceptDrops(false);
    // The box paints its own ground. A palette would not do: an application that has a style sheet
    // ignores it.
    setStyleSheet(
        QStringLiteral("QLineEdit { background: transparent; border: none; padding: 0px; color: %1;"
                       " selection-background-color: %2; selection-color: %3; }"
                       "QLineEdit:disabled { color: %4; }")
            .arg(palette::Ink.name(), palette::Slate.name(), palette::OnSlate.name(), palette::Off.name()));
    connect(this, &QLineEdit::textChanged, this, [this] { FitText(); });
    FitText();
}

bool NumberBox::PassesKey(const QKeyEvent& event) const {
    const QString entered = event.text();
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || entered.isEmpty()) {
        return true;
    }
    return entered.size() == 1 && IsFigure(entered.front());
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
    if (PassesKey(*event)) {
        typing_ = event->text().size() == 1 && IsFigure(event->text().front());
        QLineEdit::keyPressEvent(event);
        typing_ = false;
    } else {
        event->accept();
    }
}

void NumberBox::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    FitText();
}

void NumberBox::FitText() {
    if (fitting_) {
        return;
    }
    fitting_ = true;
    setFont(Fitted(TextFont(type::Box * Scale(), QFont::DemiBold), text(), width() - TextSides * Scale()));
    fitting_ = false;
}

void NumberBox::paintEvent(QPaintEvent* event) {
    {
        const double scale = Scale();
        const double line = hasFocus() ? 2 : 1;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(!isEnabled() ? palette::OffEdge
                            : hasFocus() ? palette::Ring
                                         : palette::Edge,
                            line));
        painter.setBrush(isEnabled() ? palette::Field : palette::OffFace);
        painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                                Radius * scale, Radius * scale);
        if (isEnabled()) {
            painter.fillRect(QRectF(3, line, width() - 6, 1.6 * scale), palette::FieldShade);
            painter.fillRect(QRectF(1.5, height() - 0.5 - 2 * scale, width() - 3, 2 * scale), palette::Slate);
        }
    }
    QLineEdit::paintEvent(event);
}

}  // namespace travo
