// The first sentence, and the report as it is printed.
#include "diagnostics/words/Report.h"

#include <gtest/gtest.h>

#include <string>

#include "diagnostics/words/Summary.h"

namespace travo::diagnostics::test {

namespace {

Page Working() {
    Page page;
    for (const Link link :
         {Link::Mirror, Link::Gauge, Link::Motor, Link::Needles, Link::Camera, Link::Settings}) {
        page.links.push_back({link, {Mark::Works, QStringLiteral("Fine."), {}}, {}});
    }
    for (int number = 1; number <= 4; ++number) {
        page.needles.push_back({number,
                                {Mark::Works, QStringLiteral("Lengths and angles fit."), {}},
                                QStringLiteral("Good"),
                                QStringLiteral("26/03/14    09:41"),
                                QStringLiteral("26/03/14    09:58"),
                                std::nullopt,
                                {}});
    }
    page.lookedAt = QStringLiteral("14:21:52");
    return page;
}

void SetMark(Page& page, Link link, Mark mark) {
    page.links.at(static_cast<std::size_t>(link)).text.mark = mark;
}

std::string Sentence(const Page& page) { return SummaryOf(page).sentence.toStdString(); }
std::string Second(const Page& page) { return SummaryOf(page).second.toStdString(); }

}  // namespace

TEST(SummaryTest, AllSixWork) {
    EXPECT_EQ(Sentence(Working()), "All six links work");
    EXPECT_EQ(Second(Working()), "Looked at 14:21:52. Nothing on this page moves anything.");
}

TEST(SummaryTest, WhatIsNotSetUpIsNamed) {
    Page page = Working();
    SetMark(page, Link::Gauge, Mark::NotSetUp);
    SetMark(page, Link::Camera, Mark::NotSetUp);
    EXPECT_EQ(Sentence(page), "All that is set up works");
    EXPECT_EQ(Second(page), "Not set up: Gauge and Camera.");
}

TEST(SummaryTest, BesideNoTravoItSaysSo) {
    Page page = Working();
    page.isTravoRunning = false;
    EXPECT_EQ(Sentence(page), "All six links work");
    EXPECT_EQ(Second(page), "TRAVO is not running: what needs an answer shows when it runs.");
}

TEST(SummaryTest, WhatIsWaitedForIsNamed) {
    Page page = Working();
    SetMark(page, Link::Mirror, Mark::Waiting);
    EXPECT_EQ(Sentence(page), "Waiting for the mirror");
    EXPECT_EQ(Second(page), "The verdict comes within two seconds.");
    SetMark(page, Link::Motor, Mark::Waiting);
    EXPECT_EQ(Sentence(page), "Waiting for the mirror and the motor");
}

TEST(SummaryTest, OneThingTwoThingsAndTenAreCountedAndNamed) {
    Page page = Working();
    SetMark(page, Link::Gauge, Mark::Waiting);
    SetMark(page, Link::Motor, Mark::NeedsYou);
    EXPECT_EQ(Sentence(page), "One thing needs you");
    EXPECT_EQ(Second(page), "Motor");
    page.needles[2].text.mark = Mark::NeedsYou;
    EXPECT_EQ(Sentence(page), "Two things need you");
    EXPECT_EQ(Second(page), "Motor, and the calibration of needle 3");
    page.needles[1].text.mark = Mark::NeedsYou;
    EXPECT_EQ(Second(page), "Motor, and the calibration of needles 2 and 3");
    for (LinkCard& card : page.links) {
        card.text.mark = Mark::NeedsYou;
    }
    for (NeedleCard& card : page.needles) {
        card.text.mark = Mark::NeedsYou;
    }
    EXPECT_EQ(Sentence(page), "Ten things need you");
    EXPECT_EQ(
        Second(page),
        "Mirror, Gauge, Motor, Needles, Camera, Settings, and the calibration of needles 1, 2, 3 and 4");
}

TEST(ReportTest, CardsRemediesDetailsVersionsAndLogStandInTheirColumns) {
    Page page;
    page.links.push_back({Link::Mirror,
                          {Mark::NeedsYou, QStringLiteral("The connection was lost at 14:20:00."),
                           QStringLiteral("Check cable and power, then press SET in its row.")},
                          {{QStringLiteral("Sent last"), QStringLiteral("14:19:58.120  cD2A94")}}});
    page.links.push_back(
        {Link::Gauge, {Mark::Works, QStringLiteral("Port 2 is open. Last answer 0.1 s ago."), {}}, {}});
    const CalibrationMap::Points points{
        {{12542, 12458, 12500}, {12497, 12616, 12500}, {12401, 12486, 12500}, {12542, 12458, 12400}}};
    const CalibrationFigures figures = MeasureCalibration(points);
    page.needles.push_back(
        {3,
         {Mark::NeedsYou, JudgeCalibration(figures, {}).sentence, QStringLiteral("Calibrate needle 3.")},
         QStringLiteral("Poor"),
         QStringLiteral("26/03/14    10:04"),
         QStringLiteral("26/03/14    10:11"),
         figures,
         {}});
    page.needles.push_back({4,
                            {Mark::NotSetUp, QStringLiteral("Takes no automatic move."), {}},
                            QStringLiteral("Not calibrated"),
                            QStringLiteral("none"),
                            QStringLiteral("not recorded"),
                            std::nullopt,
                            {}});
    page.versions.push_back({QStringLiteral("TRAVO"), QStringLiteral("1.0")});
    page.log << QStringLiteral("14:20:41 - Needle move failed");
    EXPECT_EQ(ReportOf(page).toStdString(),
              "Two things need you: Mirror, and the calibration of needle 3\n"
              "Mirror    Needs you     The connection was lost at 14:20:00.\n"
              "                        > Check cable and power, then press SET in its row.\n"
              "                        Sent last: 14:19:58.120  cD2A94\n"
              "Gauge     Works         Port 2 is open. Last answer 0.1 s ago.\n"
              "Needle 3  Poor          X and Y stand at 98.6°, not 90°: one mark was missed.\n"
              "                        > Calibrate needle 3.\n"
              "                        Lengths 161.6, 263.0, 100.0; angles 98.6, 90.0, 90.0; own marks 11.9; "
              "there and back 1; right-handed\n"
              "                        Full 26/03/14    10:04, centre 26/03/14    10:11\n"
              "Needle 4  Not calibrated Takes no automatic move.\n"
              "                        Full none, centre not recorded\n"
              "Versions\n"
              "                        TRAVO: 1.0\n"
              "End of the log\n"
              "                        14:20:41 - Needle move failed\n");
}

}  // namespace travo::diagnostics::test
