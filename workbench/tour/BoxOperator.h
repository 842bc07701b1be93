// The operator's hand on message boxes: reads each and presses the button that the act expects.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <utility>

class QMessageBox;

namespace workbench::tour {

// Boxes are answered from the event loop, by mouse. A box whose text was not announced is closed
// without a button and remembered as unexpected.
class BoxOperator : public QObject {
public:
    // While it lives, it watches every window of the application.
    BoxOperator();
    ~BoxOperator() override;

    // The next box will have this text; the button with this label is to be pressed.
    void Expect(const QString& text, const QString& button = QStringLiteral("OK"));
    // Looks about while the next announced box is open, before its button is pressed.
    void LookFirst(std::function<void()> look) { look_ = std::move(look); }
    // While on, a box that was not announced is answered OK and is not counted as unexpected: noise on a
    // wire brings boxes that nobody can foretell.
    void Tolerate(bool on) { tolerant_ = on; }
    // All announced boxes have come.
    bool AllCame() const { return expected_.empty(); }
    // Texts of all boxes since the last call.
    QStringList TakeSeen();
    // Texts of boxes that nobody had announced.
    const QStringList& Unexpected() const { return unexpected_; }
    // Where pictures of the boxes go; none are made while it is empty.
    void Pictures(const QString& folder) { pictures_ = folder; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Answer {
        QString text;
        QString button;
    };

    void AnswerBox(QMessageBox& box);
    void SavePicture(QMessageBox& box);

    std::deque<Answer> expected_;
    QStringList seen_;
    QStringList unexpected_;
    QString pictures_;
    std::function<void()> look_;
    bool tolerant_ = false;
};

}  // namespace workbench::tour
