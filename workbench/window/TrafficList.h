// The list of the traffic: it follows its end until somebody looks further up.
#pragma once

#include <QListView>

namespace workbench {

class TrafficModel;
class TrafficRow;

// Keys: what walks through a list and selects in it, and Ctrl+C. With Ctrl, F1 and Esc the window's keys stay
// the window's.
class TrafficList : public QListView {
public:
    // The model outlives it.
    TrafficList(TrafficModel& model, QWidget* parent);

    void ShowSmall(bool small);
    // The selected lines, or all that are shown, onto the clipboard as tab-separated text.
    void Copy();
    // Before the model takes something, and after it.
    void NoteEnd();
    void FollowEnd();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TrafficModel& lines_;
    TrafficRow* row_;
    bool atEnd_ = true;
};

}  // namespace workbench
