// The pictures of one control: found by name, kept as pixels for each size and display scale.
#pragma once

#include <QPixmap>
#include <QString>
#include <list>
#include <map>
#include <memory>

#include "controls/SkinDrawing.h"

namespace travo {

// The folder of the pictures lies in the folder given, under this name.
QString SkinFileName(const QString& folder, const QString& picture);

class SkinPictures {
public:
    // The four states of a button at two display scales, or all pieces of a scroll bar at one.
    static constexpr std::size_t MostPixmaps = 12;

    // The folder that holds the folder skin. Forgets what has been read from another one.
    void Folder(const QString& folder);
    const QString& Folder() const { return folder_; }

    // The picture `name` (a file's name without its ending) for `size` device-independent pixels on a
    // display with `displayScale` device pixels to each. `scale` is present over design size. A null
    // pixmap when the picture is missing or cannot be shown. A file is read once.
    QPixmap Picture(const QString& name, const QSize& size, double displayScale, double scale,
                    SkinFit fit = SkinFit::Proportion);

    std::size_t PixmapsKept() const { return kept_.size(); }

private:
    struct Kept {
        QString name;
        QSize size;
        double displayScale;
        double scale;
        SkinFit fit;
        QPixmap pixmap;

        bool IsFor(const Kept& other) const;
    };

    SkinDrawing* Drawing(const QString& name);
    static QPixmap Drawn(SkinDrawing& drawing, const Kept& wanted);

    QString folder_;
    // A name with no drawing: its file is not usable.
    std::map<QString, std::unique_ptr<SkinDrawing>> drawings_;
    // The one used last stands first.
    std::list<Kept> kept_;
};

}  // namespace travo
