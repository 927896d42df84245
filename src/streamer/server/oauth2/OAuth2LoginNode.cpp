#include "OAuth2LoginNode.h"

#include <kelo/KeloPost.h>

OAuth2LoginNode::OAuth2LoginNode(const CMPath& path, QObject* receiver, Activate activate)
    : CMValueNode(path), m_receiver(receiver), m_activate(std::move(activate))
{
}

bool OAuth2LoginNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    keloPost(m_receiver, [this, request] { m_activate(request); });
    return true;
}
