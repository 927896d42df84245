#include "KeloJson.h"
#include "TrString.h"
#include <algorithm>
#include <cmath>
#include <QLocale>
#include <vector>

namespace {
/// Deepest nesting that is written; what lies deeper becomes null.
constexpr int maxWriteDepth = 256;

/// Writes variants as JSON text. Keys are sorted, so that equal values make equal texts.
class Writer
{
public:
    QByteArray text;

    void write(const QVariant& value, int depth);

private:
    void writeString(const QString& string);
    void writeNumber(double number);
    void writeEscaped(uchar character);
    template <class Fields>
    void writeObject(const Fields& fields, int depth);
    template <class List>
    void writeArray(const List& list, int depth);
};

void Writer::write(const QVariant& value, int depth)
{
    if (depth > maxWriteDepth) {
        text += "null";
        return;
    }
    switch (value.userType()) {
    case QMetaType::QVariantHash:
        return writeObject(value.toHash(), depth);
    case QMetaType::QVariantMap:
        return writeObject(value.toMap(), depth);
    case QMetaType::QVariantList:
        return writeArray(value.toList(), depth);
    case QMetaType::QStringList:
        return writeArray(value.toStringList(), depth);
    case QMetaType::QString:
        return writeString(value.toString());
    case QMetaType::QByteArray: {
        const QByteArray utf8 = value.toByteArray();
        return writeString(QString::fromUtf8(utf8.constData(), std::max(0, utf8.size())));
    }
    case QMetaType::Bool:
        text += value.toBool() ? "true" : "false";
        return;
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::Long:
    case QMetaType::LongLong:
        text += QByteArray::number(value.toLongLong());
        return;
    case QMetaType::UInt:
    case QMetaType::UShort:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        text += QByteArray::number(value.toULongLong());
        return;
    case QMetaType::Float:
    case QMetaType::Double:
        return writeNumber(value.toDouble());
    default:
        if (value.userType() == qMetaTypeId<TrString>())
            return writeString(value.toString());
        text += "null";
    }
}

void Writer::writeNumber(double number)
{
    if (std::isfinite(number))
        text += QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
    else
        text += "null"; // RFC 8259 6: no infinities, no NaN
}

void Writer::writeString(const QString& string)
{
    const QByteArray utf8 = string.toUtf8();
    text.reserve(text.size() + utf8.size() + 2);
    text += '"';
    int plainFrom = 0;
    for (int i = 0; i < utf8.size(); ++i) {
        const uchar character = uchar(utf8[i]);
        if (character >= 0x20 && character != '"' && character != '\\')
            continue;
        text.append(utf8.constData() + plainFrom, i - plainFrom);
        writeEscaped(character);
        plainFrom = i + 1;
    }
    text.append(utf8.constData() + plainFrom, utf8.size() - plainFrom);
    text += '"';
}

/// RFC 8259 7.
void Writer::writeEscaped(uchar character)
{
    constexpr char digits[] = "0123456789abcdef";
    text += '\\';
    switch (character) {
    case '"':
    case '\\':
        text += char(character);
        break;
    case '\n':
        text += 'n';
        break;
    case '\r':
        text += 'r';
        break;
    case '\t':
        text += 't';
        break;
    default:
        text += "u00";
        text += digits[character >> 4];
        text += digits[character & 15];
    }
}

template <class Fields>
void Writer::writeObject(const Fields& fields, int depth)
{
    std::vector<typename Fields::const_iterator> sorted;
    sorted.reserve(std::size_t(fields.size()));
    for (auto field = fields.constBegin(); field != fields.constEnd(); ++field)
        sorted.push_back(field);
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& left, const auto& right) { return left.key() < right.key(); });
    char separator = '{';
    for (const auto& field : sorted) {
        text += separator;
        separator = ',';
        writeString(field.key());
        text += ':';
        write(field.value(), depth + 1);
    }
    text += sorted.empty() ? "{}" : "}";
}

template <class List>
void Writer::writeArray(const List& list, int depth)
{
    text += '[';
    for (int i = 0; i < list.size(); ++i) {
        if (i > 0)
            text += ',';
        write(list[i], depth + 1);
    }
    text += ']';
}
} // namespace

QByteArray KeloJson::write(const QVariant& value)
{
    Writer writer;
    writer.write(value, 0);
    return writer.text;
}
