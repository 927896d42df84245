#pragma once
#include "KeloExport.h"
#include "KeloShared.h"
#include <cstddef>
#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <string_view>

/// Why a text was not read.
class KELO_EXPORT KeloError
{
public:
    KeloError() = default;
    explicit KeloError(const QString& message) : m_message(message) {}
    bool isSet() const { return !m_message.isEmpty(); }
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

/// A value inside a parsed JSON document (RFC 8259). The document is kept as the parser left it and
/// lives as long as one of its values; a field is looked up when asked for, so reading a few fields
/// of a large document costs no more than those fields. A reader of another type yields that type's
/// empty value. Cheap to copy; read-only, so any thread may read.
class KELO_EXPORT KeloJson
{
public:
    /// Nothing: not even JSON's null.
    KeloJson() = default;
    /// Reads a document; on a fault the value is nothing and `error`, where given, says why.
    static KeloJson parse(const QByteArray& text, KeloError* error = nullptr);

    /// Whether it is nothing or JSON's null.
    bool isNull() const { return type() == 'n'; }
    bool isObject() const { return type() == '{'; }
    bool isArray() const { return type() == '['; }
    bool isString() const { return type() == '"'; }
    bool isNumber() const;
    /// Whether it is a number that toInt64() reads: whole, and of 64 bits.
    bool isInteger() const;
    /// Whether it is nothing, null, or an object or array without elements.
    bool isEmpty() const;

    /// Whether an object holds the key; its value may be null.
    bool contains(std::string_view key) const;
    /// An object's field; nothing when missing. Of equal keys the first counts.
    KeloJson value(std::string_view key) const;
    /// Number of elements of an array or fields of an object.
    int size() const;

    /// Integers of 64 bits; a number written with a fraction of zero ("4005.0") counts as integer.
    qint64 toInt64(qint64 fallback = 0) const;
    double toDouble(double fallback = 0) const;
    bool toBool(bool fallback = false) const;
    QString toString() const;
    /// The text in UTF-8, valid as long as the document.
    std::string_view toUtf8() const;
    /// The whole value as hashes, lists and plain values; integers as qlonglong.
    QVariant toVariant() const;

    /// Calls visit(KeloJson) for each element of an array, in order.
    template <class Visit>
    void forEach(Visit visit) const
    {
        for (Cursor cursor = begin('['); !isAtEnd(cursor); advance(cursor))
            visit(element(cursor));
    }
    /// Calls visit(std::string_view key, KeloJson value) for each field of an object, in order.
    template <class Visit>
    void forEachField(Visit visit) const
    {
        for (Cursor cursor = begin('{'); !isAtEnd(cursor); advance(cursor))
            visit(key(cursor), element(cursor));
    }

private:
    struct Document;
    /// Place of an element: index of its value into the document's tape. The value of a field
    /// stands behind its key.
    struct Cursor
    {
        std::size_t index = 0;
        std::size_t end = 0;
        std::size_t keySize = 0; ///< places that a key takes: one in an object, none in an array
    };

    KeloJson(const KeloShared<Document>& document, std::size_t index);
    char type() const;
    /// Of an array or object, as its bracket says; at the end where it is none.
    Cursor begin(char bracket) const;
    bool isAtEnd(const Cursor& cursor) const { return cursor.index >= cursor.end; }
    void advance(Cursor& cursor) const;
    KeloJson element(const Cursor& cursor) const;
    std::string_view key(const Cursor& cursor) const;

    KeloShared<Document> m_document;
    std::size_t m_index = 0;
};

Q_DECLARE_METATYPE(KeloError)
Q_DECLARE_METATYPE(KeloJson)
