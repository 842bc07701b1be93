#include "platform/qt/QtDriverLibrary.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace travo::platform::qt {
namespace {

using Place = std::array<std::int32_t, 3>;

QString FolderOf(const std::string& library) {
    return QStringLiteral(DRIVER_FOLDER "/") + QString::fromStdString(library);
}

std::unique_ptr<ManipulatorDriver> Load(const std::string& library) {
    return QtDriverLibrary(FolderOf(library)).Create();
}

// The name that the system gives the library, in this folder.
QString FileIn(const QString& folder) { return folder + QStringLiteral("/libManipulatorDriver.so"); }

// Asks the system itself, without loading anything.
bool IsLoaded(const std::string& library) {
    const QByteArray file = QFile::encodeName(FileIn(FolderOf(library)));
    void* loaded = dlopen(file.constData(), RTLD_LAZY | RTLD_NOLOAD);
    if (loaded != nullptr) {
        dlclose(loaded);
    }
    return loaded != nullptr;
}

std::string FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const DriverFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(QtDriverLibraryTest, ACompleteLibraryGivesADriverObject) { EXPECT_NE(Load("complete"), nullptr); }

TEST(QtDriverLibraryTest, DriverGetPositionGivesNumberAndCoordinatesInTheirOrder) {
    const ManipulatorDriver::Position position = Load("complete")->DriverGetPosition();
    EXPECT_EQ(position.number, 1);
    EXPECT_EQ(position.xyz, (Place{100, 200, 300}));
}

TEST(QtDriverLibraryTest, DriverMoveToHandsDownTheCoordinatesInTheirOrder) {
    const auto driver = Load("complete");
    driver->DriverMoveTo(1, 2, 3);
    EXPECT_EQ(driver->DriverGetPosition().xyz, (Place{1, 2, 3}));
}

TEST(QtDriverLibraryTest, DriverSelectHandsDownTheNumberAndGivesTheAnswer) {
    const auto driver = Load("complete");
    EXPECT_EQ(driver->DriverSelect(3), 3000);
    EXPECT_EQ(driver->DriverGetPosition().number, 3);
}

TEST(QtDriverLibraryTest, DriverReconnectAndDriverGetCountReachTheLibrary) {
    const auto driver = Load("complete");
    EXPECT_EQ(driver->DriverGetCount(), 4);
    driver->DriverReconnect();
    EXPECT_EQ(driver->DriverGetCount(), 5);
}

TEST(QtDriverLibraryTest, AMissingFunctionMeansNoDriverObject) {
    for (const char* library :
         {"lacks_get_position", "lacks_move_to", "lacks_select", "lacks_get_count", "lacks_reconnect"}) {
        // The library itself does load: it is the function that makes the difference.
        QLibrary file(FileIn(FolderOf(library)));
        EXPECT_TRUE(file.load()) << library;
        file.unload();
        EXPECT_EQ(Load(library), nullptr) << library;
    }
}

TEST(QtDriverLibraryTest, ALibraryWithoutAllFunctionsIsNotLeftLoaded) {
    EXPECT_EQ(Load("lacks_reconnect"), nullptr);
    EXPECT_FALSE(IsLoaded("lacks_reconnect"));
}

TEST(QtDriverLibraryTest, AMissingLibraryMeansNoDriverObject) {
    const QTemporaryDir folder;
    EXPECT_EQ(QtDriverLibrary(folder.path()).Create(), nullptr);
    EXPECT_EQ(QtDriverLibrary(folder.filePath(QStringLiteral("nowhere"))).Create(), nullptr);
    EXPECT_EQ(QtDriverLibrary(QString()).Create(), nullptr);
}

TEST(QtDriverLibraryTest, AFileThatIsNoLibraryMeansNoDriverObject) {
    for (const QByteArray& content : {QByteArray(), QByteArray("no library"), QByteArray(4096, '\xFF'),
                                      QByteArray("\x7f"
                                                 "ELF") +
                                          QByteArray(60, '\0')}) {
        const QTemporaryDir folder;
        QFile file(FileIn(folder.path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        EXPECT_EQ(QtDriverLibrary(folder.path()).Create(), nullptr) << content.size();
    }
}

TEST(QtDriverLibraryTest, AFolderOfThatNameMeansNoDriverObject) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir().mkdir(FileIn(folder.path())));
    EXPECT_EQ(QtDriverLibrary(folder.path()).Create(), nullptr);
}

TEST(QtDriverLibraryTest, ALibraryThatNeedsASymbolNobodyHasMeansNoDriverObject) {
    EXPECT_EQ(Load("needs_what_nobody_has"), nullptr);
}

TEST(QtDriverLibraryTest, ALibraryThatAppearsLaterIsFoundByTheNextCreate) {
    const QTemporaryDir folder;
    QtDriverLibrary library(folder.path());
    EXPECT_EQ(library.Create(), nullptr);
    ASSERT_TRUE(QFile::copy(FileIn(FolderOf("number_5")), FileIn(folder.path())));
    const auto driver = library.Create();
    ASSERT_NE(driver, nullptr);
    EXPECT_EQ(driver->DriverGetPosition().number, 5);
}

TEST(QtDriverLibraryTest, AFolderWithBlanksAndLettersBeyondASCIIIsFound) {
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("Gerät für Nadeln 針"));
    ASSERT_TRUE(QDir().mkdir(program));
    ASSERT_TRUE(QFile::copy(FileIn(FolderOf("complete")), FileIn(program)));
    EXPECT_NE(QtDriverLibrary(program).Create(), nullptr);
}

