#pragma once
#include "KeloExport.h"
#include "KeloShared.h"
#include <QString>
#include <QVariant>
#include <vector>

/// Rows that are alike in most of what they hold, in one piece: what all have is held once, and
/// beside it what each has of its own. Made by the worker that answers with it and not changed
/// afterwards, so any thread may read. Headings are none of its rows: a client's language is
/// theirs.
class KELO_EXPORT KeloRowBlock : public KeloSharedData
{
public:
    struct Field;
    /// A value of every row: the same one, one of the row's own, or a hash of such values.
    struct KELO_EXPORT Value
    {
        QVariant shared;         ///< what all rows have
        int own = -1;            ///< place among the row's own values; negative: not own
        std::vector<Field> hash; ///< sorted by name; empty where the value is no hash of such

        /// The field of a name; a new one where there is none.
        Value& field(const QString& name);
    };
    struct KELO_EXPORT Field
    {
        QString name;
        Value value;
    };

    /// The same hash for all rows, to be given own fields.
    static Value hash(const QVariantHash& shared);

    int size() const { return m_size; }
    /// One for each role that was asked for, in their order.
    const std::vector<Value>& columns() const { return m_columns; }
    /// The own values of a row.
    const QVariant* own(int row) const { return m_own.data() + std::size_t(row) * m_ownCount; }
    /// The rows, each a list of values.
    QVariantList toList() const;

    explicit KeloRowBlock(int columnCount) : m_columns(std::size_t(columnCount)) {}
    void reserve(int rows) { m_own.reserve(std::size_t(rows) * m_columns.size()); }
    Value& column(int place) { return m_columns[std::size_t(place)]; }
    /// Adds an own value to the row that has not ended, and returns its place.
    int add(QVariant value)
    {
        m_own.push_back(std::move(value));
        return int(m_own.size() - std::size_t(m_size) * m_ownCount) - 1;
    }
    /// Every row has as many own values as the first one.
    void endRow();

private:
    std::vector<Value> m_columns;
    std::vector<QVariant> m_own; ///< row by row
    std::size_t m_ownCount = 0;  ///< of a row; known at the end of the first one
    int m_size = 0;
};
