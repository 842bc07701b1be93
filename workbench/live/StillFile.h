// The picture file for TRAVO's bird's-eye view.
#pragma once

#include <QImage>
#include <QString>

namespace workbench::live {

// Writes the picture as `BirdView.bmp` into a folder, through a temporary file and a rename: whoever
// reads finds the old picture or the new one, never a part. False where it cannot be written.
bool WriteStill(const QImage& picture, const QString& folder);

}  // namespace workbench::live
