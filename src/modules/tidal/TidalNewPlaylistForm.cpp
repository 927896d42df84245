#include "TidalNewPlaylistForm.h"

#include "TidalActionReply.h"
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// The form's fields share one translation context; the comment tells equal words apart.
TrString fieldText(const char* text, const char* comment)
{
    return TrString(TrCharData{"TIDAL", text, comment});
}

void clear(CMValueNode* node)
{
    KeloValue empty;
    empty.setString(QString());
    node->setValue(empty);
}

CMValueNode* createField(CMNodes* nodes, const CMPath& path, const TrString& title)
{
    CMValueNode* node = CMValueNode::create(nodes, path);
    node->setTitle(title);
    clear(node);
    return node;
}
} // namespace

TidalPlaylistForm* TidalPlaylistForm::create(TidalWorker* worker, const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    return new TidalPlaylistForm(path, worker);
}

TidalPlaylistForm::TidalPlaylistForm(const CMPath& path, TidalWorker* worker)
    : KeloForm(worker->nodes(), path), m_worker(worker),
      m_isCreate(path.contains(KeloTidalCreatePlaylist()))
{
    m_titleNode =
        createField(nodes(), path + QStringLiteral("/title"), fieldText("Title", "Playlist title"));
    m_descriptionNode = createField(nodes(), path + QStringLiteral("/description"),
                                    fieldText("Description", "Playlist description"));
    CMActivateNode* accept =
        CMActivateNode::create(nodes(), path + QStringLiteral("/accept"), this,
                               SLOT(on_acceptNode_invoked(CMSetDataRequest)), Qt::QueuedConnection);
    accept->setTitle(m_isCreate ? fieldText("Create", "Playlist create")
                                : fieldText("Update", "Playlist update"));

    container()->rowsAppend(m_titleNode->path());
    container()->rowsAppend(m_descriptionNode->path());
    container()->setTitle(m_isCreate ? KELO_TR("Create new playlist") : KELO_TR("Update playlist"));
    container()->setPlayable(false);
    container()->setAcceptPath(accept->path());
    container()->setContainerType(KeloRolesContainerType::List_);
}

void TidalPlaylistForm::on_load()
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal");
}

void TidalPlaylistForm::on_acceptNode_invoked(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    const QString title = m_titleNode->value().string_();
    const QString description = m_descriptionNode->value().string_();
    if (m_isCreate) {
        m_worker->getHandler()->createNewPlaylist(request, title, description);
        return;
    }
    m_worker->getHandler()->updatePlaylist(request, title, description,
                                           TidalWorker::playlistIdOf(request.path()));
}

void TidalPlaylistForm::clearFields()
{
    clear(m_titleNode);
    clear(m_descriptionNode);
}

void TidalPlaylistForm::addPlaylistFinish(const CMSetDataRequest& request,
                                          const QString& playlistId, const QString& etag)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    if (!request.path().params().isEmpty() && !playlistId.isEmpty() && !etag.isEmpty())
        addItem(request.path(), playlistId, etag);
    m_worker->finishEdit(request, CMEdit::Create(), CMPath(),
                         tidalActionReply({container()->path()}));
    clearFields();
}

void TidalPlaylistForm::addItem(const CMPath& formPath, const QString& playlistId,
                                const QString& etag)
{
    // Whatever is no track is added as an album; deliberate.
    const bool isTrack = formPath.param(QStringLiteral("type")) == KeloTidalTracks();
    CMPath path = m_worker->addToPlaylistNode(false)->path();
    path.addParams({{QStringLiteral("ETag"), etag},
                    {QStringLiteral("contentId"), playlistId},
                    {QStringLiteral("playlistId"), playlistId},
                    {QStringLiteral("id"), formPath.param(QStringLiteral("id"))},
                    {QStringLiteral("rowNum"), QStringLiteral("0")},
                    {QStringLiteral("type"), isTrack ? KeloTidalTracks() : KeloTidalAlbums()}});
    if (isTrack)
        path.addParam(QStringLiteral("artists"), formPath.param(QStringLiteral("artists")));
    // As from outside, so that it has a deadline: an edit is begun again for as long as its request
    // waits.
    const CMSetDataRequest addition(path, KeloRoles::Value(), 1);
    CMRoot().request(addition);
    const CMReply<QVariant> reply = addition.reply();
    reply.addWatcher(this, [reply] {
        if (const CMError error = reply.error(); error.isSet())
            KELO_LOG("Tidal", ERROR)
                << "Can not add Track to playlist. Error message: " << error.message();
    });
}

void TidalPlaylistForm::updatePlaylistFinish(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    clearFields();
    KeloRoles result;
    result.setPath(m_worker->myMusicNode()->path());
    KeloActionReply reply = tidalActionReply({container()->path()});
    reply.setResult(result);
    m_worker->finishEdit(request, CMEdit::Rename(),
                         TidalWorker::tracksPath(TidalWorker::playlistIdOf(request.path())), reply);
}
