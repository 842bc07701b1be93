// A control that knows the size it was designed for, and so how much larger or smaller it now stands.
#pragma once

#include <QSizeF>
#include <algorithm>

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

protected:
    virtual void DesignSizeChanged() = 0;

private:
    QSizeF designSize_;
};

}  // namespace travo
