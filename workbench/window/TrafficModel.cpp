#include "workbench/window/TrafficModel.h"

#include <QStringList>
#include <numeric>

#include "workbench/window/BenchText.h"

namespace workbench {

namespace {

TrafficWire WireOf(const std::string& source) {
    if (source == "mirror") {
        return TrafficWire::Mirror;
    }
    if (source == "gauge") {
        return TrafficWire::Gauge;
    }
    return source == "motor" ? TrafficWire::Motor : TrafficWire::Driver;
}

QString WayText(Way way) {
    switch (way) {
        case Way::ToInstrument:
            return QStringLiteral("to");
        case Way::FromInstrument:
            return QStringLiteral("from");
        case Way::Event:
            break;
    }
    return QStringLiteral("event");
}

}  // namespace

TrafficModel::TrafficModel(QObject* parent) : QAbstractListModel(parent) {}

void TrafficModel::Take(const Scene& scene) {
    beganAt_ = scene.beganAt;
    for (const TrafficRecord& record : scene.traffic) {
        TakeRecord(record);
    }
    if (!scene.traffic.empty()) {
        Synchronise();
    }
}

void TrafficModel::TakeRecord(const TrafficRecord& record) {
    WireMeaning meaning = MeaningOf(record);
    if (TouchesNext(record)) {
        touched_.insert(record.source);
    } else if (WayOf(record) == Way::FromInstrument && touched_.erase(record.source) > 0) {
        meaning.bad = true;
    }
    if (meaning.refusal && !meaning.question.isEmpty()) {
        open_.erase(meaning.question);
        meaning.question.clear();
    }
    Kept* kept = Foldable(meaning);
    if (kept != nullptr) {
        Fold(*kept, record, meaning);
    } else {
        Append(record, meaning);
    }
    while (lines_.size() > static_cast<std::size_t>(MostLines)) {
        lines_.pop_front();
    }
}

TrafficModel::Kept* TrafficModel::LineOf(const Open& open) {
    const std::size_t depth = static_cast<std::size_t>(nextId_ - 1 - open.id);
    return depth < lines_.size() ? &lines_[lines_.size() - 1 - depth] : nullptr;
}

// The line of this question, unless what comes is of another kind than its answers, or it is too far up. What
// a fault touched stands for itself.
TrafficModel::Kept* TrafficModel::Foldable(const WireMeaning& meaning) {
    const auto open = open_.find(meaning.question);
    if (meaning.question.isEmpty() || open == open_.end()) {
        return nullptr;
    }
    Kept* kept = LineOf(open->second);
    if (kept == nullptr || nextId_ - 1 - kept->id >= static_cast<std::uint64_t>(FoldDepth)) {
        return nullptr;
    }
    const bool another = open->second.kind != meaning.kind || kept->line.bad != meaning.bad;
    return meaning.answers && kept->answered > 0 && another ? nullptr : kept;
}

void TrafficModel::Fold(Kept& kept, const TrafficRecord& record, const WireMeaning& meaning) {
    kept.line.time = record.time;
    kept.asked += meaning.asks ? 1 : 0;
    kept.answered += meaning.answers ? 1 : 0;
    if (meaning.answers) {
        kept.line.way = WayOf(record);
        kept.line.bytes = meaning.bytes;
        kept.line.bad = meaning.bad;
        kept.text = meaning.text;
        open_[meaning.question].kind = meaning.kind;
    }
    Count(kept);
}

void TrafficModel::Count(Kept& kept) {
    ++kept.revision;
    kept.line.times = kept.asked > 0 ? kept.asked : kept.answered;
    kept.line.meaning = kept.text;
    if (kept.line.times > 1) {
        kept.line.meaning +=
            (kept.asked > 0 ? QStringLiteral(", asked %1 times") : QStringLiteral(", came %1 times"))
                .arg(kept.line.times);
    }
}

void TrafficModel::Append(const TrafficRecord& record, const WireMeaning& meaning) {
    Kept kept;
    kept.id = nextId_;
    kept.line = {
        record.time, WireOf(record.source), WayOf(record), meaning.bytes, meaning.text, meaning.bad, 1};
    kept.text = meaning.text;
    kept.asked = meaning.asks ? 1 : 0;
    kept.answered = meaning.answers ? 1 : 0;
    if (meaning.answers && !meaning.asks && TakeQuestionFrom(meaning.question)) {
        kept.asked = 1;
    }
    ++nextId_;
    lines_.push_back(kept);
    if (!meaning.question.isEmpty()) {
        open_[meaning.question] = {kept.id, meaning.kind};
    }
}

// An answer of another kind begins a line of its own: the question that it answers was counted with the old
// one.
bool TrafficModel::TakeQuestionFrom(const QString& question) {
    const auto open = open_.find(question);
    Kept* kept = open == open_.end() ? nullptr : LineOf(open->second);
    if (kept == nullptr || kept->asked <= kept->answered) {
        return false;
    }
    --kept->asked;
    Count(*kept);
    return true;
}

void TrafficModel::SetShown(TrafficWire wire, bool shown) {
    if (IsShown(wire) == shown) {
        return;
    }
    wires_[static_cast<std::size_t>(wire)] = shown;
    ShowAnew();
}

void TrafficModel::SetPaused(bool paused) {
    paused_ = paused;
    pausedEnd_ = nextId_;
    Synchronise();
}

void TrafficModel::Clear() {
    lines_.clear();
    open_.clear();
    beginResetModel();
    shown_.clear();
    endResetModel();
}

// Tells of the lines that fell out at the top, of those that changed and of those that are new.
void TrafficModel::Synchronise() {
    if (paused_) {
        return;
    }
    DropFirst();
    std::size_t row = 0;
    std::deque<Kept> added;
    for (const Kept& kept : lines_) {
        if (!IsShown(kept)) {
            continue;
        }
        if (row >= shown_.size()) {
            added.push_back(kept);
        } else if (shown_[row].revision != kept.revision) {
            shown_[row] = kept;
            const QModelIndex changed = index(static_cast<int>(row));
            dataChanged(changed, changed);
        }
        ++row;
    }
    if (!added.empty()) {
        const int first = static_cast<int>(shown_.size());
        beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
        shown_.insert(shown_.end(), added.begin(), added.end());
        endInsertRows();
    }
}

void TrafficModel::DropFirst() {
    const std::uint64_t oldest = lines_.empty() ? nextId_ : lines_.front().id;
    int gone = 0;
    while (gone < static_cast<int>(shown_.size()) && shown_[static_cast<std::size_t>(gone)].id < oldest) {
        ++gone;
    }
    if (gone > 0) {
        beginRemoveRows({}, 0, gone - 1);
        shown_.erase(shown_.begin(), shown_.begin() + gone);
        endRemoveRows();
    }
}

// Another choice of wires. While paused only lines that were there when the list came to a stand are shown,
// each as it is now.
void TrafficModel::ShowAnew() {
    const std::uint64_t end = paused_ ? pausedEnd_ : nextId_;
    beginResetModel();
    shown_.clear();
    for (const Kept& kept : lines_) {
        if (IsShown(kept) && kept.id < end) {
            shown_.push_back(kept);
        }
    }
    endResetModel();
}

int TrafficModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const TrafficLine& line = LineAt(index.row());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return RowText(line);
        case Qt::ToolTipRole:
            return line.bytes + QLatin1Char('\n') + line.meaning;
        default:
            return {};
    }
}

const TrafficLine& TrafficModel::LineAt(int row) const { return shown_[static_cast<std::size_t>(row)].line; }

QString TrafficModel::TimeText(const TrafficLine& line) const { return ClockTextFine(beganAt_, line.time); }

QString TrafficModel::WireText(TrafficWire wire) {
    static const std::array<const char*, TrafficWireCount> texts = {"Mirror", "Gauge", "Motor", "Driver"};
    return QLatin1String(texts[static_cast<std::size_t>(wire)]);
}

QString TrafficModel::RowText(const TrafficLine& line) const {
    return QStringList{TimeText(line), WireText(line.wire), WayText(line.way), line.bytes, line.meaning}.join(
        QLatin1Char('\t'));
}

QString TrafficModel::CopyText(std::vector<int> rows) const {
    if (rows.empty()) {
        rows.resize(shown_.size());
        std::iota(rows.begin(), rows.end(), 0);
    }
    QString text;
    for (const int row : rows) {
        text += RowText(LineAt(row)) + QLatin1Char('\n');
    }
    return text;
}

}  // namespace workbench
