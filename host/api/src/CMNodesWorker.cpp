#include "CMNodesWorker.h"

#include "CMUINode.h"
#include "KeloLog.h"

namespace {
/// Lets the node serve the request; a refusal, or no node, becomes an error answer.
template <class Request>
void serve(CMNode* node, const Request& request, bool (CMNode::*operation)(const Request&))
{
    if (!node) {
        request.reply().setError(CMError::nothingAt(request.path().toEncoded()));
        return;
    }
    if ((node->*operation)(request) || request.reply().isFinished())
        return;
    request.reply().setError(
        CMError(QStringLiteral("Refused"),
                TrString(TrCharData{"CMNodesWorker", "%1 does not take this request", nullptr},
                         {request.path().toEncoded()})));
}
} // namespace

CMNodesWorker::CMNodesWorker(const QVariantHash& settings, const QString& serviceId,
                             QObject* parent)
    : CMWorker(settings, serviceId, parent), m_nodes(new CMNodes)
{
}

CMNodesWorker::~CMNodesWorker() = default;

CMNodes* CMNodesWorker::nodes() const
{
    return m_nodes.get();
}

void CMNodesWorker::getDataRequest(const CMGetDataRequest& request)
{
    serve(m_nodes->findNearest(request.path()), request, &CMNode::getDataRequest);
}

void CMNodesWorker::setDataRequest(const CMSetDataRequest& request)
{
    serve(m_nodes->findNearest(request.path()), request, &CMNode::setDataRequest);
}

void CMNodesWorker::getRowsRequest(const CMGetRowsRequest& request)
{
    serve(matchRowRequest(request), request, &CMNode::getRowsRequest);
}

KeloValue CMNodesWorker::nodeValue(const CMPath& path) const
{
    const CMNode* node = m_nodes->find(path);
    return node ? node->nodeValue() : KeloValue();
}

KeloRoles CMNodesWorker::dataRoles(const CMPath& path) const
{
    const CMNode* node = m_nodes->find(path);
    return node ? node->getDataRoles(path.params()) : KeloRoles();
}

KeloRoles CMNodesWorker::servingRoles(const CMPath& path) const
{
    const CMNode* node = m_nodes->findNearest(path);
    return node ? node->getDataRoles(path.params()) : KeloRoles();
}

CMSubscribe* CMNodesWorker::subscription() const
{
    return m_nodes->subscribe();
}

CMNode* CMNodesWorker::matchRowRequest(const CMGetRowsRequest& request) const
{
    return m_nodes->findNearest(request.path());
}

void CMNodesWorker::connectChange(const CMPath& path, QObject* receiver, const char* slot)
{
    connectRowsChange(path, receiver, slot);
}

void CMNodesWorker::disconnectChange(const CMPath& path, QObject* receiver)
{
    disconnectRowsChange(path, receiver);
}
