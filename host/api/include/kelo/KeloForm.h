#pragma once
#include "CMListRowsNode.h"

/// Base of forms: an object that owns a container node whose rows are the fields. The container's
/// accept path carries the parameters of the path that the form was opened under, so that what
/// submits it knows what it was opened for. Owned by the tree.
class KELO_EXPORT KeloForm : public QObject
{
    Q_OBJECT
public:
    KeloForm(CMNodes* nodes, const CMPath& path);

    CMNodes* nodes() const { return m_nodes; }
    /// Where the form's container stands.
    const CMPath& path() const { return m_container->path(); }
    CMListRowsNode* container() const { return m_container; }

    /// Called on the thread that serves the request whenever a client asks for the form's rows.
    virtual void on_load() {}

private:
    class Container;
    CMNodes* m_nodes;
    CMListRowsNode* m_container;
};
