#pragma once
#include "KeloHash.h"
#include "KeloRoles.h"
#include "KeloRowBlock.h"

/// Payload of a rows reply: the rows, how many rows the list has in all, and the version of the
/// list that they belong to. Members are kept apart from the hash, so that a page of rows is handed
/// on without a copy.
class KELO_EXPORT KeloRowsRoles
{
public:
    bool isEmpty() const { return !m_block && !m_rows.isValid() && m_rowsCount == 0; }

    /// A list of rows, each a list of values in the order of the roles asked for.
    QVariant rows() const { return m_block ? QVariant(m_block->toList()) : m_rows; }
    void setRows(const QVariant& rows)
    {
        m_rows = rows;
        m_block = KeloShared<KeloRowBlock>();
    }
    /// The rows in one piece, where their maker left them so: cheaper to read than rows().
    const KeloShared<KeloRowBlock>& block() const { return m_block; }
    void setBlock(const KeloShared<KeloRowBlock>& block) { m_block = block; }
    /// Number of rows that the answer holds.
    int size() const { return m_block ? m_block->size() : m_rows.toList().size(); }
    int rowsCount() const { return m_rowsCount; }
    void setRowsCount(int count) { m_rowsCount = count; }
    int rowsVersion() const { return m_rowsVersion; }
    void setRowsVersion(int version) { m_rowsVersion = version; }
    /// Roles of the container itself; empty when the answerer left them to the host.
    const KeloRoles& roles() const { return m_roles; }
    void setRoles(const KeloRoles& roles) { m_roles = roles; }
    const QList<KeloRowsRolesType::Enum>& type() const { return m_type; }
    void setType(const QList<KeloRowsRolesType::Enum>& type) { m_type = type; }

private:
    QVariant m_rows;
    KeloShared<KeloRowBlock> m_block; ///< instead of m_rows, where there is one
    int m_rowsCount = 0;
    int m_rowsVersion = 0;
    KeloRoles m_roles;
    QList<KeloRowsRolesType::Enum> m_type;
};

Q_DECLARE_METATYPE(KeloRowsRoles)
