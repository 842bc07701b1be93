// A session bus that never greets anybody.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <thread>

namespace travo::test {

class SilentBus {
public:
    enum class Manner {
        TakesConnections,  // and says nothing
        HasNoRoom,         // for another connection
        LetsUsIn,          // believes who we are, and then says nothing
    };
    // RuntimeFolder: the socket "bus" in XDG_RUNTIME_DIR, which is set.
    enum class Place { File, Abstract, RuntimeFolder };

    explicit SilentBus(Manner manner, Place place = Place::File);
    ~SilentBus();
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    QString Address() const;
    // With each sign of the name as its code.
    QString EscapedAddress() const;
    // How many connections have come since it was asked last.
    int Newcomers() const;
    // Ends the bus's work; whether it has got as far as that.
    bool HasLetUsIn();

private:
    void LetIn();
    void Fill();

    QTemporaryDir folder_;
    QByteArray name_;
    Place place_;
    int socket_ = -1;
    int filling_ = -1;
    int guest_ = -1;
    bool hasLetIn_ = false;
    std::thread doorman_;
};

}  // namespace travo::test
