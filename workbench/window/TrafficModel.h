// The lines of the traffic: folded, filtered, and held still while paused.
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
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
    // A line and what is needed to add to it, and to tell whether it is shown as it stands.
    struct Kept {
        std::uint64_t id = 0;
        std::uint64_t revision = 0;
        TrafficLine line;
        QString text;      // the meaning of its latest value
        int asked = 0;     // how often its question came
        int answered = 0;  // and an answer
    };
    // The line that a question and its answers share.
    struct Open {
        std::uint64_t id = 0;
        QString kind;  // of its latest answer
    };

    void TakeRecord(const TrafficRecord& record);
    Kept* LineOf(const Open& open);
    bool TakeQuestionFrom(const QString& question);
    static void Count(Kept& kept);
    Kept* Foldable(const WireMeaning& meaning);
    void Fold(Kept& kept, const TrafficRecord& record, const WireMeaning& meaning);
    void Append(const TrafficRecord& record, const WireMeaning& meaning);
    bool IsShown(const Kept& kept) const { return IsShown(kept.line.wire); }
    void Synchronise();
    void DropFirst();
    void ShowAnew();
    QString RowText(const TrafficLine& line) const;

    std::deque<Kept> lines_;
    std::deque<Kept> shown_;
    std::map<QString, Open> open_;
    std::set<std::string> touched_;  // wires whose next line a fault has touched
    std::array<bool, TrafficWireCount> wires_{true, true, true, true};
    bool paused_ = false;
    std::uint64_t pausedEnd_ = 0;  // lines from this one on came while paused
    std::int64_t beganAt_ = 0;
    std::uint64_t nextId_ = 1;
};

}  // namespace workbench
