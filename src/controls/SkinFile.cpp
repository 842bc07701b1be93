#include "controls/SkinFile.h"

#include <QFile>
#include <QStringList>
#include <QXmlStreamReader>

namespace travo {

namespace {

// "0 0 82 64"; null when there are not four numbers.
QRectF ViewBox(const QString& text) {
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (parts.size() != 4) {
        return {};
    }
    double numbers[4];
    for (qsizetype i = 0; i < 4; ++i) {
        bool isNumber = false;
        numbers[i] = parts.at(i).toDouble(&isNumber);
        if (!isNumber) {
            return {};
        }
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void ReadRoot(const QXmlStreamAttributes& attributes, SkinFile& file) {
    bool hasWidth = false;
    bool hasHeight = false;
    const double width = attributes.value(QLatin1String("width")).toDouble(&hasWidth);
    const double height = attributes.value(QLatin1String("height")).toDouble(&hasHeight);
    if (hasWidth && hasHeight) {
        file.size = QSizeF(width, height);
    }
    file.viewBox = ViewBox(attributes.value(QLatin1String("viewBox")).toString());
}

void ReadGroup(const QXmlStreamReader& reader, SkinFile& file) {
    if (reader.name() != QLatin1String("g")) {
        return;
    }
    const QString id = reader.attributes().value(QLatin1String("id")).toString();
    file.hasFace = file.hasFace || id == QLatin1String("face");
    file.hasGlyph = file.hasGlyph || id == QLatin1String("glyph");
    file.hasGlyphLeft = file.hasGlyphLeft || id == QLatin1String("glyph-left");
}

}  // namespace

SkinFile ReadSkinFile(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return ParseSkinFile(file.read(SkinFile::MostBytes + 1));
}

SkinFile ParseSkinFile(const QByteArray& bytes) {
    SkinFile file;
    file.bytes = bytes;
    file.isTooLong = bytes.size() > SkinFile::MostBytes;
    if (file.isTooLong) {
        return file;
    }
    QXmlStreamReader reader(bytes);
    int depth = 0;
    bool isPicture = false;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            if (depth == 1) {
                isPicture = reader.name() == QLatin1String("svg");
                ReadRoot(reader.attributes(), file);
            } else if (depth == 2) {
                ReadGroup(reader, file);
            }
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
    }
    file.isWhole = isPicture && !reader.hasError();
    return file;
}

}  // namespace travo
