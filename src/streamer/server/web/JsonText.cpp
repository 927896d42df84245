#include "JsonText.h"

#include "texts/TextCatalogue.h"

#include <cmath>
#include <cstring>
#include <kelo/KeloRoles.h>
#include <kelo/KeloValue.h>
#include <kelo/TrString.h>
#include <QJsonDocument>

namespace {

constexpr int deepest = 64;

/// A UTF-8 byte sequence (RFC 3629) of the character at `from`, which moves behind it.
char* appendUtf8(char* out, const ushort*& from, const ushort* end)
{
    char32_t c = *from++;
    if (QChar::isSurrogate(c)) {
        if (QChar::isLowSurrogate(c) || from == end || !QChar::isLowSurrogate(*from)) {
            *out++ = '?'; // as Qt writes half a character
            return out;
        }
        c = QChar::surrogateToUcs4(ushort(c), *from++);
        *out++ = char(0xF0 | (c >> 18));
        *out++ = char(0x80 | ((c >> 12) & 0x3F));
        *out++ = char(0x80 | ((c >> 6) & 0x3F));
    } else if (c >= 0x800) {
        *out++ = char(0xE0 | (c >> 12));
        *out++ = char(0x80 | ((c >> 6) & 0x3F));
    } else {
        *out++ = char(0xC0 | (c >> 6));
    }
    *out++ = char(0x80 | (c & 0x3F));
    return out;
}

/// A character below blank, a quotation mark or a backslash (RFC 8259 7).
char* appendEscaped(char* out, ushort c)
{
    static const char digits[] = "0123456789ABCDEF";
    static const char from[] = "\"\\\b\f\n\r\t";
    static const char to[] = "\"\\bfnrt";
    *out++ = '\\';
    if (const char* known = c == 0 ? nullptr : std::strchr(from, c)) {
        *out++ = to[known - from];
        return out;
    }
    for (const char digit : {'u', '0', '0', digits[c >> 4], digits[c & 15]})
        *out++ = digit;
    return out;
}

/// Room for one UTF-16 unit: an escape.
constexpr int longestUnit = 6;
/// Units of a text that are written together, in a vector of the compiler's.
constexpr int blockSize = 8;
using Units = ushort __attribute__((vector_size(2 * blockSize)));
using Bytes = uchar __attribute__((vector_size(blockSize)));

/// Writes a block as it is; false when that is wrong for one of its units.
bool writeBlock(char* out, const ushort* from)
{
    Units units;
    std::memcpy(&units, from, sizeof units);
    const Bytes bytes = __builtin_convertvector(units, Bytes);
    std::memcpy(out, &bytes, sizeof bytes);
    const auto others = (units - ' ' > 0x7F - ' ') | (units == '"') | (units == '\\');
    quint64 any[2];
    static_assert(sizeof any == sizeof others);
    std::memcpy(any, &others, sizeof any);
    return (any[0] | any[1]) == 0;
}

/// The text in UTF-8 as a JSON string has it, up to `stop` or one unit further.
char* writeUnits(char* out, const ushort*& from, const ushort* stop, const ushort* end)
{
    while (from < stop) {
        const ushort c = *from;
        if (c >= 0x80) {
            out = appendUtf8(out, from, end);
            continue;
        }
        ++from;
        if (c < ' ' || c == '"' || c == '\\')
            out = appendEscaped(out, c);
        else
            *out++ = char(c);
    }
    return out;
}

} // namespace

JsonText::JsonText(const TextCatalogue* texts)
    : m_texts(texts && !texts->isEmpty() ? texts : nullptr)
{
}

bool JsonText::Writer::text(const QString& text)
{
    Prefix(rapidjson::kStringType);
    const size_t room = size_t(text.size()) * longestUnit + 2;
    char* const begin = os_->Push(room);
    char* out = begin;
    *out++ = '"';
    const ushort* from = text.utf16();
    const ushort* const end = from + text.size();
    while (end - from >= blockSize) {
        if (writeBlock(out, from)) {
            from += blockSize;
            out += blockSize;
        } else {
            out = writeUnits(out, from, from + blockSize, end);
        }
    }
    out = writeUnits(out, from, end, end);
    *out++ = '"';
    os_->Pop(room - size_t(out - begin));
    return true;
}

void JsonText::Writer::raw(const std::string& string)
{
    Prefix(rapidjson::kStringType);
    std::memcpy(os_->Push(string.size()), string.data(), string.size());
}

std::vector<std::string> JsonText::encoded(const QStringList& names)
{
    std::vector<std::string> all;
    for (const QString& name : names) {
        JsonText json;
        json.key(name);
        all.push_back(json.text());
    }
    return all;
}

