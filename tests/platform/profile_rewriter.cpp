// Rewrites the keys of a settings file, round after round, until it is killed. Says "started" before
// the first.
//
// Every value of a round is "<round>:<length>:" and that many letters; the length differs from key to
// key and from round to round, so that the file grows and shrinks all the time.
#include <QFile>
#include <cstdio>

#include "platform/qt/QtPrivateProfile.h"

namespace {

constexpr int Keys = 5;
constexpr int LongestValue = 30000;

QString Value(int round, int key) {
    const int length = (round * 7919 + key * 6151) % LongestValue;
    return QStringLiteral("%1:%2:").arg(round).arg(length) + QString(length, QChar(u'x'));
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        return 2;
    }
    const QString file = QFile::decodeName(arguments[1]);
    travo::platform::QtPrivateProfile profile;
    const int first = profile.GetInt(QStringLiteral("Round"), QStringLiteral("0"), 0, file) + 1;
    for (int round = first;; ++round) {
        if (round == first && (std::puts("started") < 0 || std::fflush(stdout) != 0)) {
            return 3;
        }
        for (int key = 0; key < Keys; ++key) {
            if (!profile.Write(QStringLiteral("Round"), QString::number(key), Value(round, key), file)) {
                return 1;
            }
        }
    }
}
