#pragma once
#include "CMPath.h"
#include "KeloHash.h"
#include "KeloMediaData.h"
#include "KeloNames.h"
#include "KeloRolesType.h"
#include "TrString.h"
#include <QStringList>

/// The roles of one row or node. Paths stand in it in their encoded text form, titles, descriptions
/// and busy texts as a QString or, while they can be translated, as a TrString.
class KELO_EXPORT KeloRoles : public KeloHash
{
public:
    KELO_NAME(Path, "Path")
    KELO_NAME(Type, "Type")
    KELO_NAME(Title, "Title")
    KELO_NAME(Disabled, "Disabled")
    KELO_NAME(MediaData, "MediaData")
    KELO_NAME(Icon, "Icon")
    KELO_NAME(Id, "Id")
    KELO_NAME(AudioType, "AudioType")
    KELO_NAME(Context, "Context")
    KELO_NAME(Description, "Description")
    KELO_NAME(ContainerType, "ContainerType")
    KELO_NAME(ContainerPlayable, "ContainerPlayable")
    KELO_NAME(Value, "Value")
    KELO_NAME(PrePlay, "PrePlay")
    KELO_NAME(Edit, "Edit")
    KELO_NAME(SearchPath, "SearchPath")
    KELO_NAME(AcceptPath, "AcceptPath")
    /// The query parameter that carries the text of a search.
    KELO_NAME(Query, "Query")
    /// The node that answers a search.
    KELO_NAME(QueryPath, "QueryPath")
    /// Text to show while an action runs; present only then.
    KELO_NAME(BusyText, "BusyText")
    /// Whether a value can be written.
    KELO_NAME(ReadOnly, "ReadOnly")

    KeloRoles() = default;
    explicit KeloRoles(const KeloHash& hash) : KeloHash(hash) {}

    QString title() const;
    void setTitle(const QString& title);
    void setTitle(const TrString& title);
    /// The type's name.
    QString type() const;
    void setType(KeloRolesType::Enum type);
    CMPath path() const;
    void setPath(const CMPath& path);
    QString icon() const;
    void setIcon(const QString& url);
    QString description() const;
    void setDescription(const QString& text);
    void setDescription(const TrString& text);
    QVariant context() const;
    /// The roles of the context menu's node, a hash; an invalid variant for none.
    void setContext(const QVariant& roles);
    void setContainerType(KeloRolesContainerType::Enum type);
    KeloMediaData mediaData() const;
    void setMediaData(const KeloMediaData& mediaData);
    bool disabled() const;
    void setDisabled(bool disabled);
    QString id() const;
    void setId(const QString& id);
    using KeloHash::value;
    QVariant value() const;
    /// The hash of a KeloValue.
    void setValue(const QVariant& value);
};

Q_DECLARE_METATYPE(KeloRoles)