/// What the host's own types hold inside a variant.
bool JsonText::writeOwnType(const QVariant& value, int depth)
{
    const int type = value.userType();
    if (type == qMetaTypeId<CMPath>())
        string(value.value<CMPath>().toEncoded());
    else if (type == qMetaTypeId<TrString>())
        string(m_texts ? value.value<TrString>().toString(*m_texts) : value.toString());
    else if (type == qMetaTypeId<KeloHash>())
        writeHash(value.value<KeloHash>().toHash(), depth);
    else if (type == qMetaTypeId<KeloValue>())
        writeHash(value.value<KeloValue>().toHash(), depth);
    else if (type == qMetaTypeId<KeloRoles>())
        writeHash(value.value<KeloRoles>().toHash(), depth);
    else if (type == qMetaTypeId<KeloMediaData>())
        writeHash(value.value<KeloMediaData>().toHash(), depth);
    else
        return false;
    return true;
}

void JsonText::role(const QString& role, const QVariant& value)
{
    const bool isNumber = value.userType() == QMetaType::Int;
    if (isNumber && role == KeloRoles::Type())
        string(KeloRolesType::toString(value.toInt()));
    else if (isNumber && role == KeloRoles::ContainerType())
        string(KeloRolesContainerType::toString(value.toInt()));
    else
        write(value, 0);
}

void JsonText::heading(const QVariant& title)
{
    if (m_texts && title.userType() == QMetaType::QString)
        string(m_texts->plain(title.toString()));
    else
        write(title, 0);
}

void JsonText::field(const char* name, const QVariant& value)
{
    m_writer.Key(name);
    write(value, 0);
}

const JsonText::Order& JsonText::sorted(const QVariantHash& hash, Fields& values)
{
    const auto hasAll = [&](const QStringList& names) {
        values.clear();
        for (const QString& name : names) {
            const auto field = hash.constFind(name);
            if (field == hash.constEnd())
                return false;
            values.push_back(&*field);
        }
        return true;
    };
    for (const Order& order : m_orders) {
        if (order.names.size() == hash.size() && hasAll(order.names))
            return order;
    }
    QStringList names = hash.keys();
    names.sort();
    hasAll(names);
    return m_orders.emplace_back(Order{names, encoded(names)});
}

void JsonText::roles(const char* name, const QVariantHash& roles)
{
    m_writer.Key(name);
    rowRoles(roles);
}

void JsonText::rowRoles(const QVariantHash& roles)
{
    beginObject();
    Fields values;
    const Order& order = sorted(roles, values);
    for (int i = 0; i < values.size(); ++i) {
        if (!values[i]->isValid())
            continue;
        key(order.encoded[size_t(i)]);
        role(order.names.at(i), *values[i]);
    }
    endObject();
}

void JsonText::writeHash(const QVariantHash& hash, int depth)
{
    if (depth >= deepest) {
        m_writer.Null();
        return;
    }
    Fields values;
    const Order& order = sorted(hash, values);
    m_writer.StartObject();
    for (int i = 0; i < values.size(); ++i) {
        key(order.encoded[size_t(i)]);
        write(*values[i], depth + 1);
    }
    m_writer.EndObject();
}

bool JsonText::writePlain(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return m_writer.Bool(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::Long:
        return m_writer.Int64(value.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::ULong:
        return m_writer.Uint64(value.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float:
        return std::isfinite(value.toDouble()) && m_writer.Double(value.toDouble());
    case QMetaType::QByteArray:
    case QMetaType::QUrl:
        string(value.toString());
        return true;
    default:
        return false;
    }
}

void JsonText::write(const QVariant& value, int depth)
{
    const int type = value.userType();
    if (type == QMetaType::QString) {
        string(*static_cast<const QString*>(value.constData()));
    } else if (type == QMetaType::QVariantHash) {
        writeHash(*static_cast<const QVariantHash*>(value.constData()), depth);
    } else if (writePlain(value) || writeOwnType(value, depth)) {
        return;
    } else if (depth < deepest && type == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        m_writer.StartObject();
        for (auto field = map.begin(); field != map.end(); ++field) {
            key(field.key());
            write(field.value(), depth + 1);
        }
        m_writer.EndObject();
    } else if (depth < deepest &&
               (type == QMetaType::QVariantList || type == QMetaType::QStringList)) {
        m_writer.StartArray();
        const QVariantList list = value.toList();
        for (const QVariant& element : list)
            write(element, depth + 1);
        m_writer.EndArray();
    } else {
        m_writer.Null();
    }
}

void JsonText::moveTo(std::string& text)
{
    text.append(m_buffer.GetString(), m_buffer.GetSize());
    m_buffer.Clear();
}

std::string JsonText::fromObject(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}
