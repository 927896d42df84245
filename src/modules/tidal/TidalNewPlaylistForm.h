#pragma once
#include <kelo/CMActivateNode.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloForm.h>

class TidalWorker;

/// Form by which a playlist is created, or renamed and described anew: which of them, its path
/// tells. Opened from an item's menu it adds the item to the new playlist. Owned by the worker's
/// tree; its slots run on the worker's thread. What was filled in stays until the service has taken
/// it.
class TidalPlaylistForm : public KeloForm
{
    Q_OBJECT
public:
    static TidalPlaylistForm* create(TidalWorker* worker, const CMPath& path);

    void on_load() override;
    /// The service has created the playlist: adds the item that the form was opened for, if there
    /// is one, and answers. The addition's end is only logged.
    void addPlaylistFinish(const CMSetDataRequest& request, const QString& playlistId,
                           const QString& etag);
    /// The service has changed the playlist: answers, and sends the client to My Music.
    void updatePlaylistFinish(const CMSetDataRequest& request);

public Q_SLOTS:
    void on_acceptNode_invoked(const CMSetDataRequest& request);

private:
    TidalPlaylistForm(const CMPath& path, TidalWorker* worker);
    void addItem(const CMPath& formPath, const QString& playlistId, const QString& etag);
    void clearFields();

    TidalWorker* m_worker;
    bool m_isCreate;
    CMValueNode* m_titleNode;
    CMValueNode* m_descriptionNode;
};
