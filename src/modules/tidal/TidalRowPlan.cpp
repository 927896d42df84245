#include "TidalRowPlan.h"
#include <kelo/KeloRoles.h>

namespace {
const QHash<QString, TidalRowPlan::Column>& columnsByRole()
{
    static const QHash<QString, TidalRowPlan::Column> columns = {
        {KeloRoles::Path(), TidalRowPlan::Path},
        {KeloRoles::Type(), TidalRowPlan::Type},
        {KeloRoles::Title(), TidalRowPlan::Title},
        {KeloRoles::Disabled(), TidalRowPlan::Disabled},
        {KeloRoles::MediaData(), TidalRowPlan::MediaData},
        {KeloRoles::Icon(), TidalRowPlan::Icon},
        {KeloRoles::Id(), TidalRowPlan::Id},
        {KeloRoles::AudioType(), TidalRowPlan::AudioType},
        {KeloRoles::Context(), TidalRowPlan::Context},
        {KeloRoles::Description(), TidalRowPlan::Description},
        {KeloRoles::ContainerType(), TidalRowPlan::ContainerType},
        {KeloRoles::ContainerPlayable(), TidalRowPlan::ContainerPlayable}};
    return columns;
}
} // namespace

TidalRowPlan::TidalRowPlan(const QStringList& roles) : m_size(roles.size())
{
    m_first.fill(-1);
    const auto& columns = columnsByRole();
    for (int position = 0; position < roles.size(); ++position) {
        const auto column = columns.constFind(roles.at(position));
        if (column == columns.constEnd())
            continue;
        int& first = m_first[*column];
        if (first < 0)
            first = position;
        else
            m_repeats.push_back({position, first});
    }
}

QVariantList TidalRowPlan::emptyRow() const
{
    QVariantList row;
    row.reserve(m_size);
    for (int position = 0; position < m_size; ++position)
        row.append(QVariant());
    return row;
}

void TidalRowPlan::finish(QVariantList& row) const
{
    for (const Repeat& repeat : m_repeats)
        row[repeat.position] = row.at(repeat.first);
}
