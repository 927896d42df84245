#include "KeloJson.h"
#include <cmath>
#include <cstring>
#include <simdjson.h>

namespace {
/// Deepest nesting that is read; deeper documents are refused.
constexpr std::size_t maxDepth = 256;
/// A parser that grew beyond this many bytes is given up after its document.
constexpr std::size_t maxKeptParser = 4 * 1024 * 1024;
/// A document of a longer text is not kept for the thread's next text: it takes ten times the text.
constexpr std::size_t maxKeptDocument = 128 * 1024;

constexpr quint64 payloadMask = 0x00FFFFFFFFFFFFFF;
constexpr quint32 maxCount = 0xFFFFFF; ///< the tape's counter stops here
/// Smallest and first too large double for a 64-bit integer.
constexpr double minInteger = -9223372036854775808.0;
constexpr double endOfIntegers = 9223372036854775808.0;

bool isWhole(double number)
{
    return std::trunc(number) == number && number >= minInteger && number < endOfIntegers;
}

simdjson::dom::parser& threadParser()
{
    thread_local simdjson::dom::parser parser;
    return parser;
}

simdjson::error_code readDocument(simdjson::dom::document& document, const QByteArray& text)
{
    simdjson::dom::parser& parser = threadParser();
    if (parser.capacity() == 0) {
        if (const auto fault = parser.allocate(std::size_t(text.size()), maxDepth))
            return fault;
    }
    const int spare = text.capacity() - text.size();
    const bool mustCopy = spare < int(simdjson::SIMDJSON_PADDING);
    const auto fault =
        parser.parse_into_document(document, text.constData(), std::size_t(text.size()), mustCopy)
            .error();
    if (parser.capacity() > maxKeptParser)
        parser = simdjson::dom::parser();
    return fault;
}
} // namespace

/// The parser's result: one 64-bit word for each place of the tape, a type in its upper byte;
/// strings apart, each behind its length.
struct KeloJson::Document : KeloSharedData
{
    simdjson::dom::document document;

    quint64 word(std::size_t index) const { return document.tape[index]; }
    char type(std::size_t index) const { return char(word(index) >> 56); }
    quint64 payload(std::size_t index) const { return word(index) & payloadMask; }
    /// Of an array or object: the place behind it.
    std::size_t behind(std::size_t index) const { return quint32(word(index)); }
    quint32 count(std::size_t index) const { return quint32(payload(index) >> 32); }

    std::string_view string(std::size_t index) const
    {
        const quint8* text = document.string_buf.get() + payload(index);
        quint32 length = 0;
        std::memcpy(&length, text, sizeof length);
        return {reinterpret_cast<const char*>(text) + sizeof length, length};
    }
    template <class Number>
    Number number(std::size_t index) const
    {
        Number result;
        std::memcpy(&result, &document.tape[index + 1], sizeof result);
        return result;
    }
    /// The place behind a value of any type.
    std::size_t next(std::size_t index) const
    {
        switch (type(index)) {
        case '{':
        case '[':
            return behind(index);
        case 'l':
        case 'u':
        case 'd':
            return index + 2;
        }
        return index + 1;
    }
    /// The place of a field's value; 0 when the object at `index` lacks the key.
    std::size_t find(std::size_t index, std::string_view key) const
    {
        const std::size_t end = behind(index) - 1;
        for (std::size_t at = index + 1; at < end; at = next(at + 1)) {
            if (string(at) == key)
                return at + 1;
        }
        return 0;
    }
    QVariant variant(std::size_t index) const;
};

QVariant KeloJson::Document::variant(std::size_t index) const
{
    switch (type(index)) {
    case '{': {
        QVariantHash hash;
        hash.reserve(int(count(index)));
        const std::size_t end = behind(index) - 1;
        for (std::size_t at = index + 1; at < end; at = next(at + 1)) {
            const std::string_view key = string(at);
            const QString name = QString::fromUtf8(key.data(), int(key.size()));
            if (!hash.contains(name))
                hash.insert(name, variant(at + 1));
        }
        return hash;
    }
    case '[': {
        QVariantList list;
        list.reserve(int(count(index)));
        const std::size_t end = behind(index) - 1;
        for (std::size_t at = index + 1; at < end; at = next(at))
            list.append(variant(at));
        return list;
    }
    case '"': {
        const std::string_view text = string(index);
        return QString::fromUtf8(text.data(), int(text.size()));
    }
    case 'l':
        return number<qlonglong>(index);
    case 'u':
        return number<qulonglong>(index);
    case 'd':
        return number<double>(index);
    case 't':
        return true;
    case 'f':
        return false;
    }
    return QVariant();
}

