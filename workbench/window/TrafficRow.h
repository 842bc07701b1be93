// How a line of the traffic is painted.
#pragma once

#include <QStyledItemDelegate>

namespace workbench {

class TrafficModel;

// Lines of 20: time, wire, arrow, bytes, meaning. What does not fit ends in an ellipsis.
class TrafficRow : public QStyledItemDelegate {
public:
    static constexpr int Height = 20;

    // The model outlives it.
    TrafficRow(const TrafficModel& model, QObject* parent);

    // In a small window the meaning begins further left.
    void ShowSmall(bool small) { small_ = small; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    const TrafficModel& model_;
    bool small_ = false;
};

}  // namespace workbench
