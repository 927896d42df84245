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

void moveOwn(KeloRowBlock::Value& value, int by)
{
    if (value.own >= 0)
        value.own += by;
    for (KeloRowBlock::Field& field : value.hash)
        moveOwn(field.value, by);
}
} // namespace

TidalRow::TidalRow(const QStringList& roles) : m_block(new KeloRowBlock(roles.size()))
{
    m_places.fill(-1);
    for (int place = 0; place < roles.size(); ++place) {
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
        m_block->column(m_places[column]).shared = value;
}

void TidalRow::setHash(Column column, const KeloRowBlock::Value& hash, int firstOwn)
{
    KeloRowBlock::Value& value = m_block->column(m_places[column]);
    value = hash;
    moveOwn(value, firstOwn);
}

KeloShared<KeloRowBlock> TidalRow::take()
{
    for (const auto& [from, to] : m_repeats)
        m_block->column(to) = m_block->column(from);
    return std::move(m_block);
}
