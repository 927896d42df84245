#pragma once
#include <kelo/CMActivateNode.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloForm.h>

class TidalWorker;

/// Form by which a playlist is created, or renamed and described anew: which of them, its path
/// tells. Owned by the worker's tree; its slots run on the worker's thread. Submitting it is not
/// built: it is answered with an error that says so.
class TidalPlaylistForm : public KeloForm
{
    Q_OBJECT
public:
    static TidalPlaylistForm* create(TidalWorker* worker, const CMPath& path);
    ~TidalPlaylistForm() override;

    void on_load() override;

public Q_SLOTS:
    void on_acceptNode_invoked(const CMSetDataRequest& request);

private:
    TidalPlaylistForm(const CMPath& path, TidalWorker* worker);

    bool m_isCreate;
    CMValueNode* m_titleNode;
    CMValueNode* m_descriptionNode;
    CMActivateNode* m_acceptNode;
};
