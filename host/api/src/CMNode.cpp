#include "CMNode.h"

#include <numeric>

void CMNode::setNodes(CMNodes* nodes)
{
    m_nodes = nodes;
    nodes->add(this);
}

bool CMNode::request(const CMRequest& request)
{
    switch (request.kind()) {
    case CMRequestData::Kind::GetRows:
        return getRowsRequest(CMGetRowsRequest(request));
    case CMRequestData::Kind::SetData:
        return setDataRequest(CMSetDataRequest(request));
    default:
        return getDataRequest(CMGetDataRequest(request));
    }
}

void CMNode::countPath(const CMPath& path, int step)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int& count = m_openPaths[path];
    count += step;
    if (count <= 0)
        m_openPaths.remove(path);
}

int CMNode::openPaths() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return std::accumulate(m_openPaths.cbegin(), m_openPaths.cend(), 0);
}

bool CMNode::replyNotFound(const CMRequest& request)
{
    request.reply().setError(CMError::nothingAt(request.path().toEncoded()));
    return true;
}
