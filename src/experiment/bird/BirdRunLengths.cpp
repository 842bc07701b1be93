#include "experiment/bird/BirdRunLengths.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace travo {

namespace {

// What stands after a count of 0; from 3 on it is the number of pixels that follow one by one.
constexpr int EndOfRow = 0;
constexpr int EndOfPicture = 1;
constexpr int Move = 2;

class Bytes {
public:
    explicit Bytes(const BirdByteSource& source) : source_(source) {}

    // -1 at the end.
    int Next() {
        if (place_ == held_.size()) {
            held_ = source_();
            place_ = 0;
            if (held_.isEmpty()) {
                return -1;
            }
        }
        return static_cast<unsigned char>(held_[place_++]);
    }

private:
    const BirdByteSource& source_;
    QByteArray held_;
    qsizetype place_ = 0;
};

class Expansion {
public:
    Expansion(const BirdByteSource& source, const QSize& whole, const QRect& part, bool areNibbles)
        : bytes_(source),
          whole_(whole),
          part_(part),
          areNibbles_(areNibbles),
          indices_(qsizetype{part.width()} * part.height(), '\0') {}

    QByteArray Take() {
        while (y_ <= part_.bottom() && Step()) {
        }
        return std::move(indices_);
    }

private:
    // One run; false at the end.
    bool Step() {
        const int count = bytes_.Next();
        const int value = bytes_.Next();
        if (value < 0) {
            return false;
        }
        if (count > 0) {
            Repeat(value, count);
            return true;
        }
        switch (value) {
            case EndOfRow:
                x_ = 0;
                ++y_;
                return true;
            case EndOfPicture:
                return false;
            case Move:
                return MoveOn();
            default:
                return CopyOneByOne(value);
        }
    }

    bool MoveOn() {
        const int right = bytes_.Next();
        const int on = bytes_.Next();
        if (on < 0) {
            return false;
        }
        x_ += right;
        y_ += on;
        return true;
    }

    void Repeat(int value, int count) {
        const int end = std::min(x_ + count, whole_.width());
        if (!areNibbles_) {
            const int from = std::max(x_, part_.left());
            const int to = std::min(end, part_.right() + 1);
            if (IsInRow() && from < to) {
                std::memset(Place(from), value, static_cast<std::size_t>(to - from));
            }
            x_ = end;
            return;
        }
        for (bool isFirst = true; x_ < end; isFirst = !isFirst) {
            Put(isFirst ? value >> 4 : value & 0x0F);
        }
    }

    // They fill up to whole pairs of bytes.
    bool CopyOneByOne(int count) {
        const int byteCount = areNibbles_ ? (count + 1) / 2 : count;
        for (int i = 0; i < byteCount; ++i) {
            const int value = bytes_.Next();
            if (value < 0) {
                return false;
            }
            Put(areNibbles_ ? value >> 4 : value);
            if (areNibbles_ && 2 * i + 1 < count) {
                Put(value & 0x0F);
            }
        }
        return byteCount % 2 == 0 || bytes_.Next() >= 0;
    }

    void Put(int index) {
        if (x_ >= whole_.width()) {
            return;
        }
        if (IsInRow() && x_ >= part_.left() && x_ <= part_.right()) {
            *Place(x_) = static_cast<char>(index);
        }
        ++x_;
    }

    bool IsInRow() const { return y_ >= part_.top() && y_ <= part_.bottom(); }
    char* Place(int x) {
        return indices_.data() + qsizetype{y_ - part_.top()} * part_.width() + x - part_.left();
    }

    Bytes bytes_;
    QSize whole_;
    QRect part_;
    bool areNibbles_;
    QByteArray indices_;
    int x_ = 0;
    int y_ = 0;
};

}  // namespace

QByteArray ExpandRunLengths(const BirdByteSource& source, const QSize& whole, const QRect& part,
                            bool areNibbles) {
    return Expansion(source, whole, part, areNibbles).Take();
}

}  // namespace travo
