#pragma once
#include "KeloPercent.h"
#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QPair>
#include <QString>

/// Address of a HTTP request (RFC 3986), kept as its encoded text. A value type.
class KELO_EXPORT KeloUrl
{
public:
    using QueryItems = QList<QPair<QString, QString>>;

    KeloUrl() = default;
    explicit KeloUrl(const QString& url) { setUrl(url); }

    bool isEmpty() const { return m_encoded.isEmpty(); }
    /// Sets the address; characters that may not stand in one are percent-encoded, existing escapes
    /// stay. The query is replaced by the one in the text.
    void setUrl(const QString& url);
    /// Sets the query from items, in order, each key and value percent-encoded so that only
    /// unreserved characters stay as they are (RFC 3986 2.3; a blank becomes "%20").
    void setQueryItems(const QueryItems& items);
    /// Adds one query item whose key and value are percent-encoded already.
    void addEncodedQueryItem(const QByteArray& key, const QByteArray& value);
    /// Everything but unreserved characters as %XX of its UTF-8 form.
    static QByteArray toPercentEncoding(const QString& text)
    {
        return KeloPercent::encoded(text.toUtf8());
    }

    /// The address as text, encoded.
    QString toString() const { return QString::fromLatin1(m_encoded); }
    /// The address as sent: a query without base begins with "?".
    const QByteArray& toEncoded() const { return m_encoded; }
    static KeloUrl fromEncoded(const QByteArray& url);

    bool operator==(const KeloUrl& other) const { return m_encoded == other.m_encoded; }

private:
    QByteArray m_encoded;
};

Q_DECLARE_METATYPE(KeloUrl)
