// Who needs the camera program: it ends when nobody does.
#pragma once

#include <QSet>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>

namespace workbench::live {

class Callers {
public:
    struct Limits {
        // A program that nobody calls is not wanted after this.
        std::chrono::milliseconds first{10000};
        // A caller that comes while the last one leaves still finds the program: whoever closes TRAVO
        // and starts it again at once has asked for the camera before it could give up its name.
        std::chrono::milliseconds grace{300};
    };

    // Nobody calls for a limit: asked to end, from the event loop. Asked again after another limit if
    // the program is still there by then.
    explicit Callers(std::function<void()> nobody) : Callers(std::move(nobody), Limits()) {}
    Callers(std::function<void()> nobody, const Limits& limits);

    // A call has come from this one; true when it is its first.
    bool Note(const QString& caller);
    // This one has left the bus.
    void Gone(const QString& caller);
    qsizetype Count() const { return callers_.size(); }

private:
    Limits limits_;
    QSet<QString> callers_;
    QTimer alone_;
};

}  // namespace workbench::live
