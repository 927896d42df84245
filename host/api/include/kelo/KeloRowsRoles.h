#pragma once
#include "KeloHash.h"
#include "KeloRoles.h"

/// Payload of a rows reply: the rows, how many rows the list has in all, and the version of the
/// list that they belong to. Members are kept apart from the hash, so that a page of rows is handed
/// on without a copy.
class KELO_EXPORT KeloRowsRoles
{
public:
    bool isEmpty() const { return !m_rows.isValid() && m_rowsCount == 0; }

    /// A list of rows, each a list of values in the order of the roles asked for.
    const QVariant& rows() const { return m_rows; }
    void setRows(const QVariant& rows) { m_rows = rows; }
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
    int m_rowsCount = 0;
    int m_rowsVersion = 0;
    KeloRoles m_roles;
    QList<KeloRowsRolesType::Enum> m_type;
};

Q_DECLARE_METATYPE(KeloRowsRoles)
