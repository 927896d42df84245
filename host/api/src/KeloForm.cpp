#include "KeloForm.h"

/// The form's container: tells the form when it is opened, and lets the accept path know under
/// which parameters. Owned by the tree, before the form.
class KeloForm::Container : public CMListRowsNode
{
public:
    Container(KeloForm* form, const CMPath& path) : CMListRowsNode(path), m_form(form) {}

    bool getRowsRequest(const CMGetRowsRequest& request) override
    {
        if (isOwnPath(request.path()))
            m_form->on_load();
        return CMListRowsNode::getRowsRequest(request);
    }

protected:
    CMPath acceptPathFor(const CMPath& acceptPath, const CMPath::Params& params) const override
    {
        CMPath path = acceptPath;
        path.addParams(params);
        return path;
    }

private:
    KeloForm* m_form;
};

KeloForm::KeloForm(CMNodes* nodes, const CMPath& path)
    : m_nodes(nodes), m_container(new Container(this, path))
{
    m_container->setNodes(nodes);
    nodes->own(this);
}
