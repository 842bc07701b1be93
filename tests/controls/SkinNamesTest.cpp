#include "controls/SkinNames.h"

#include <QDir>
#include <QSet>

#include "controls/ControlRig.h"
#include "controls/SkinCheck.h"
#include "controls/SkinDrawing.h"
#include "controls/SkinPictures.h"

namespace travo {

using test::SkinHome;

namespace {

QStringList FilesOfSkin() {
    QStringList names;
    for (const QString& file : QDir(SkinHome() + QStringLiteral("/skin")).entryList(QDir::Files)) {
        EXPECT_TRUE(file.endsWith(QStringLiteral(".svg"))) << file.toStdString();
        names << file.chopped(4);
    }
    return names;
}

QSet<QString> SetOf(const QStringList& names) { return QSet<QString>(names.begin(), names.end()); }

}  // namespace

TEST(SkinNamesTest, EveryNameHasItsPictureAndEveryPictureItsName) {
    const QStringList listed = AllSkinNames();
    const QStringList files = FilesOfSkin();
    EXPECT_EQ(listed.size(), 378);
    EXPECT_EQ(SetOf(listed).size(), listed.size());
    for (const QString& name : SetOf(listed) - SetOf(files)) {
        ADD_FAILURE() << "no picture: " << name.toStdString();
    }
    for (const QString& name : SetOf(files) - SetOf(listed)) {
        ADD_FAILURE() << "no name: " << name.toStdString();
    }
}

TEST(SkinNamesTest, NoTwoNamesDifferByCaseAlone) {
    QSet<QString> lower;
    for (const QString& name : AllSkinNames()) {
        lower.insert(name.toLower());
    }
    EXPECT_EQ(lower.size(), AllSkinNames().size());
}

TEST(SkinNamesTest, EveryPictureIsUsable) {
    for (const QString& name : AllSkinNames()) {
        const SkinFile file = ReadSkinFile(SkinFileName(SkinHome(), name));
        EXPECT_EQ(SkinFault(file).value_or(QString()).toStdString(), "") << name.toStdString();
        EXPECT_TRUE(SkinDrawing(file).IsValid()) << name.toStdString();
    }
}

TEST(SkinNamesTest, EveryPictureHasTheSizeThatTheListGives) {
    const auto expectSize = [](const QString& name, const QSize& size) {
        EXPECT_EQ(ReadSkinFile(SkinFileName(SkinHome(), name)).size, QSizeF(size)) << name.toStdString();
    };
    for (const ButtonSkin& skin : ButtonSkins()) {
        for (const char* const state : {"-up", "-down", "-disabled"}) {
            expectSize(skin.name + QLatin1String(state), skin.size);
        }
    }
    for (const PictureSkin& skin : PictureSkins()) {
        expectSize(skin.name, skin.size);
    }
    for (const PictureSkin& skin : MarkerSkins()) {
        expectSize(skin.name, skin.size);
    }
}

TEST(SkinNamesTest, ButtonPicturesHoldFaceAndGlyphButCloseAndSize) {
    for (const ButtonSkin& skin : ButtonSkins()) {
        const SkinFile file = ReadSkinFile(SkinFileName(SkinHome(), skin.name + QStringLiteral("-up")));
        const bool isWhole = skin.name == QStringLiteral("CLOSE") || skin.name == QStringLiteral("size");
        EXPECT_EQ(file.hasFace && file.hasGlyph, !isWhole) << skin.name.toStdString();
    }
}

TEST(SkinNamesTest, LampsLettersCaptionsAndTheTrackAreStretchedAndNothingElse) {
    QStringList stretched;
    for (const QString& name : AllSkinNames()) {
        if (IsStretchedSkin(name)) {
            stretched << name;
        }
    }
    stretched.sort();
    EXPECT_EQ(stretched.join(QLatin1Char(' ')).toStdString(),
              "birdparm birdxyz cellletters-0 cellletters-1 lamp-move lamp-target xscroll-track-disabled "
              "xscroll-track-up");
}

}  // namespace travo
