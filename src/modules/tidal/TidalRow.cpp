#include "TidalRow.h"
#include <kelo/KeloRoles.h>

namespace {
const QHash<QString, TidalRow::Column>& columnsByRole()
{
    static const QHash<QString, TidalRow::Column> columns = {
        {KeloRoles::Path(), TidalRow::Path},
        {KeloRoles::Type(), TidalRow::Type},
        {KeloRoles::Title(), TidalRow::Title},
        {KeloRoles::Disabled(), TidalRow::Disabled},
        {KeloRoles::MediaData(), TidalRow::MediaData},
        {KeloRoles::Icon(), TidalRow::Icon},
        {KeloRoles::Id(), TidalRow::Id},
        {KeloRoles::AudioType(), TidalRow::AudioType},
        {KeloRoles::Context(), TidalRow::Context},
        {KeloRoles::Description(), TidalRow::Description},
        {KeloRoles::ContainerType(), TidalRow::ContainerType},
        {KeloRoles::ContainerPlayable(), TidalRow::ContainerPlayable}};
    return columns;
}
} // namespace

TidalRow::TidalRow(const QStringList& roles)
{
    m_places.fill(-1);
    for (int place = 0; place < roles.size(); ++place) {
        m_shared.append(QVariant());
        const auto column = columnsByRole().constFind(roles.at(place));
        if (column == columnsByRole().constEnd())
            continue;
        if (wants(*column))
            m_repeats.push_back({m_places[*column], place});
        else
            m_places[*column] = place;
    }
}

void TidalRow::share(Column column, const QVariant& value)
{
    if (wants(column))
        m_shared[m_places[column]] = value;
}

QVariantList TidalRow::take()
{
    QVariantList row = std::exchange(begun(), QVariantList());
    for (const auto& [from, to] : m_repeats)
        row[to] = row.at(from);
    return row;
}
