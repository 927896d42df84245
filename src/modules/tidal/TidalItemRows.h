#pragma once
#include "TidalEncodedPath.h"
#include "TidalFurtherRoles.h"
#include "TidalRow.h"
#include <kelo/KeloJson.h>
#include <kelo/KeloTidalTypes.h>
#include <string>

class TidalWorker;

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
        const TidalWorker* worker; ///< for paths under the module's prefix
    };

    virtual ~TidalItemRows() = default;
    /// Adds the row of an item, which has a number in the list.
    void row(const KeloJson& item, qint64 number)
    {
        make(item, number);
        m_further.make(item, m_row);
        m_row.end();
    }
    void reserve(int rows) { m_row.reserve(rows); }
    /// The rows; there is no further one.
    KeloShared<KeloRowBlock> take() { return m_row.take(); }

protected:
    /// `pathKeys` and `contextKeys`: the parameters that tell the items' paths and context paths
    /// apart.
    TidalItemRows(const Page& page, const QStringList& pathKeys, const QStringList& contextKeys,
                  const QString& imageSize);

    /// Sets the columns of the row.
    virtual void make(const KeloJson& item, qint64 number) = 0;
    /// The address of an image; an invalid variant for an item without one.
    QVariant imageUrl(const KeloJson& image);
    /// Makes the context roles of the item whose parameters these are.
    void makeContext(std::initializer_list<std::string_view> values);

    TidalRow m_row;
    TidalEncodedPath m_path;
    std::string m_scratch; ///< kept for its memory

private:
    TidalFurtherRoles m_further;
    KeloRowBlock::Value m_menu;
    TidalEncodedPath m_menuPath;
    TidalImageUrl m_imageUrl;
    TidalRepeated m_image;
};

class TidalAlbumRows : public TidalItemRows
{
public:
    explicit TidalAlbumRows(const Page& page);

private:
    void make(const KeloJson& album, qint64 number) override;

    KeloRowBlock::Value m_mediaData;
};

class TidalArtistRows : public TidalItemRows
{
public:
    explicit TidalArtistRows(const Page& page);

private:
    void make(const KeloJson& artist, qint64 number) override;
};

class TidalTrackRows : public TidalItemRows
{
public:
    explicit TidalTrackRows(const Page& page);

private:
    TidalTrackRows(const Page& page, const QString& playlist);
    void make(const KeloJson& track, qint64 number) override;

    std::string m_playlist; ///< identifier of the playlist that is listed; empty for other lists
    QString m_prePlayPath;  ///< encoded, without the track's id
    KeloRowBlock::Value m_mediaData;
    TidalRepeated m_names;
    TidalRepeated m_albumTitle;
};

class TidalPlaylistRows : public TidalItemRows
{
public:
    /// Rows of a list of playlists to open, or of one to choose a playlist from: each of these is
    /// an action.
    TidalPlaylistRows(const Page& page, bool isChooser);

private:
    void make(const KeloJson& playlist, qint64 number) override;
};
