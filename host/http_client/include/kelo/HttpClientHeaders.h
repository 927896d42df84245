#pragma once
#include <kelo/KeloExport.h>
#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QPair>
#include <QString>

/// Header fields of a request or an answer, in order. Names compare without case (RFC 9110 5.1). A
/// value type; one object is not for concurrent use.
class KELO_EXPORT HttpClientHeaders
{
public:
    using Fields = QList<QPair<QString, QString>>;

    HttpClientHeaders() = default;
    /// The fields of an answer as it was received, lines of "name: value", which are read when they
    /// are asked for.
    explicit HttpClientHeaders(const QByteArray& lines) : m_unread(lines) {}

    /// Sets a field, replacing those of the same name.
    void insert(const QString& name, const QString& value);
    /// Adds a field behind the others; fields of the same name stay.
    void append(const QString& name, const QString& value);
    /// The first field of that name; the fallback when there is none.
    QString value(const QString& name, const QString& fallback = QString()) const;
    bool contains(const QString& name) const;
    bool isEmpty() const { return fields().isEmpty(); }
    const Fields& fields() const { return read(); }

private:
    /// The fields, with those of the lines that were not read yet.
    Fields& read() const;

    mutable QByteArray m_unread;
    mutable Fields m_fields;
};

Q_DECLARE_METATYPE(HttpClientHeaders)
