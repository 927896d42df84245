#include "CMNode.h"

#include <numeric>

CMNode::CMNode(const CMPath& path) : m_path(path) {}

CMNode::~CMNode() = default;

void CMNode::setNodes(CMNodes* nodes)
{
    m_nodes = nodes;
    nodes->add(this);
}

CMSubscribe* CMNode::subscribe() const
{
    return m_nodes ? m_nodes->subscribe() : nullptr;
}

bool CMNode::getDataRequest(const CMGetDataRequest& request)
{
    return !isOwnPath(request.path()) && replyNotFound(request);
}

bool CMNode::setDataRequest(const CMSetDataRequest& request)
{
    return !isOwnPath(request.path()) && replyNotFound(request);
}

bool CMNode::getRowsRequest(const CMGetRowsRequest& request)
{
    return !isOwnPath(request.path()) && replyNotFound(request);
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

KeloRoles CMNode::getDataRoles(const CMPath::Params&) const
{
    return KeloRoles();
}

KeloValue CMNode::nodeValue() const
{
    return KeloValue();
}

void CMNode::rowsPathAdd(const CMPath& path)
{
    countPath(path, 1);
}

void CMNode::rowsPathRemove(const CMPath& path)
{
    countPath(path, -1);
}

void CMNode::dataPathAdd(const CMPath& path)
{
    countPath(path, 1);
}

void CMNode::dataPathRemove(const CMPath& path)
{
    countPath(path, -1);
}

void CMNode::valuePathAdd(const CMPath& path)
{
    countPath(path, 1);
}

void CMNode::valuePathRemove(const CMPath& path)
{
    countPath(path, -1);
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
