#pragma once
#include "TidalEncodedPath.h"
#include "TidalRow.h"
#include <kelo/KeloJson.h>
#include <kelo/KeloTidalTypes.h>
#include <string>

class CMWorker;

/// Addresses of images of the service, of one size: the base, the identifier with its groups as
/// folders, and the size. A value type of one thread.
class TidalImageUrl
{
public:
    TidalImageUrl(const QString& base, const QString& size);
    /// Empty for an item without an image.
    QString text(std::string_view id);

private:
    std::string m_text; ///< begins with the base
    std::size_t m_baseSize;
    std::string m_tail;
};

/// A value that is likely to be the one before again, as the album of its tracks is: it is made
/// once for a text, and kept until another text comes. A value type of one thread.
class TidalRepeated
{
public:
    /// `empty`: the value for the empty text.
    explicit TidalRepeated(const QVariant& empty) : m_value(empty) {}
    template <class Make>
    const QVariant& value(std::string_view text, Make make)
    {
        if (text != m_text) {
            m_text = text;
            m_value = QVariant(make(text));
        }
        return m_value;
    }

private:
    std::string m_text;
    QVariant m_value;
};

/// Makes the rows of one page out of the service's items: base of one class for each kind of item.
/// What the rows of a page share is made once, and only what the client asked for is made at all.
/// Lives on the worker's thread, as long as the page is built. It does not choose, count or send
/// rows.
class TidalItemRows
{
public:
    /// What a page is made of.
    struct Page
    {
        QStringList roles; ///< asked for
        CMPath path;       ///< the list that the items stand in
        CMPath itemPath;   ///< the items' paths are this one and parameters of theirs
        QVariantHash menu; ///< context roles of an item without parameters; empty where it has none
        KeloTidalSettings settings;
        const CMWorker* worker; ///< for paths under the module's prefix
    };

    virtual ~TidalItemRows() = default;
    /// The row of an item, which has a number in the list.
    virtual QVariantList row(const KeloJson& item, qint64 number) = 0;

protected:
    /// `pathKeys` and `contextKeys`: the parameters that tell the items' paths and context paths
    /// apart.
    TidalItemRows(const Page& page, const QStringList& pathKeys, const QStringList& contextKeys,
                  const QString& imageSize);

    /// The address of an image; an invalid variant for an item without one.
    QVariant imageUrl(const KeloJson& image);
    /// The context roles of the item whose parameters these are.
    QVariant context(std::initializer_list<std::string_view> values);

    TidalRow m_row;
    TidalEncodedPath m_path;
    std::string m_scratch; ///< kept for its memory

private:
    QVariantHash m_menu;
    TidalEncodedPath m_menuPath;
    TidalImageUrl m_imageUrl;
    TidalRepeated m_image;
};

class TidalAlbumRows : public TidalItemRows
{
public:
    explicit TidalAlbumRows(const Page& page);
    QVariantList row(const KeloJson& album, qint64 number) override;
};

class TidalArtistRows : public TidalItemRows
{
public:
    explicit TidalArtistRows(const Page& page);
    QVariantList row(const KeloJson& artist, qint64 number) override;
};

class TidalTrackRows : public TidalItemRows
{
public:
    explicit TidalTrackRows(const Page& page);
    QVariantList row(const KeloJson& track, qint64 number) override;

private:
    TidalTrackRows(const Page& page, const QString& playlist);
    QVariant mediaData(const KeloJson& album, const QVariant& artist, std::string_view id);

    std::string m_playlist;  ///< identifier of the playlist that is listed; empty for other lists
    QString m_prePlayPath;   ///< encoded, without the track's id
    QVariantHash m_metaData; ///< of the row made last
    QVariantHash m_mediaData;
    TidalRepeated m_names;
    TidalRepeated m_albumTitle;
};

class TidalPlaylistRows : public TidalItemRows
{
public:
    /// Rows of a list of playlists to open, or of one to choose a playlist from: each of these is
    /// an action.
    TidalPlaylistRows(const Page& page, bool isChooser);
    QVariantList row(const KeloJson& playlist, qint64 number) override;
};
