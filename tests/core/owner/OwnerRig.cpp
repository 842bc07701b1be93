#include "core/owner/OwnerRig.h"

#include <algorithm>
#include <stdexcept>

namespace travo::test {

OwnerRig::OwnerRig() {
    folders_.program = program_.path();
    folders_.applicationData = data_.path();
    driver_.position = {{{100, 200, 300}, {1100, 1200, 1300}, {2100, 2200, 2300}, {3100, 3200, 3300}}};
    Restart();
}

void OwnerRig::Restart() {
    closing_.reset();
    startUp_.reset();
    loop_.reset();
    objects_.reset();
    state_.reset();
    timers_.created.clear();
    serialPorts_.created.clear();
    place_.reset();
    machine_.emplace(Seams());
    state_.emplace(*this);
    objects_.emplace(*machine_, *state_, instruments_, *this);
    loop_.emplace(*state_, *objects_, boxes_, timers_, *this);
    startUp_.emplace(*machine_, *state_, *objects_, *loop_, *this);
    closing_.emplace(*state_, *objects_, *loop_, boxes_, *this);
}

bool OwnerRig::Begin() {
    if (startUp_->Initialize() == StartUp::Outcome::End || startUp_->Load() == StartUp::Outcome::End) {
        return false;
    }
    startUp_->OpenCamera();
    return true;
}

void OwnerRig::WriteSettings(const QByteArray& text) const {
    QFile file(SettingsPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(text), text.size());
}

QByteArray OwnerRig::ReadSettings() const {
    QFile file(SettingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray OwnerRig::ReadLog() const {
    QFile file(data_.filePath(QStringLiteral("Zelvo/Shared/Data/debugTRAVO.txt")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray OwnerRig::CalibrationText(int needle) {
    return "[Manipulator Calibration:" + QByteArray::number(needle) +
           "]\r\n"
           "Index:0,XYZ:0=10000\r\nIndex:1,XYZ:0=7000\r\nIndex:2,XYZ:0=13000\r\nIndex:3,XYZ:0=10000\r\n"
           "Index:0,XYZ:1=20000\r\nIndex:1,XYZ:1=24000\r\nIndex:2,XYZ:1=24000\r\nIndex:3,XYZ:1=20000\r\n"
           "Index:0,XYZ:2=5000\r\nIndex:1,XYZ:2=5000\r\nIndex:2,XYZ:2=5000\r\nIndex:3,XYZ:2=6000\r\n"
           "ZERO,XYZ:0=100\r\nZERO,XYZ:1=-200\r\nZERO,XYZ:2=0\r\n"
           "Center,XYZ:0=10000\r\nCenter,XYZ:1=22000\r\nCenter,XYZ:2=5000\r\n"
           "Time=26/11/21    09:30\r\nReTime=-1\r\n";
}

std::ptrdiff_t OwnerRig::CountOf(const std::string& entry) const {
    return std::count(journal_.begin(), journal_.end(), entry);
}

std::size_t OwnerRig::PlaceOf(const std::string& entry) const {
    const auto found = std::find(journal_.begin(), journal_.end(), entry);
    EXPECT_NE(found, journal_.end()) << entry << " is not in the journal";
    return static_cast<std::size_t>(found - journal_.begin());
}

void OwnerRig::MagnificationChanged(std::int16_t magnification) {
    journal_.push_back("magnification " + std::to_string(magnification));
}

void OwnerRig::TotalManipulatorNumber(std::int16_t number) {
    journal_.push_back("total " + std::to_string(number));
}

void OwnerRig::ManipulatorChange(std::int16_t number) {
    journal_.push_back("manipulator " + std::to_string(number));
}

void OwnerRig::ChangeNeedleXYZ(std::int16_t index, const PositionXYZ& root) {
    lastRoot_ = root;
    journal_.push_back("needle " + std::to_string(index));
}

void OwnerRig::ChangeCurrentXYZ(const PositionXYZ&) {
    journal_.push_back("view step");
    if (failViewStep_) {
        throw std::runtime_error("the step fails");
    }
}

void OwnerRig::Place(const WindowPlace& place) {
    place_ = place;
    journal_.push_back("place main window");
}

}  // namespace travo::test
