// Editing of playlists and favorites. Not built: each action answers its request with an error that
// says so.
#include "TidalNotBuilt.h"
#include "TidalWorker.h"

void TidalWorker::on_tidalHandler_finishedPlaylists(CMSetDataRequest request,
                                                    KeloTidalContextVariation::Enum,
                                                    KeloTidalApiErrorResponse, QVariant, QString,
                                                    KeloTidalRequestType::Enum)
{
    replyNotBuilt(request, KELO_TR("Changing playlists is not built yet"));
}

void TidalWorker::on_tidalHandler_finishedFavorites(CMSetDataRequest request,
                                                    KeloTidalContextVariation::Enum,
                                                    KeloTidalApiErrorResponse)
{
    replyNotBuilt(request, KELO_TR("Changing favorites is not built yet"));
}

void TidalWorker::on_newPlaylist_invoke(const CMSetDataRequest& request, const QString&,
                                        const QString&)
{
    replyNotBuilt(request, KELO_TR("Creating playlists is not built yet"));
}

void TidalWorker::on_updatePlaylist_invoke(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Changing playlists is not built yet"));
}

void TidalWorker::on_movePlaylistTrack_invoke(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Moving tracks is not built yet"));
}

void TidalWorker::on_addToPlaylist_invoke(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Adding to playlists is not built yet"));
}

void TidalWorker::on_removeFromPlaylist_invoke(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Removing from playlists is not built yet"));
}

void TidalWorker::on_move_activation(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Moving tracks is not built yet"));
}
