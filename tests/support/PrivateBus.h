// A session bus of the test's own, with its own folder of services.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>

namespace travo::test {

// Serves the event loop until the condition holds; false where it does not within the limit.
bool ServeUntil(const std::function<bool()>& condition, int limitMilliseconds = 20000);

// Sets DBUS_SESSION_BUS_ADDRESS for this process and its children. Everything that was started on the
// bus and has noted itself for NotedProcesses must have ended when the object has: else the test fails.
class PrivateBus {
public:
    // A bus without room takes connections and then refuses to greet them.
    enum class Room { Enough, None };

    explicit PrivateBus(Room room = Room::Enough);
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString Folder() const { return folder_.path(); }
    QString File(const QString& name) const { return folder_.filePath(name); }
    // Makes a program startable under a name.
    void Install(const QString& service, const QString& commandLine) const;
    void Uninstall(const QString& service) const;

    // Ends the bus, as the end of the session does; Start begins a new one.
    void Stop();
    void Start();

    // How many unique names there are on the bus, without the one that asks.
    int Clients() const;

    // The processes that have written their numbers, one to a line, to the file "processes".
    QStringList NotedProcesses() const;

private:
    static bool Runs(const QString& process);

    QTemporaryDir folder_;
    QProcess daemon_;
};

// A small file read and written whole.
QString ReadText(const QString& path);
void WriteText(const QString& path, const QString& text);

}  // namespace travo::test
