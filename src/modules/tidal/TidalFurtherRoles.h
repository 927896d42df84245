#pragma once
#include "TidalEncodedPath.h"
#include <kelo/KeloJson.h>
#include <optional>
#include <QStringList>
#include <QVariant>

class TidalRow;
class TidalWorker;

/// The roles of a track or album that only clients get which name them: number, duration, year, and
/// where album and artists stand. They are read from the same item as the row, and have no value
/// where the item does not say. Lives on the worker's thread, as long as a page is built; does
/// nothing for a request that names none of them.
class TidalFurtherRoles
{
public:
    TidalFurtherRoles(const TidalWorker& worker, const QStringList& roles);

    /// Sets them in the row of an item.
    void make(const KeloJson& item, TidalRow& row);

private:
    using Value = QVariant (TidalFurtherRoles::*)(const KeloJson& item);
    struct Place
    {
        int index; ///< among the roles
        Value value;
    };

    QVariant trackNumber(const KeloJson& item);
    QVariant duration(const KeloJson& item);
    QVariant releaseYear(const KeloJson& item);
    QVariant albumPath(const KeloJson& item);
    QVariant artistPaths(const KeloJson& item);
    QVariant summary(const KeloJson& item);

    std::vector<Place> m_places;
    std::optional<TidalEncodedPath> m_albumPath; ///< as the next one, set when there are places
    std::optional<TidalEncodedPath> m_artistPath;
};
