// The window with the serial ports of this computer, from which the operator learns a port's number.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QTableWidget>
#include <memory>
#include <vector>

#include "controls/usrKVButton.h"
#include "platform/Clock.h"
#include "platform/SerialPortList.h"

namespace travo {

// Non-modal. While it is open the list is read again every second, so that an adapter is seen to come and
// go; no port is opened for it.
class FormPortList : public QDialog {
    Q_OBJECT

public:
    FormPortList(platform::SerialPortList& ports, platform::Timers& timers, QWidget* parent);

    // Reads the list and shows the window, or brings it to the front. False, with nothing shown, where the
    // system gives no list.
    bool Open();

private:
    void Build();
    void BuildTable();
    void Closed();
    void Refresh();
    bool Read();
    void Fill();

    platform::SerialPortList& ports_;
    std::unique_ptr<platform::Timer> timer_;
    std::vector<platform::SerialPortList::Entry> entries_;
    QTableWidget table_;
    QLabel hint_;
    usrKVButton close_;
};

}  // namespace travo
