#pragma once
#include "TidalContextRoles.h"
#include "TidalRowPlan.h"
#include <kelo/CMRequest.h>
#include <kelo/KeloTidalApi.h>
#include <kelo/KeloTidalTypes.h>
#include <string>

class CMWorker;

/// A text that is likely to be the one before again, as the album of its tracks is: equal texts
/// share their data. A value type of one thread.
class TidalRepeatedText
{
public:
    const QString& text(std::string_view utf8);

private:
    std::string m_utf8;
    QString m_text;
};

/// Addresses of images of one size. A value type of one thread.
class TidalImageUrl
{
public:
    /// `base`: what stands before the identifiers, as it is.
    TidalImageUrl(const QString& base, const QString& size);
    /// Of the image's identifier, in UTF-8; empty for an item without an image.
    QString of(std::string_view id);

private:
    std::string m_prefix;
    std::string m_suffix;
    std::string m_url; ///< kept for its memory
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
        CMGetRowsRequest request;
        CMPath path; ///< the list that the items stand in
        TidalContextRoles::Source context;
        KeloTidalSettings settings;
        const CMWorker* worker; ///< for paths under the module's prefix
    };

protected:
    /// `pathKeys` and `contextKeys`: the parameters that tell the items' paths and context paths
    /// apart.
    TidalItemRows(const Page& page, const CMPath& itemPath, const QStringList& pathKeys,
                  const QStringList& contextKeys, const QString& imageSize);
    ~TidalItemRows() = default;

    void setShared(TidalRowPlan::Column column, const QVariant& value);
    /// An image address; an invalid variant for an item without an image.
    QVariant imageUrl(const KeloJson& image);

    TidalRowPlan m_plan;
    QVariantList m_row; ///< what the rows have in common
    TidalEncodedPath m_path;
    TidalContextRoles m_context;
    int m_from;            ///< number of the page's first row
    std::string m_scratch; ///< kept for its memory

private:
    TidalImageUrl m_images;
    std::string m_imageId; ///< of the address made last
    QVariant m_imageUrl;
};

class TidalAlbumRows : public TidalItemRows
{
public:
    using Response = KeloTidalApiAlbumsResponse;
    explicit TidalAlbumRows(const Page& page);
    /// The row of the item at a position in the answer.
    QVariantList row(const KeloTidalApiAlbumResponse& album, int position);
};

class TidalArtistRows : public TidalItemRows
{
public:
    using Response = KeloTidalApiArtistsResponse;
    explicit TidalArtistRows(const Page& page);
    QVariantList row(const KeloTidalApiArtistResponse& artist, int position);
};

class TidalTrackRows : public TidalItemRows
{
public:
    using Response = KeloTidalApiTracksResponse;
    explicit TidalTrackRows(const Page& page);
    /// Rows that stand at another path than the list's.
    TidalTrackRows(const Page& page, const CMPath& itemPath);
    QVariantList row(const KeloTidalApiTrackResponse& track, int position);

private:
    QVariant mediaData(const KeloJson& album, const QString& artist, std::string_view id);

    std::string m_playlist;  ///< identifier of the playlist that is listed; empty for other lists
    QString m_prePlayPath;   ///< encoded, without the track's id
    QVariantHash m_metaData; ///< of the row made last
    QVariantHash m_mediaData;
    TidalRepeatedText m_names;
    TidalRepeatedText m_albumTitle;
    std::string m_artists; ///< kept for its memory
};

class TidalPlaylistRows : public TidalItemRows
{
public:
    using Response = KeloTidalApiPlaylistsResponse;
    /// Rows of a list of playlists to open.
    TidalPlaylistRows(const Page& page, const QString& etag);
    /// Rows of a list to choose a playlist from: each is an action below this path.
    TidalPlaylistRows(const Page& page, const QString& etag, const CMPath& actionPath);
    /// The row with a number in the list.
    QVariantList row(const KeloTidalApiPlaylistResponse& playlist, int rowNumber);

private:
    TidalPlaylistRows(const Page& page, const QString& etag, const CMPath& itemPath,
                      const QStringList& pathKeys, const QString& type);
};