TEST(QtDriverLibraryTest, ANegativeStatusIsAFailureThatNamesOperationAndStatus) {
    const auto driver = Load("failing");
    EXPECT_EQ(FailureOf([&] { driver->DriverGetPosition(); }), "DriverGetPosition failed with status -7");
    EXPECT_EQ(FailureOf([&] { driver->DriverMoveTo(1, 2, 3); }), "DriverMoveTo failed with status -7");
    EXPECT_EQ(FailureOf([&] { driver->DriverSelect(1); }), "DriverSelect failed with status -7");
    EXPECT_EQ(FailureOf([&] { driver->DriverGetCount(); }), "DriverGetCount failed with status -7");
    EXPECT_EQ(FailureOf([&] { driver->DriverReconnect(); }), "DriverReconnect failed with status -7");
}

TEST(QtDriverLibraryTest, WhateverTheLibraryThrowsIsAFailureThatNamesTheOperation) {
    const auto driver = Load("throwing");
    EXPECT_EQ(FailureOf([&] { driver->DriverGetPosition(); }), "DriverGetPosition failed and threw");
    EXPECT_EQ(FailureOf([&] { driver->DriverMoveTo(1, 2, 3); }), "DriverMoveTo failed and threw");
    EXPECT_EQ(FailureOf([&] { driver->DriverSelect(1); }), "DriverSelect failed and threw");
    EXPECT_EQ(FailureOf([&] { driver->DriverGetCount(); }), "DriverGetCount failed and threw");
    EXPECT_EQ(FailureOf([&] { driver->DriverReconnect(); }), "DriverReconnect failed and threw");
}

TEST(QtDriverLibraryTest, TheLowestStatusIsAFailureLikeAnyOther) {
    EXPECT_EQ(FailureOf([] { Load("lowest_status")->DriverReconnect(); }),
              "DriverReconnect failed with status -2147483648");
}

TEST(QtDriverLibraryTest, APositiveStatusIsSuccess) {
    const auto driver = Load("positive_status");
    EXPECT_NO_THROW(driver->DriverReconnect());
    EXPECT_EQ(driver->DriverGetCount(), 5);
}

TEST(QtDriverLibraryTest, NumberAndCoordinatesPassUntestedWhateverTheyAre) {
    EXPECT_EQ(Load("number_5")->DriverGetPosition().number, 5);
    EXPECT_EQ(Load("outside_range")->DriverGetPosition().xyz, (Place{-1, 200, 25001}));
}

TEST(QtDriverLibraryTest, EachCreateLoadsAnewOnceTheLastObjectIsReleased) {
    QtDriverLibrary library(FolderOf("complete"));
    auto driver = library.Create();
    driver->DriverMoveTo(1, 2, 3);
    EXPECT_TRUE(IsLoaded("complete"));
    driver.reset();
    EXPECT_FALSE(IsLoaded("complete"));
    driver = library.Create();
    EXPECT_EQ(driver->DriverGetPosition().xyz, (Place{100, 200, 300}));
}

TEST(QtDriverLibraryTest, AnObjectOutlivesTheReleaseOfAnotherOneAndOfTheLibraryObject) {
    auto library = std::make_unique<QtDriverLibrary>(FolderOf("complete"));
    const auto driver = library->Create();
    library->Create().reset();
    library.reset();
    EXPECT_EQ(driver->DriverSelect(2), 2000);
}

}  // namespace
}  // namespace travo::platform::qt
