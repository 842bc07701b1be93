#include "devices/view/FormPortList.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "controls/ControlNames.h"
#include "controls/Palette.h"
#include "controls/Type.h"
#include "platform/ShownText.h"

namespace travo {

namespace {

constexpr int RefreshPeriod = 1000;  // milliseconds
// What a device calls itself may be of any length.
constexpr qsizetype MostCharacters = 500;

enum Column { NumberColumn, DeviceColumn, DescriptionColumn, StateColumn, ColumnCount };

// In device-independent pixels.
constexpr QSize WindowSize(720, 336);
constexpr QSize CloseSize(120, 52);
constexpr int RowHeight = 36;
constexpr int ColumnWidth[] = {64, 224, 256, 140};

// A word in brackets is a colour.
constexpr char Sheet[] = R"(
QDialog { background-color: [ground]; }
QLabel { color: [ink2]; }
QTableWidget { background-color: [read]; color: [ink]; border: 1px solid [hair]; border-radius: 3px;
    selection-background-color: [slate]; selection-color: [onSlate]; outline: none; }
QTableWidget::item { padding: 0px 8px; border: none; border-bottom: 1px solid [hair]; }
QTableWidget::item:selected { background-color: [slate]; color: [onSlate]; }
QHeaderView::section { background-color: [well]; color: [ink2]; border: none;
    border-bottom: 1px solid [hair]; padding: 4px 8px 4px 11px; }
)";

QString StyleSheet() {
    const std::pair<const char*, QColor> colours[] = {
        {"[ground]", palette::Ground}, {"[ink2]", palette::Ink2},      {"[ink]", palette::Ink},
        {"[read]", palette::Read},     {"[hair]", palette::Hair},      {"[well]", palette::Well},
        {"[slate]", palette::Slate},   {"[onSlate]", palette::OnSlate}};
    QString sheet = QString::fromLatin1(Sheet);
    for (const auto& [word, colour] : colours) {
        sheet.replace(QLatin1String(word), colour.name());
    }
    return sheet;
}

QString NumberText(std::int16_t number) { return number > 0 ? QString::number(number) : QStringLiteral("-"); }

}  // namespace

FormPortList::FormPortList(platform::SerialPortList& ports, platform::Timers& timers, QWidget* parent)
    : QDialog(parent),
      ports_(ports),
      timer_(timers.Create([this] { Refresh(); })),
      table_(0, ColumnCount, this),
      hint_(this),
      close_(this) {
    setObjectName(QStringLiteral("FormPortList"));
    setWindowTitle(QStringLiteral("Serial ports"));
    setAccessibleName(QStringLiteral("Serial ports"));
    timer_->Interval(RefreshPeriod);
    Build();
    resize(WindowSize);
    connect(this, &QDialog::finished, this, [this] { Closed(); });
}

void FormPortList::Build() {
    setStyleSheet(StyleSheet());
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(10);
    BuildTable();
    hint_.setObjectName(QStringLiteral("lblHint"));
    hint_.setTextFormat(Qt::PlainText);
    hint_.setFont(TextFont(type::Caption, QFont::Normal));
    close_.setText(QStringLiteral("Close"));
    close_.setFixedSize(CloseSize);
    Identify(close_, QStringLiteral("usrKVButton1"), QStringLiteral("Close"),
             QStringLiteral("Close this window"));
    connect(&close_, &usrKVButton::clicked, this, &QDialog::reject);
    column->addWidget(&table_);
    column->addWidget(&hint_);
    column->addWidget(&close_, 0, Qt::AlignRight);
}

void FormPortList::BuildTable() {
    Identify(table_, QStringLiteral("tblPort"), QStringLiteral("Serial ports"));
    table_.setHorizontalHeaderLabels({QStringLiteral("Port"), QStringLiteral("Device"),
                                      QStringLiteral("Description"), QStringLiteral("State")});
    table_.setFont(TextFont(type::NameSmall, QFont::Normal));
    QHeaderView* const header = table_.horizontalHeader();
    header->setFont(TextFont(type::Caption, QFont::DemiBold));
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setHighlightSections(false);
    for (int column = 0; column < ColumnCount; ++column) {
        table_.setColumnWidth(column, ColumnWidth[column]);
    }
    header->setSectionResizeMode(DescriptionColumn, QHeaderView::Stretch);
    table_.verticalHeader()->hide();
    table_.verticalHeader()->setDefaultSectionSize(RowHeight);
    table_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_.setSelectionBehavior(QAbstractItemView::SelectRows);
    table_.setSelectionMode(QAbstractItemView::SingleSelection);
    table_.setTabKeyNavigation(false);
    table_.setWordWrap(false);
    table_.setShowGrid(false);
    // Both ends of a device path tell ports apart.
    table_.setTextElideMode(Qt::ElideMiddle);
}

bool FormPortList::Open() {
    if (!Read()) {
        return false;
    }
    timer_->Enabled(true);
    show();
    raise();
    activateWindow();
    return true;
}

void FormPortList::Closed() { timer_->Enabled(false); }

void FormPortList::Refresh() { Read(); }

// False where there is no list; the window says so then.
bool FormPortList::Read() {
    std::vector<platform::SerialPortList::Entry> entries;
    bool isThere = true;
    try {
        entries = ports_.List();
    } catch (...) {
        isThere = false;
    }
    hint_.setText(!isThere          ? QStringLiteral("Device Manager is Not found")
                  : entries.empty() ? QStringLiteral("This computer has no serial port.")
                                    : QStringLiteral("Read again every second."));
    // A table that is filled anew loses its selection and its place: only for a change.
    if (entries != entries_) {
        entries_ = std::move(entries);
        Fill();
    }
    return isThere;
}

void FormPortList::Fill() {
    table_.setRowCount(static_cast<int>(entries_.size()));
    int row = 0;
    for (const auto& entry : entries_) {
        const QString state = entry.whyNot.isEmpty() ? QStringLiteral("can be opened") : entry.whyNot;
        const QString texts[] = {NumberText(entry.number), entry.device, entry.description, state};
        for (int column = 0; column < ColumnCount; ++column) {
            const QString text = platform::ShownText(texts[column], MostCharacters);
            auto* const item = new QTableWidgetItem(text);
            item->setToolTip(platform::PlainToolTip(text));
            if (column == StateColumn && !entry.whyNot.isEmpty()) {
                item->setForeground(palette::CoralDeepText);
            }
            table_.setItem(row, column, item);
        }
        ++row;
    }
}

}  // namespace travo
