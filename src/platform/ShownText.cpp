#include "platform/ShownText.h"

namespace travo::platform {

namespace {

constexpr char16_t Symbols = 0x2400;  // of the controls up to the blank, in their order
constexpr char16_t SymbolOfDelete = 0x2421;
constexpr char16_t NoFace = 0xFFFD;
constexpr char16_t Ellipsis = 0x2026;

QChar Shown(QChar character) {
    if (character < u' ') {
        return QChar(static_cast<char16_t>(Symbols + character.unicode()));
    }
    if (character == QChar(0x7F)) {
        return SymbolOfDelete;
    }
    switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return NoFace;
        default:
            return character;
    }
}

QString Shown(const QString& text, qsizetype most, bool keepsLines) {
    QString shown = text.left(most);
    for (qsizetype place = 0; place < shown.size(); ++place) {
        if (keepsLines && QStringView(shown).sliced(place).startsWith(u"\r\n")) {
            ++place;
        } else {
            shown[place] = Shown(shown[place]);
        }
    }
    return text.size() > most ? shown + QChar(Ellipsis) : shown;
}

}  // namespace

QString ShownText(const QString& text, qsizetype most) { return Shown(text, most, false); }

QString ShownLines(const QString& text, qsizetype most) { return Shown(text, most, true); }

QString PlainToolTip(const QString& text) {
    if (!text.contains(u'<') && !text.contains(u'&')) {
        return text;
    }
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

}  // namespace travo::platform
