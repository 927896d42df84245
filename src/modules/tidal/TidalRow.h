#pragma once
#include <array>
#include <kelo/KeloRowBlock.h>
#include <QStringList>
#include <vector>

/// The rows of a page in the making, one after the other: their columns are what this module knows
/// of an item, and they hold those that a client asked for by role name. A value type of the
/// worker's thread.
class TidalRow
{
public:
    enum Column {
        Path,
        Type,
        Title,
        Disabled,
        MediaData,
        Icon,
        Id,
        AudioType,
        Context,
        Description,
        ContainerType,
        ContainerPlayable,
        ColumnCount
    };

    explicit TidalRow(const QStringList& roles);

    bool wants(Column column) const { return m_places[column] >= 0; }
    void reserve(int rows) { m_block->reserve(rows); }
    /// Sets a value of all rows.
    void share(Column column, const QVariant& value);
    /// Sets what `make` returns; it is not called when nobody asked for the column. The columns of
    /// a row are made in the same order as those of the first one.
    template <class Make>
    void make(Column column, Make make)
    {
        if (wants(column))
            set(m_places[column], QVariant(make()));
    }
    /// Sets the value of the role that was asked for at a place, in the same order as make().
    void set(int place, QVariant value)
    {
        const int own = m_block->add(std::move(value));
        if (m_block->size() == 0)
            m_block->column(place).own = own;
    }
    /// Sets a hash of all rows whose own fields are numbered from 0; `make` returns their values.
    template <class Make>
    void makeHash(Column column, const KeloRowBlock::Value& hash, Make make)
    {
        if (!wants(column))
            return;
        int first = -1;
        for (QVariant& value : make()) {
            const int place = m_block->add(std::move(value));
            first = first < 0 ? place : first;
        }
        if (m_block->size() == 0)
            setHash(column, hash, first);
    }
    void end() { m_block->endRow(); }
    /// The rows, as long as the roles and invalid where nothing is set.
    KeloShared<KeloRowBlock> take();

private:
    void setHash(Column column, const KeloRowBlock::Value& hash, int firstOwn);

    KeloShared<KeloRowBlock> m_block;
    std::array<int, ColumnCount> m_places;      ///< negative: not asked for
    std::vector<std::pair<int, int>> m_repeats; ///< of roles that were asked for again: from, to
};
