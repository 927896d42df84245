#pragma once

#include <optional>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// JSON as text, and texts out of JSON. Free functions without state, safe on any thread.
namespace cli {

/// A JSON document in UTF-8 with every control character written as an escape, so that it can go to
/// a terminal; its meaning stays the same. \p document must be valid JSON.
QByteArray printableJson(const QByteArray& document);

/// One value on one line, fit for a terminal: a text bare, everything else as JSON.
QString valueText(const QJsonValue& value);

/// \p value as it stands in a JSON document, a text with its quotes.
QByteArray json(const QJsonValue& value);

/// A member of \p object as text, as it came; empty when it is none.
QString textIn(const QJsonObject& object, const char* name);
/// A member of \p object that is an object.
QJsonObject objectIn(const QJsonObject& object, const char* name);
/// The rows of a page, as objects.
QVector<QJsonObject> rowsIn(const QJsonObject& page);
/// How many rows the whole list of a page has.
int rowsCountIn(const QJsonObject& page);

/// The members \p names of each row of a document, or of the document itself where it has no
/// rows; null for one that is missing. Rows one level deeper are picked in their place.
QJsonValue picked(const QByteArray& document, const QStringList& names);

/// The value that \p text holds, any kind of JSON value; nothing when it is none.
std::optional<QJsonValue> parseJsonValue(const QByteArray& text);

} // namespace cli
