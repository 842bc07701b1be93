#include "diagnostics/readers/CalibrationReader.h"

#include <QLocale>
#include <algorithm>
#include <array>

#include "core/ground/Positions.h"
#include "core/state/SettingsKeys.h"

namespace travo::diagnostics {

namespace {

struct Stored {
    bool isCalibrated = false;
    CalibrationMap::Points points{};
    bool hasCentre = false;
    QString full;    // as the file has it; NoTime for never
    QString centre;  // likewise
    CalibrationFigures figures;
};

QDateTime TimeOf(const QString& text) {
    QDateTime time = QLocale::c().toDateTime(text.simplified(), QStringLiteral("yy/MM/dd HH:mm"));
    // Two digits of a year mean the last century to the toolkit.
    return time.isValid() && time.date().year() < 2000 ? time.addYears(100) : time;
}

Stored Read(const clsIniEdit& settings, std::int32_t needle) {
    const QString section = settings::CalibrationSection(needle);
    const auto whole = [&](const QString& key) { return settings.GetInt(section, key, NoPositionValue); };
    Stored stored;
    stored.isCalibrated = true;
    PositionXYZ centre{};
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const auto place = static_cast<std::size_t>(axis);
        for (std::int32_t point = 0; point < CalibrationPointCount; ++point) {
            const std::int32_t counts = whole(settings::CalibrationPointKey(point, axis));
            stored.points[static_cast<std::size_t>(point)][place] = counts;
            stored.isCalibrated = stored.isCalibrated && counts != NoPositionValue;
        }
        stored.isCalibrated = stored.isCalibrated && whole(settings::ZeroKey(axis)) != NoPositionValue;
        centre[place] = whole(settings::CenterKey(axis));
    }
    const bool isCleared =
        std::all_of(centre.begin(), centre.end(), [](std::int32_t value) { return value == 0; });
    stored.hasCentre = !isCleared && std::find(centre.begin(), centre.end(), NoPositionValue) == centre.end();
    stored.full = settings.GetString(section, settings::TimeKey, settings::NoTime);
    stored.centre = settings.GetString(section, settings::ReTimeKey, settings::NoTime);
    if (stored.isCalibrated) {
        stored.figures = MeasureCalibration(stored.points);
    }
    return stored;
}

bool IsCentreOld(const Stored& stored) {
    const QDateTime full = TimeOf(stored.full);
    const QDateTime centre = TimeOf(stored.centre);
    return full.isValid() && centre.isValid() && centre < full;
}

// What decides before anything else does.
bool IsPoorBeforeAll(const Judgement& judgement) {
    return judgement.finding == Finding::Flat || judgement.grades.exchanged == Grade::Poor ||
           judgement.grades.ownMarks == Grade::Poor;
}

NeedleState StateOf(const Stored& stored, const Judgement& judgement,
                    const std::optional<QDateTime>& travoSince) {
    if (!stored.isCalibrated) {
        return NeedleState::None;
    }
    if (IsPoorBeforeAll(judgement)) {
        return NeedleState::Poor;
    }
    const QDateTime made = TimeOf(stored.full);
    // The file tells the minute alone: the minute of the start counts as after it.
    const bool wasLoaded = travoSince && made.isValid() && made.addSecs(60) <= *travoSince;
    if (!stored.hasCentre) {
        return wasLoaded ? NeedleState::CentreNow : NeedleState::Centre;
    }
    if (IsCentreOld(stored)) {
        return wasLoaded ? NeedleState::OldNow : NeedleState::CentreOld;
    }
    const std::array<NeedleState, 3> byGrade{NeedleState::Good, NeedleState::Fair, NeedleState::Poor};
    return byGrade.at(static_cast<std::size_t>(judgement.grade));
}

QString TimeText(const QString& stored, const QString& otherwise) {
    return stored == settings::NoTime ? otherwise : stored;
}

QString CentreText(const Stored& stored) {
    if (!stored.hasCentre) {
        return QStringLiteral("not recorded");
    }
    const QString time = TimeText(stored.centre, QStringLiteral("not recorded"));
    return IsCentreOld(stored) ? time + QStringLiteral(" older") : time;
}

NeedleCard CardOf(std::int32_t needle, const std::array<Stored, NeedleCount>& all,
                  const std::optional<QDateTime>& travoSince) {
    const Stored& stored = all.at(static_cast<std::size_t>(needle));
    std::vector<bool> others;
    for (const Stored& other : all) {
        if (&other != &stored && other.isCalibrated && !other.figures.isFlat) {
            others.push_back(other.figures.isRightHanded);
        }
    }
    const Judgement judgement = stored.isCalibrated ? JudgeCalibration(stored.figures, others) : Judgement();
    const NeedleText text = TextOf(StateOf(stored, judgement, travoSince));
    NeedleCard card;
    card.number = needle + 1;
    card.word = text.word;
    card.text = Filled(text.text, {{"n", QString::number(card.number)}, {"SENTENCE", judgement.sentence}});
    card.full = stored.isCalibrated ? TimeText(stored.full, QStringLiteral("none")) : QStringLiteral("none");
    card.centre = CentreText(stored);
    card.grades = judgement.grades;
    if (stored.isCalibrated && !stored.figures.isFlat) {
        card.figures = stored.figures;
    }
    return card;
}

}  // namespace

std::vector<NeedleCard> CalibrationCards(const clsIniEdit& settings,
                                         const std::optional<QDateTime>& travoSince) {
    std::array<Stored, NeedleCount> all;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        all.at(static_cast<std::size_t>(needle)) = Read(settings, needle);
    }
    std::vector<NeedleCard> cards;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        cards.push_back(CardOf(needle, all, travoSince));
    }
    return cards;
}

}  // namespace travo::diagnostics
