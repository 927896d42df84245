// An artist's page: its menu, the lists of its entries, the biography.
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/KeloActionReply.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// The text without the service's link markup: everything in brackets, brackets included; "[]" is
/// none. One walk over the text, however its brackets stand.
QString withoutLinks(const QString& text)
{
    QString result;
    result.reserve(text.size());
    int done = 0;
    int open = text.indexOf(QLatin1Char('['));
    while (open >= 0) {
        const int close = text.indexOf(QLatin1Char(']'), open + 1);
        if (close < 0)
            break;
        if (close > open + 1) {
            result += text.midRef(done, open - done);
            done = close + 1;
        }
        open = text.indexOf(QLatin1Char('['), close + 1);
    }
    result += text.midRef(done);
    return result;
}

/// The page's list of one kind for the same artist.
CMPath listPath(const TidalWorker& worker, const QString& kind, const CMPath& path)
{
    return CMPath(worker.artistsPath().base() + QLatin1Char('/') + kind.toLower(), path.params());
}
} // namespace

void TidalNodeResponder::createArtistContent(CMGetRowsRequest const& request,
                                             QString const& artistId, QString const& artistUrl)
{
    const struct Entry
    {
        TrString title;
        const QString& content;
        const char* albums; ///< which of the artist's albums
    } entries[] = {{KELO_TR("Top tracks"), KeloTidalArtistTracks(), nullptr},
                   {KELO_TR("Albums"), KeloTidalArtistAlbums(), "ALBUMS"},
                   {KELO_TR("EPs and singles"), KeloTidalArtistAlbums(), "EPSANDSINGLES"},
                   {KELO_TR("Other albums"), KeloTidalArtistAlbums(), "COMPILATIONS"},
                   {KELO_TR("Created playlists"), KeloTidalArtistPlaylistsCreated(), nullptr},
                   {KELO_TR("Bio"), KeloTidalArtistBio(), nullptr},
                   {KELO_TR("Similar artists"), KeloTidalArtistSimilar(), nullptr},
                   {KELO_TR("Radio"), KeloTidalArtistRadio(), nullptr}};
    constexpr int count = int(std::size(entries));

    QString url = artistUrl;
    if (url.isEmpty())
        url = KeloUrl::fromEncoded(request.path().param(QStringLiteral("artistUrl")).toLatin1())
                  .toString();
    const QVariant context = getContextRoles(
        {{QStringLiteral("id"), artistId}, {QStringLiteral("type"), KeloTidalArtists()}},
        KeloTidalContextVariation::Base);
    QVariantList rows;
    for (int i = qMax(0, request.from()); i < count && i <= request.to(); ++i) {
        const Entry& entry = entries[i];
        CMPath path = request.path();
        path.addParam(QStringLiteral("artistContent"), entry.content);
        if (entry.albums)
            path.addParam(QStringLiteral("artistAlbumContent"), QLatin1String(entry.albums));
        const bool isBio = entry.content == KeloTidalArtistBio();
        rows.append(QVariant(ownRow(request.roles(), path,
                                    isBio ? KeloRolesType::Action() : KeloRolesType::Container(),
                                    entry.title, QString(), context, isBio ? url : QString())));
    }
    KeloRowsRoles answer;
    answer.setRows(rows);
    replyRows(request, answer, count);
}

bool TidalNodeResponder::isArtistFailure(const HttpClientPrivate& priv, int status,
                                         const QByteArray& body)
{
    if (priv.getCMRequest().isNull())
        return true;
    if (status == 200)
        return false;
    const KeloTidalApiErrorResponse error(KeloJson::parse(body));
    if (error.contains(KeloTidalApiErrorResponse::Status())) {
        replyFailure(priv, status, body);
    } else {
        KELO_LOG("Tidal", WARN) << "Failed answer about an artist without a status, code: "
                                << status;
        noteRefusal(priv, status, error);
    }
    return true;
}

void TidalNodeResponder::on_artistResponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                  int status, int, QByteArray const& output,
                                                  HttpClientHeaders)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    if (isArtistFailure(priv, status, output))
        return;
    const KeloTidalApiArtistResponse artist(KeloJson::parse(output));
    createArtistContent(request, request.path().param(QStringLiteral("artistId")), artist.url());
}

void TidalNodeResponder::on_artistContentResponse_invoke(KeloUrl const&,
                                                         HttpClientPrivate const& priv, int status,
                                                         int, QByteArray const& output,
                                                         HttpClientHeaders header)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    if (isArtistFailure(priv, status, output))
        return;
    const int requestedCount = requestedCountOf(request);
    const CMPath& path = request.path();
    const KeloTidalContextVariation::Enum variation = contextType(path);
    const QString content = path.param(QStringLiteral("artistContent"));
    if (content == KeloTidalArtistTracks()) {
        replyTracks(priv, output, KeloError(), requestedCount, path, variation);
    } else if (content == KeloTidalArtistPlaylistsCreated()) {
        replyPlaylists(priv, output, KeloError(), requestedCount,
                       listPath(*m_worker, KeloTidalPlaylists(), path),
                       header.value(QStringLiteral("ETag")), variation);
    } else if (content == KeloTidalArtistAlbums()) {
        replyAlbums(priv, output, KeloError(), requestedCount,
                    listPath(*m_worker, KeloTidalAlbums(), path), variation);
    } else if (content == KeloTidalArtistSimilar()) {
        // With the parameters their rows would list similar artists again.
        replyArtists(priv, output, KeloError(), requestedCount, CMPath(path.base()), variation);
    } else if (content == KeloTidalArtistRadio()) {
        replyRadioTracks(priv, output, KeloError(), requestedCount, path, variation);
    } else {
        KELO_LOG("Tidal", WARN) << "An artist's page has no list " << content;
    }
}

void TidalNodeResponder::on_artistBioResponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                     int status, int, QByteArray const& output,
                                                     HttpClientHeaders)
{
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    if (isArtistFailure(priv, status, output))
        return;
    const KeloTidalApiArtistBioResponse bio(KeloJson::parse(output));
    KeloRoles result;
    result.setTitle(KELO_TR("Artist bio"));
    result.setPath(KeloTidalMessagePath());
    result.setDescription(withoutLinks(bio.text()));
    KeloActionReply reply;
    reply.setXclass(QStringLiteral("KeloActionReply"));
    reply.setResult(result);
    request.reply().setValue(reply.toVariant());
}
