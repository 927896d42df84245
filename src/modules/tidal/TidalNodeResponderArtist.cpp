#include "TidalNodeResponder.h"
#include <kelo/CMError.h>

// Artist pages, biographies and radios are not built: who asks for one is told so.

namespace {
CMError notBuilt(const TrString& message)
{
    return CMError(QStringLiteral("TIDAL"), message);
}
} // namespace

void TidalNodeResponder::createArtistContent(CMGetRowsRequest const& request, QString const&,
                                             QString const&)
{
    request.reply().setError(notBuilt(KELO_TR("Artist pages are not built yet")));
}

bool TidalNodeResponder::tryResponseRadio(CMGetRowsRequest const&, QString const&)
{
    return false;
}

void TidalNodeResponder::on_artistResponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                  int status, int, QByteArray const& output,
                                                  HttpClientHeaders)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    if (request.isNull())
        return;
    if (status != 200)
        replyFailure(request.reply(), status, output);
    else
        request.reply().setError(notBuilt(KELO_TR("Artist pages are not built yet")));
}

void TidalNodeResponder::on_artistContentResponse_invoke(KeloUrl const&,
                                                         HttpClientPrivate const& priv, int status,
                                                         int, QByteArray const& output,
                                                         HttpClientHeaders)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    if (request.isNull())
        return;
    if (status != 200)
        replyFailure(request.reply(), status, output);
    else
        request.reply().setError(notBuilt(KELO_TR("Lists of artist pages are not built yet")));
}

void TidalNodeResponder::on_artistBioResponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                     int status, int, QByteArray const& output,
                                                     HttpClientHeaders)
{
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    if (request.isNull())
        return;
    if (status != 200)
        replyFailure(request.reply(), status, output);
    else
        request.reply().setError(notBuilt(KELO_TR("Artist biographies are not built yet")));
}
