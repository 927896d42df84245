#include "TidalNewPlaylistForm.h"

#include "TidalNotBuilt.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// The form's fields share one translation context; the comment tells equal words apart.
TrString fieldText(const char* text, const char* comment)
{
    return TrString(TrCharData{"TIDAL", text, comment});
}

CMValueNode* createField(CMNodes* nodes, const CMPath& path, const TrString& title)
{
    CMValueNode* node = CMValueNode::create(nodes, path);
    node->setTitle(title);
    KeloValue empty;
    empty.setString(QString());
    node->setValue(empty);
    return node;
}
} // namespace

TidalPlaylistForm* TidalPlaylistForm::create(TidalWorker* worker, const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    return new TidalPlaylistForm(path, worker);
}

TidalPlaylistForm::TidalPlaylistForm(const CMPath& path, TidalWorker* worker)
    : KeloForm(worker->nodes(), path), m_isCreate(path.contains(KeloTidalCreatePlaylist()))
{
    m_titleNode =
        createField(nodes(), path + QStringLiteral("/title"), fieldText("Title", "Playlist title"));
    m_descriptionNode = createField(nodes(), path + QStringLiteral("/description"),
                                    fieldText("Description", "Playlist description"));
    m_acceptNode = CMActivateNode::create(nodes(), path + QStringLiteral("/accept"), nullptr,
                                          nullptr, Qt::QueuedConnection);
    m_acceptNode->setTitle(m_isCreate ? fieldText("Create", "Playlist create")
                                      : fieldText("Update", "Playlist update"));
    m_acceptNode->setInvoke(this, SLOT(on_acceptNode_invoked(CMSetDataRequest)),
                            Qt::QueuedConnection);

    container()->rowsAppend(m_titleNode->path());
    container()->rowsAppend(m_descriptionNode->path());
    container()->setTitle(m_isCreate ? KELO_TR("Create new playlist") : KELO_TR("Update playlist"));
    container()->setPlayable(false);
    container()->setAcceptPath(m_acceptNode->path());
    container()->setContainerType(KeloRolesContainerType::List_);
}

TidalPlaylistForm::~TidalPlaylistForm() = default;

void TidalPlaylistForm::on_load()
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal");
}

void TidalPlaylistForm::on_acceptNode_invoked(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    replyNotBuilt(request, m_isCreate ? KELO_TR("Creating playlists is not built yet")
                                      : KELO_TR("Changing playlists is not built yet"));
}
