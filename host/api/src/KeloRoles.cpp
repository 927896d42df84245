#include "KeloRoles.h"

QString KeloRoles::title() const
{
    return value(Title()).toString();
}

void KeloRoles::setTitle(const QString& title)
{
    insert(Title(), title);
}

void KeloRoles::setTitle(const TrString& title)
{
    insert(Title(), title.toVariant());
}

QString KeloRoles::type() const
{
    return value(Type()).toString();
}

void KeloRoles::setType(KeloRolesType::Enum type)
{
    insert(Type(), KeloRolesType::toString(type));
}

CMPath KeloRoles::path() const
{
    return CMPath::fromEncoded(value(Path()).toString());
}

void KeloRoles::setPath(const CMPath& path)
{
    insert(Path(), path.toEncoded());
}

QString KeloRoles::icon() const
{
    return value(Icon()).toString();
}

void KeloRoles::setIcon(const QString& url)
{
    insert(Icon(), url);
}

QString KeloRoles::description() const
{
    return value(Description()).toString();
}

void KeloRoles::setDescription(const QString& text)
{
    insert(Description(), text);
}

void KeloRoles::setDescription(const TrString& text)
{
    insert(Description(), text.toVariant());
}

QVariant KeloRoles::context() const
{
    return value(Context());
}

void KeloRoles::setContext(const QVariant& roles)
{
    insert(Context(), roles);
}

void KeloRoles::setContainerType(KeloRolesContainerType::Enum type)
{
    insert(ContainerType(), KeloRolesContainerType::toString(type));
}

KeloMediaData KeloRoles::mediaData() const
{
    return KeloMediaData(value(MediaData()).toHash());
}

void KeloRoles::setMediaData(const KeloMediaData& mediaData)
{
    insert(MediaData(), mediaData.toVariant());
}

bool KeloRoles::disabled() const
{
    return value(Disabled()).toBool();
}

void KeloRoles::setDisabled(bool disabled)
{
    insert(Disabled(), disabled);
}

QString KeloRoles::id() const
{
    return value(Id()).toString();
}

void KeloRoles::setId(const QString& id)
{
    insert(Id(), id);
}

QVariant KeloRoles::value() const
{
    return value(Value());
}

void KeloRoles::setValue(const QVariant& value)
{
    insert(Value(), value);
}
