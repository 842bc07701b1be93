#include "workbench/live/StillFile.h"

#include <QDir>
#include <QSaveFile>

namespace workbench::live {

bool WriteStill(const QImage& picture, const QString& folder) {
    QSaveFile file(QDir(folder).filePath(QStringLiteral("BirdView.bmp")));
    return file.open(QIODevice::WriteOnly) && picture.save(&file, "BMP") && file.commit();
}

}  // namespace workbench::live
