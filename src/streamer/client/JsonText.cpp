#include "client/JsonText.h"

#include "client/DisplayText.h"

#include <QJsonDocument>

namespace cli {

QByteArray printableJson(const QByteArray& document)
{
    QByteArray result;
    result.reserve(document.size());
    bool isInString = false;
    bool isEscaped = false;
    const auto escape = [&result](uint code) {
        result += "\\u" + QByteArray::number(code, 16).rightJustified(4, '0');
    };
    for (int i = 0; i < document.size(); ++i) {
        const auto c = static_cast<uchar>(document.at(i));
        const auto next = static_cast<uchar>(i + 1 < document.size() ? document.at(i + 1) : 0);
        if (c == 0xc2 && next >= 0x80 && next <= 0x9f) { // U+0080 to U+009F in UTF-8
            escape(next);
            ++i;
        } else if (c == 0x7f || (c < 0x20 && isInString)) {
            escape(c);
        } else if (c >= 0x20 || c == '\n') {
            result += static_cast<char>(c);
        }
        if (c == '"' && !isEscaped)
            isInString = !isInString;
        isEscaped = c == '\\' && !isEscaped;
    }
    return result;
}

QByteArray json(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
}

QString valueText(const QJsonValue& value)
{
    if (value.isUndefined())
        return {};
    return shown(value.isString() ? value.toString() : QString::fromUtf8(json(value)));
}

QString textIn(const QJsonObject& object, const char* name)
{
    return object.value(name).toString();
}

QJsonObject objectIn(const QJsonObject& object, const char* name)
{
    return object.value(name).toObject();
}

QVector<QJsonObject> rowsIn(const QJsonObject& page)
{
    QVector<QJsonObject> rows;
    for (const QJsonValue row : page.value("rows").toArray())
        rows.append(row.toObject());
    return rows;
}

int rowsCountIn(const QJsonObject& page)
{
    return page.value("rowsCount").toInt();
}

QJsonValue picked(const QByteArray& document, const QStringList& names)
{
    const auto membersOf = [&names](const QJsonObject& object) {
        QJsonObject result;
        for (const QString& name : names)
            result.insert(name, object.contains(name) ? object.value(name) : QJsonValue());
        return result;
    };
    const auto rowsOf = [&membersOf](const QJsonObject& page) {
        QJsonArray result;
        for (const QJsonObject& row : rowsIn(page))
            result.append(membersOf(row));
        return result;
    };
    const QJsonObject whole = QJsonDocument::fromJson(document).object();
    if (whole.contains("rows"))
        return rowsOf(whole);
    QJsonObject groups;
    for (auto it = whole.begin(); it != whole.end(); ++it) {
        if (it.value().toObject().contains("rows"))
            groups.insert(it.key(), rowsOf(it.value().toObject()));
    }
    const QJsonObject data = objectIn(whole, "data");
    return groups.isEmpty() ? membersOf(data.isEmpty() ? whole : data) : groups;
}

std::optional<QJsonValue> parseJsonValue(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson('[' + text + ']');
    if (!document.isArray() || document.array().size() != 1)
        return std::nullopt;
    return document.array().first();
}

} // namespace cli
