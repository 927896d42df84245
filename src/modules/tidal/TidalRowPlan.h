#pragma once
#include <array>
#include <QStringList>
#include <QVariant>
#include <vector>

/// Where the values of a row go: maps the role names that a client asked for to the columns that
/// this module fills, once for a page of rows. A value type of the worker's thread; it holds no
/// values.
class TidalRowPlan
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

    explicit TidalRowPlan(const QStringList& roles);

    bool wants(Column column) const { return m_first[column] >= 0; }
    /// A row as long as the role list, all values invalid.
    QVariantList emptyRow() const;
    /// Puts what `make` returns into a column; it is not called when nobody asked for the column.
    template <class Make>
    void set(QVariantList& row, Column column, Make make) const
    {
        const int position = m_first[column];
        if (position >= 0)
            row[position] = QVariant(make());
    }
    /// Fills the places of role names that were asked for more than once. To be called last.
    void finish(QVariantList& row) const;

private:
    struct Repeat
    {
        int position;
        int first;
    };

    int m_size;
    std::array<int, ColumnCount> m_first; ///< negative: not asked for
    std::vector<Repeat> m_repeats;
};
