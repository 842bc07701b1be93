#include "support/StandIns.h"

#include <QDir>
#include <stdexcept>

namespace travo::test {

bool FakeFolders::Exists(const QString& folder) const { return QDir(folder).exists(); }

void FakeFolders::Create(const QString& folder) {
    journal_.push_back("create folder " + folder.toStdString());
    if (refuse || !QDir().mkpath(folder)) {
        throw std::runtime_error("the folder cannot be made");
    }
}

}  // namespace travo::test
