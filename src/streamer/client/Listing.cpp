#include "client/Listing.h"

#include "client/JsonText.h"

#include <algorithm>
#include <QJsonDocument>

namespace cli {

void Listing::add(const QJsonObject& page, int limit, int first)
{
    int index = page.value("from").toInt();
    int number = first < 0 ? index : first;
    for (const QJsonObject& row : rowsIn(page).mid(0, limit)) {
        if (rows.size() >= mostRows)
            return;
        const bool isOfQueue = row.contains("List"); // whose rows are of many lists
        rows.append({number++, textIn(row, "Title"), textIn(row, "Path"),
                     isOfQueue ? textIn(row, "List") : textIn(page, "path"),
                     isOfQueue ? row.value("Index").toInt(-1) : index, queueVersion});
        ++index;
    }
}

const ListedRow* Listing::at(int number) const
{
    const auto found = std::find_if(rows.begin(), rows.end(), [number](const ListedRow& row) {
        return row.number == number && !row.path.isEmpty();
    });
    return found == rows.end() ? nullptr : &*found;
}

QVector<ListedRow> Listing::called(const QString& text) const
{
    const QString wanted = text.toCaseFolded();
    const auto matching = [this](const auto& isIt) {
        QVector<ListedRow> found;
        for (const ListedRow& row : rows) {
            const auto isSame = [&row](const ListedRow& one) { return one.path == row.path; };
            if (!row.path.isEmpty() && isIt(row.title.toCaseFolded()) &&
                std::none_of(found.begin(), found.end(), isSame))
                found.append(row);
        }
        return found;
    };
    const QVector<ListedRow> whole = matching([&wanted](const QString& title) {
        return title == wanted || title.startsWith(wanted + " - "); // a track's ends with artists
    });
    if (!whole.isEmpty() || wanted.isEmpty())
        return whole;
    return matching([&wanted](const QString& title) { return title.startsWith(wanted); });
}

QByteArray Listing::toJson() const
{
    QJsonArray all;
    for (const ListedRow& row : rows)
        all.append(QJsonObject{{"number", row.number},
                               {"title", row.title},
                               {"path", row.path},
                               {"list", row.list},
                               {"index", row.index}});
    const QJsonObject document{{"server", server}, {"queueVersion", queueVersion}, {"rows", all}};
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

Listing Listing::fromJson(const QByteArray& text)
{
    const QJsonObject document = QJsonDocument::fromJson(text).object();
    Listing result;
    result.server = textIn(document, "server");
    result.queueVersion = document.value("queueVersion").toVariant().toLongLong();
    for (const QJsonObject& row : rowsIn(document))
        result.rows.append({row.value("number").toInt(-1), textIn(row, "title"),
                            textIn(row, "path"), textIn(row, "list"), row.value("index").toInt(-1),
                            result.queueVersion});
    return result;
}

} // namespace cli
