// A control that knows the size it was designed for, and so how much larger or smaller it now stands.
#pragma once

#include <QSizeF>
#include <algorithm>
#include <cmath>

namespace travo {

class DesignSized {
public:
    virtual ~DesignSized() = default;

    // Width and height in design pixels. An empty size counts as "as large as it is now": scale 1.
    void DesignSize(const QSizeF& size) {
        designSize_ = size;
        DesignSizeChanged();
    }
    const QSizeF& DesignSize() const { return designSize_; }

    // The smaller of present width / design width and present height / design height.
    double ScaleAt(const QSizeF& present) const {
        if (designSize_.isEmpty()) {
            return 1.0;
        }
        return std::min(present.width() / designSize_.width(), present.height() / designSize_.height());
    }

    // The size at which a layout has put it, before its edges went to whole pixels.
    void PlacedSize(const QSizeF& size) { placedSize_ = size; }
    // The scale for text, which jumps by a whole pixel: neighbours that differ by what their edges were
    // rounded have the same. Without a layout that of the present size.
    double TextScaleAt(const QSizeF& present) const {
        const QSizeF rounded = present - placedSize_;
        const bool isPlaced = std::abs(rounded.width()) < 1 && std::abs(rounded.height()) < 1;
        return ScaleAt(isPlaced ? placedSize_ : present);
    }

protected:
    virtual void DesignSizeChanged() = 0;

private:
    QSizeF designSize_;
    QSizeF placedSize_;
};

}  // namespace travo
