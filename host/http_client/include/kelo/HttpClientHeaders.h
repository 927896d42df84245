#pragma once
#include <kelo/KeloExport.h>
#include <QList>
#include <QMetaType>
#include <QPair>
#include <QString>

/// Header fields of a request or an answer, in order. Names compare without case (RFC 9110 5.1).
class KELO_EXPORT HttpClientHeaders
{
public:
    /// Sets a field, replacing those of the same name.
    void insert(const QString& name, const QString& value);
    /// Adds a field behind the others; fields of the same name stay.
    void append(const QString& name, const QString& value);
    /// The first field of that name; the fallback when there is none.
    QString value(const QString& name, const QString& fallback = QString()) const;
    bool contains(const QString& name) const;
    bool isEmpty() const { return m_fields.isEmpty(); }
    const QList<QPair<QString, QString>>& fields() const { return m_fields; }

private:
    QList<QPair<QString, QString>> m_fields;
};

Q_DECLARE_METATYPE(HttpClientHeaders)
