// One plate of the window on a bench whose time stands where the test puts it.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <string>
#include <utility>
#include <vector>

#include "workbench/commands/Bench.h"
#include "workbench/window/Hand.h"
#include "workbench/window/SceneReader.h"

namespace workbench::test {

// Gives the plate its hand, notes what it says and reads scenes for it.
class PlateRig : public ::testing::Test {
protected:
    std::string Answer(const std::string& line) { return bench.commands.Answer(line, now); }

    Hand MakeHand() {
        return {[this](const std::string& line) {
                    said.push_back(line);
                    return Answer(line);
                },
                [this](const std::string& line) { return Answer(line); }};
    }

    const Scene& Read() {
        scene = ReadScene([this](const std::string& line) { return Answer(line); }, scene);
        return scene;
    }

    // Long enough for everything to come to rest.
    void Rest() { now += std::chrono::seconds(10); }

    template <typename Widget>
    static Widget& Find(QWidget& plate, const char* name) {
        auto* const found = plate.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    static void Click(QWidget& plate, const char* name) {
        QTest::mouseClick(&Find<QAbstractButton>(plate, name), Qt::LeftButton);
    }

    std::vector<std::string> TakeSaid() { return std::exchange(said, {}); }

    using Said = std::vector<std::string>;

    Time now = std::chrono::seconds(1);
    Bench bench;
    Scene scene;
    std::vector<std::string> said;
};

}  // namespace workbench::test
