#pragma once
#include <array>
#include <QStringList>
#include <QVariant>
#include <vector>

/// A row in the making, and the rows that follow it on a page: its columns are what this module
/// knows of an item, and its list holds those that a client asked for by role name. A value type of
/// the worker's thread.
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
    /// Sets a value of the rows that begin from now on.
    void share(Column column, const QVariant& value);
    /// Sets what `make` returns; it is not called when nobody asked for the column.
    template <class Make>
    void make(Column column, Make make)
    {
        if (wants(column))
            begun()[m_places[column]] = QVariant(make());
    }
    /// The row, as long as the roles and invalid where nothing is set. What is made next begins
    /// another one.
    QVariantList take();

private:
    QVariantList& begun()
    {
        if (m_list.isEmpty())
            m_list = m_shared;
        return m_list;
    }

    QVariantList m_shared;
    QVariantList m_list;                        ///< empty until the row begins
    std::array<int, ColumnCount> m_places;      ///< negative: not asked for
    std::vector<std::pair<int, int>> m_repeats; ///< of roles that were asked for again: from, to
};
