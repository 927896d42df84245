#include "KeloActionReply.h"

KeloEvent::KeloEvent(KeloEventRowsType::Enum rowsType, const CMPath& path)
{
    insert(RowsType(), int(rowsType));
    insert(Path(), path.toEncoded());
}

int KeloEvent::rowsType() const
{
    return value(RowsType()).toInt();
}

CMPath KeloEvent::path() const
{
    return CMPath::fromEncoded(value(Path()).toString());
}

QString KeloActionReply::xclass() const
{
    return value(Xclass()).toString();
}

void KeloActionReply::setXclass(const QString& name)
{
    insert(Xclass(), name);
}

QList<KeloEvent> KeloActionReply::events() const
{
    const QVariantList list = value(Events()).toList();
    QList<KeloEvent> result;
    result.reserve(list.size());
    for (const QVariant& entry : list)
        result.append(KeloEvent(entry.toHash()));
    return result;
}

void KeloActionReply::setEvents(const QList<KeloEvent>& events)
{
    QVariantList list;
    list.reserve(events.size());
    for (const KeloEvent& event : events)
        list.append(event.toVariant());
    insert(Events(), list);
}

KeloRoles KeloActionReply::result() const
{
    return KeloRoles(value(Result()).toHash());
}

void KeloActionReply::setResult(const KeloRoles& roles)
{
    insert(Result(), roles.toVariant());
}

int KeloEdit::type() const
{
    return value(EditType()).toInt();
}

void KeloEdit::setType(Type type)
{
    insert(EditType(), int(type));
}

CMPath KeloEdit::enumPath() const
{
    return CMPath::fromEncoded(value(EnumPath()).toString());
}

void KeloEdit::setEnumPath(const CMPath& path)
{
    insert(EnumPath(), path.toEncoded());
}
