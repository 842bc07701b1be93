// The lines of the traffic: folded, filtered, and held still while paused.
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <array>
#include <cstdint>
#include <deque>
#include <vector>

#include "workbench/window/Scene.h"
#include "workbench/window/WireReader.h"

namespace workbench {

enum class TrafficWire { Mirror, Gauge, Motor, Driver };  // what the world tells stands with the driver
inline constexpr int TrafficWireCount = 4;

struct TrafficLine {
    double time = 0.0;  // ms since the bench began, of the latest
    TrafficWire wire = TrafficWire::Mirror;
    Way way = Way::Event;
    QString bytes;
    QString meaning;
    bool bad = false;
    int times = 1;  // how often it was asked, or came
};

// One column; a row's text is what Copy would give of it. Lines are taken by LineAt.
class TrafficModel : public QAbstractListModel {
public:
    static constexpr int MostLines = 2000;
    // A line that has so many below it is not folded into any more.
    static constexpr int FoldDepth = 20;

    explicit TrafficModel(QObject* parent = nullptr);

    // Takes what is new, and the begin of the bench's time, of which times of the day are made.
    void Take(const Scene& scene);
    void SetShown(TrafficWire wire, bool shown);
    bool IsShown(TrafficWire wire) const { return wires_[static_cast<std::size_t>(wire)]; }
    // The list stands still; records go on being taken.
    void SetPaused(bool paused);
    bool IsPaused() const { return paused_; }
    void Clear();

    int rowCount(const QModelIndex& parent = {}) const override;
    // Qt::DisplayRole and Qt::AccessibleTextRole: the row's text. Qt::ToolTipRole: bytes and meaning, whole.
    QVariant data(const QModelIndex& index, int role) const override;
    const TrafficLine& LineAt(int row) const;
    // "14:06:02.140"
    QString TimeText(const TrafficLine& line) const;
    static QString WireText(TrafficWire wire);
    // Tab-separated, a line each with LF: time, wire, "to", "from" or "event", bytes, meaning. All rows shown
    // where none is given.
    QString CopyText(std::vector<int> rows = {}) const;

private:
    // What is told of lines that are kept while they change: which one, and which state of it.
    struct Kept {
        std::uint64_t id = 0;
        std::uint64_t revision = 0;
        TrafficLine line;
        QString key;     // of what folds: which question; empty otherwise
        QString answer;  // its latest value, in words
    };

    void TakeRecord(const TrafficRecord& record);
    bool Fold(const TrafficRecord& record, const WireMeaning& meaning);
    void Append(const TrafficRecord& record, const WireMeaning& meaning);
    void Synchronise();
    void ShowAnew();

    std::deque<Kept> lines_;
    std::deque<Kept> shown_;
    std::array<bool, TrafficWireCount> wires_{true, true, true, true};
    bool paused_ = false;
    std::int64_t beganAt_ = 0;
    std::uint64_t nextId_ = 1;
};

}  // namespace workbench
