// The radio of an artist: it is kept, so that later rows of it need no request.
#include "TidalHandler.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>

void TidalNodeResponder::forgetRadio()
{
    m_radio = Radio();
}

KeloRowsRoles TidalNodeResponder::radioRows(const CMGetRowsRequest& request, const Radio& radio,
                                            int first, int count)
{
    TidalItemRows::Page shown = page(request.roles(), radio.path, contextType(radio.path));
    shown.itemPath = m_worker->addPrefix(QStringLiteral("/nowPlay"));
    TidalTrackRows maker(shown);
    qint64 number = request.from();
    const qint64 end = qMin<qint64>(radio.size(), qint64(first) + count);
    for (qint64 index = first; index < end; ++index)
        maker.row(radio.tracks[std::size_t(index)].json(), number++);
    KeloRowsRoles rows;
    rows.setBlock(maker.take());
    return rows;
}

void TidalNodeResponder::replyRadioTracks(HttpClientPrivate const& priv, QByteArray const& body,
                                          KeloError error, int requestedCount, CMPath const& path,
                                          KeloTidalContextVariation::Enum)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    KELO_LOG("Tidal", DEBUG) << "Clear radio list.";
    forgetRadio();
    const KeloTidalApiTracksResponse list(parsed(body, error));
    if (list.totalNumberOfItems() == 0) {
        replyNoItems(request);
        return;
    }
    const Radio radio = {path.param(QStringLiteral("artistId")), path, list.items()};
    const KeloRowsRoles rows = radioRows(request, radio, 0, requestedCount);
    if (request.from() == 0 && !m_handler->isOfEarlierLogin(priv))
        m_radio = radio;
    KELO_LOG("Tidal", DEBUG) << "New radio list is created, new size: " << m_radio.size();
    replyRows(request, rows,
              exactRows(request, requestedCount, rows.size(), list.totalNumberOfItems()));
}

bool TidalNodeResponder::tryResponseRadio(CMGetRowsRequest const& request, QString const& artistId)
{
    KELO_LOG("Tidal", DEBUG) << "From row: " << request.from() << ", to Row: " << request.to()
                             << ", m_radioList size: " << m_radio.size();
    if (m_radio.size() == 0 || m_radio.artistId != artistId)
        return false;
    replyRows(request, radioRows(request, m_radio, request.from(), requestedCountOf(request)),
              m_radio.size());
    return true;
}
