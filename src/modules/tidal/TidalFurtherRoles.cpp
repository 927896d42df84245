#include "TidalFurtherRoles.h"

#include "TidalRow.h"
#include "TidalWorker.h"
#include <algorithm>
#include <kelo/KeloRoles.h>
#include <kelo/KeloTidalConstants.h>

namespace {
constexpr qint64 longestSeconds = 1000000000;

/// A number of the service as text; empty for a value that is none.
std::string idOf(const KeloJson& item)
{
    const KeloJson id = item.value("id");
    return id.isInteger() ? std::to_string(id.toInt64()) : std::string();
}

/// The year that a date begins with ("2019-03-15"); 0 for another text.
int yearOf(std::string_view date)
{
    constexpr std::size_t length = 4;
    const bool isYear = date.size() >= length && (date.size() == length || date[length] == '-') &&
                        std::all_of(date.begin(), date.begin() + length,
                                    [](char c) { return c >= '0' && c <= '9'; });
    return isYear ? std::stoi(std::string(date.substr(0, length))) : 0;
}

QVariant aboveZero(qint64 number)
{
    return number > 0 ? QVariant(number) : QVariant();
}
} // namespace

TidalFurtherRoles::TidalFurtherRoles(const TidalWorker& worker, const QStringList& roles)
{
    static const QHash<QString, Value> values = {
        {KeloRoles::TrackNumber(), &TidalFurtherRoles::trackNumber},
        {KeloRoles::Duration(), &TidalFurtherRoles::duration},
        {KeloRoles::ReleaseYear(), &TidalFurtherRoles::releaseYear},
        {KeloRoles::AlbumPath(), &TidalFurtherRoles::albumPath},
        {KeloRoles::ArtistPaths(), &TidalFurtherRoles::artistPaths},
        {KeloRoles::Summary(), &TidalFurtherRoles::summary}};
    for (int index = 0; index < roles.size(); ++index) {
        if (const Value value = values.value(roles.at(index)))
            m_places.push_back({index, value});
    }
    if (m_places.empty())
        return;
    m_albumPath.emplace(worker.albumsPath(), QStringList(QStringLiteral("contentId")));
    m_artistPath.emplace(worker.artistsPath(), QStringList(QStringLiteral("artistId")));
}

void TidalFurtherRoles::make(const KeloJson& item, TidalRow& row)
{
    for (const Place& place : m_places)
        row.set(place.index, (this->*place.value)(item));
}

QVariant TidalFurtherRoles::trackNumber(const KeloJson& item)
{
    return aboveZero(item.value("trackNumber").toInt64());
}

QVariant TidalFurtherRoles::duration(const KeloJson& item)
{
    return aboveZero(qMin(item.value("duration").toInt64(), longestSeconds) * 1000);
}

QVariant TidalFurtherRoles::releaseYear(const KeloJson& item)
{
    const int year = yearOf(item.value("releaseDate").toUtf8());
    return aboveZero(year ? year : yearOf(item.value("album").value("releaseDate").toUtf8()));
}

QVariant TidalFurtherRoles::albumPath(const KeloJson& item)
{
    const std::string id = idOf(item.value("album"));
    return id.empty() ? QVariant() : m_albumPath->text({id});
}

QVariant TidalFurtherRoles::artistPaths(const KeloJson& item)
{
    QVariantList paths;
    const auto add = [&](const KeloJson& artist) {
        const std::string id = idOf(artist);
        const QString name = artist.value("name").toString();
        if (!id.empty() && !name.isEmpty())
            paths.append(QVariantHash{{KeloRoles::Title(), name},
                                      {KeloRoles::Path(), m_artistPath->text({id})}});
    };
    item.value("artists").forEach(add);
    if (paths.isEmpty())
        add(item.value("artist"));
    return paths.isEmpty() ? QVariant() : paths;
}

QVariant TidalFurtherRoles::summary(const KeloJson& item)
{
    const QString text = item.value("description").toString();
    return text.isEmpty() ? QVariant() : text;
}
