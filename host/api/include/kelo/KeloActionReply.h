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
    KELO_NAME(Path, "path")

    KeloEvent() = default;
    explicit KeloEvent(const KeloHash& hash) : KeloHash(hash) {}
    KeloEvent(KeloEventRowsType::Enum rowsType, const CMPath& path);

    int rowsType() const;
    CMPath path() const;
};

/// The reply of a finished action: what to reload, and optionally a result to show or go to.
class KELO_EXPORT KeloActionReply : public KeloHash
{
public:
    KELO_NAME(Xclass, "class")
    KELO_NAME(Events, "events")
    KELO_NAME(Result, "result")

    KeloActionReply() = default;
    explicit KeloActionReply(const KeloHash& hash) : KeloHash(hash) {}

    QString xclass() const;
    void setXclass(const QString& name);
    QList<KeloEvent> events() const;
    void setEvents(const QList<KeloEvent>& events);
    KeloRoles result() const;
    void setResult(const KeloRoles& roles);
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
    KELO_NAME(EnumPath, "enumPath")

    KeloEdit() = default;
    explicit KeloEdit(const KeloHash& hash) : KeloHash(hash) {}

    int type() const;
    void setType(Type type);
    CMPath enumPath() const;
    void setEnumPath(const CMPath& path);
};

Q_DECLARE_METATYPE(KeloActionReply)
