#include "KeloRowBlock.h"
#include <algorithm>

namespace {
QVariant toVariant(const KeloRowBlock::Value& value, const QVariant* own)
{
    if (value.own >= 0)
        return own[value.own];
    if (value.hash.empty())
        return value.shared;
    QVariantHash hash;
    hash.reserve(int(value.hash.size()));
    for (const KeloRowBlock::Field& field : value.hash)
        hash.insert(field.name, toVariant(field.value, own));
    return hash;
}
} // namespace

KeloRowBlock::Value& KeloRowBlock::Value::field(const QString& name)
{
    const auto isBefore = [](const Field& field, const QString& text) { return field.name < text; };
    auto found = std::lower_bound(hash.begin(), hash.end(), name, isBefore);
    if (found == hash.end() || found->name != name)
        found = hash.insert(found, Field{name, {}});
    return found->value;
}

KeloRowBlock::Value KeloRowBlock::hash(const QVariantHash& shared)
{
    Value value;
    value.hash.reserve(std::size_t(shared.size()));
    for (auto field = shared.constBegin(); field != shared.constEnd(); ++field)
        value.field(field.key()).shared = field.value();
    return value;
}

QVariantList KeloRowBlock::toList() const
{
    QVariantList rows;
    rows.reserve(m_size);
    for (int row = 0; row < m_size; ++row) {
        QVariantList values;
        values.reserve(int(m_columns.size()));
        for (const Value& column : m_columns)
            values.append(toVariant(column, own(row)));
        rows.append(QVariant(values));
    }
    return rows;
}

void KeloRowBlock::endRow()
{
    if (m_size++ == 0)
        m_ownCount = m_own.size();
    Q_ASSERT(m_own.size() == std::size_t(m_size) * m_ownCount);
    m_own.resize(std::size_t(m_size) * m_ownCount); // of a maker that counts wrongly
}
