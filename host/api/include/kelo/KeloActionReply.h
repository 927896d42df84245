#pragma once
#include "CMPath.h"
#include "KeloHash.h"
#include "KeloNames.h"
#include "KeloRoles.h"
#include <QList>

/// One thing that a client should do after an action: reload the rows at a path, say.
class KELO_EXPORT KeloEvent : public KeloHash
{
public:
    KELO_NAME(RowsType, "rowsType")

    KeloEvent() = default;
    explicit KeloEvent(const KeloHash& hash) : KeloHash(hash) {}
    KeloEvent(KeloEventRowsType::Enum rowsType, const CMPath& path)
    {
        insert(RowsType(), int(rowsType));
        setPath(path);
    }

    int rowsType() const { return value(RowsType()).toInt(); }
    KELO_FIELD(CMPath, path, Path)
};

/// The reply of a finished action: what to reload, and optionally a result to show or go to.
class KELO_EXPORT KeloActionReply : public KeloHash
{
public:
    KELO_NAME(Xclass, "class")

    KeloActionReply() = default;
    explicit KeloActionReply(const KeloHash& hash) : KeloHash(hash) {}

    KELO_ACCESS(QString, xclass, Xclass)
    KELO_FIELD(QList<KeloEvent>, events, Events)
    KELO_FIELD(KeloRoles, result, Result)
};

/// How a value is edited.
class KELO_EXPORT KeloEdit : public KeloHash
{
public:
    enum Type {
        Text_ = 0, ///< free input
        Enum_ = 1  ///< one of the rows at the enum path
    };
    KELO_NAME(EditType, "type")

    KeloEdit() = default;
    explicit KeloEdit(const KeloHash& hash) : KeloHash(hash) {}

    int type() const { return value(EditType()).toInt(); }
    void setType(Type type) { insert(EditType(), int(type)); }
    KELO_FIELD(CMPath, enumPath, EnumPath)
};

Q_DECLARE_METATYPE(KeloActionReply)
