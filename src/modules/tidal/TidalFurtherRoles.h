#pragma once
#include "TidalEncodedPath.h"
#include <kelo/KeloJson.h>
#include <optional>
#include <QStringList>
#include <QVariant>

class TidalWorker;

/// The roles of a track or album that only clients get which name them: number, duration, year, and
/// where album and artists stand. They are read from the same item as the row, and have no value
/// where the item does not say. Lives on the worker's thread, as long as a page is built; does
/// nothing for a request that names none of them.
class TidalFurtherRoles
{
public:
    TidalFurtherRoles(const TidalWorker& worker, const QStringList& roles);

    /// The row of an item with them.
    QVariantList added(QVariantList&& row, const KeloJson& item)
    {
        for (const Place& place : m_places)
            row[place.index] = (this->*place.value)(item);
        return std::move(row);
    }

private:
    using Value = QVariant (TidalFurtherRoles::*)(const KeloJson& item);
    struct Place
    {
        int index; ///< in the row
        Value value;
    };

    QVariant trackNumber(const KeloJson& item);
    QVariant duration(const KeloJson& item);
    QVariant releaseYear(const KeloJson& item);
    QVariant albumPath(const KeloJson& item);
    QVariant artistPaths(const KeloJson& item);

    std::vector<Place> m_places;
    std::optional<TidalEncodedPath> m_albumPath; ///< as the next one, set when there are places
    std::optional<TidalEncodedPath> m_artistPath;
};