KeloJson::KeloJson(const KeloShared<Document>& document, std::size_t index)
    : m_document(document), m_index(index)
{
}

KeloJson KeloJson::parse(const QByteArray& text, KeloError* error)
{
    if (error)
        *error = KeloError();
    thread_local KeloShared<Document> kept;
    if (!kept.isUnique())
        kept = KeloShared<Document>(new Document);
    const KeloShared<Document> document = kept;
    const simdjson::error_code fault =
        text.isEmpty() ? simdjson::EMPTY : readDocument(document->document, text);
    if (document->document.capacity() > maxKeptDocument)
        kept = KeloShared<Document>();
    if (fault == simdjson::SUCCESS)
        return KeloJson(document, 1);
    if (error)
        *error = KeloError(QString::fromUtf8(simdjson::error_message(fault)));
    return KeloJson();
}

char KeloJson::type() const
{
    return m_document ? m_document->type(m_index) : 'n';
}

bool KeloJson::isNumber() const
{
    const char kind = type();
    return kind == 'l' || kind == 'u' || kind == 'd';
}

bool KeloJson::isInteger() const
{
    return type() == 'l' || (type() == 'd' && isWhole(m_document->number<double>(m_index)));
}

bool KeloJson::isEmpty() const
{
    const char kind = type();
    return kind == 'n' || ((kind == '{' || kind == '[') && m_document->count(m_index) == 0);
}

bool KeloJson::contains(std::string_view key) const
{
    return isObject() && m_document->find(m_index, key) != 0;
}

KeloJson KeloJson::value(std::string_view key) const
{
    if (!isObject())
        return KeloJson();
    const std::size_t index = m_document->find(m_index, key);
    return index ? KeloJson(m_document, index) : KeloJson();
}

int KeloJson::size() const
{
    if (!isObject() && !isArray())
        return 0;
    const quint32 count = m_document->count(m_index);
    if (count < maxCount)
        return int(count);
    int walked = 0;
    for (Cursor cursor = begin(type()); !isAtEnd(cursor); advance(cursor))
        ++walked;
    return walked;
}

qint64 KeloJson::toInt64(qint64 fallback) const
{
    switch (type()) {
    case 'l':
        return m_document->number<qint64>(m_index);
    case 'd': {
        const double number = m_document->number<double>(m_index);
        return isWhole(number) ? qint64(number) : fallback;
    }
    }
    return fallback;
}

double KeloJson::toDouble(double fallback) const
{
    switch (type()) {
    case 'l':
        return double(m_document->number<qint64>(m_index));
    case 'u':
        return double(m_document->number<quint64>(m_index));
    case 'd':
        return m_document->number<double>(m_index);
    }
    return fallback;
}

bool KeloJson::toBool(bool fallback) const
{
    const char kind = type();
    return kind == 't' || (kind != 'f' && fallback);
}

QString KeloJson::toString() const
{
    const std::string_view text = toUtf8();
    return QString::fromUtf8(text.data(), int(text.size()));
}

std::string_view KeloJson::toUtf8() const
{
    return isString() ? m_document->string(m_index) : std::string_view();
}

QVariant KeloJson::toVariant() const
{
    return m_document ? m_document->variant(m_index) : QVariant();
}

KeloJson::Cursor KeloJson::begin(char bracket) const
{
    if (type() != bracket)
        return Cursor();
    const std::size_t keySize = bracket == '{' ? 1 : 0;
    return {m_index + 1 + keySize, m_document->behind(m_index) - 1, keySize};
}

void KeloJson::advance(Cursor& cursor) const
{
    cursor.index = m_document->next(cursor.index) + cursor.keySize;
}

KeloJson KeloJson::element(const Cursor& cursor) const
{
    return KeloJson(m_document, cursor.index);
}

std::string_view KeloJson::key(const Cursor& cursor) const
{
    return m_document->string(cursor.index - 1);
}
