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
    /// Sent to an action that makes a favourite: whether it is to be one.
    KELO_NAME(Favorite, "Favorite")
    // Of tracks and albums, for requests that name them.
    KELO_NAME(TrackNumber, "TrackNumber")
    /// In milliseconds.
    KELO_NAME(Duration, "Duration")
    KELO_NAME(ReleaseYear, "ReleaseYear")
    /// The album that a track is of, encoded.
    KELO_NAME(AlbumPath, "AlbumPath")
    /// A list of hashes with the Title and Path of each artist.
    KELO_NAME(ArtistPaths, "ArtistPaths")
    /// What a playlist says of itself; for requests that name it.
    KELO_NAME(Summary, "Summary")
    /// Of a module's top node: how the addresses of its pictures begin, up to a slash.
    KELO_NAME(ImageUrl, "ImageUrl")

    KeloRoles() = default;
    explicit KeloRoles(const KeloHash& hash) : KeloHash(hash) {}

    KELO_ACCESS(QString, title, Title)
    void setTitle(const TrString& title) { insert(Title(), title.toVariant()); }
    /// The type's name.
    QString type() const { return value(Type()).toString(); }
    void setType(KeloRolesType::Enum type) { insert(Type(), KeloRolesType::toString(type)); }
    KELO_ACCESS(CMPath, path, Path)
    KELO_ACCESS(QString, icon, Icon)
    KELO_ACCESS(QString, description, Description)
    void setDescription(const TrString& text) { insert(Description(), text.toVariant()); }
    /// The roles of the context menu's node, a hash; an invalid variant for none.
    KELO_ACCESS(QVariant, context, Context)
    void setContainerType(KeloRolesContainerType::Enum type)
    {
        insert(ContainerType(), KeloRolesContainerType::toString(type));
    }
    KELO_ACCESS(KeloMediaData, mediaData, MediaData)
    KELO_ACCESS(bool, disabled, Disabled)
    KELO_ACCESS(QString, id, Id)
    using KeloHash::value;
    /// The hash of a KeloValue.
    KELO_ACCESS(QVariant, value, Value)
};

Q_DECLARE_METATYPE(KeloRoles)
