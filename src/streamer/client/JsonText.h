#pragma once

#include <optional>
#include <QJsonValue>
#include <QString>

/// JSON as text. Free functions without state, safe on any thread.
namespace cli {

/// A JSON document in UTF-8 with every control character written as an escape, so that it can go to
/// a terminal; its meaning stays the same. \p document must be valid JSON.
QByteArray printableJson(const QByteArray& document);

/// One value on one line, fit for a terminal: a text bare, everything else as JSON.
QString valueText(const QJsonValue& value);

/// \p text with quotes, as it stands in a JSON document.
QByteArray jsonString(const QString& text);

/// The value that \p text holds, any kind of JSON value; nothing when it is none.
std::optional<QJsonValue> parseJsonValue(const QByteArray& text);

} // namespace cli
