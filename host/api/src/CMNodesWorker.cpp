#include "CMNodesWorker.h"

#include "CMUINode.h"
#include "KeloLog.h"

namespace {
/// Answers what the node did not take.
void refuse(const CMNode* node, const CMRequest& request)
{
    const CMVoidReply reply = request.reply();
    const QString path = request.path().toEncoded();
    if (!node)
        reply.setError(CMError::nothingAt(path));
    else if (!reply.isFinished())
        reply.setError(
            CMError(QStringLiteral("Refused"),
                    TrString(TrCharData{"CMNodesWorker", "%1 does not take this request", nullptr},
                             {path})));
}
} // namespace

CMNodesWorker::CMNodesWorker(const QVariantHash& settings, const QString& serviceId,
                             QObject* parent)
    : CMWorker(settings, serviceId, parent), m_nodes(new CMNodes)
{
}

void CMNodesWorker::getDataRequest(const CMGetDataRequest& request)
{
    CMNode* node = m_nodes->findNearest(request.path());
    if (!node || !node->getDataRequest(request))
        refuse(node, request);
}

void CMNodesWorker::setDataRequest(const CMSetDataRequest& request)
{
    CMNode* node = m_nodes->findNearest(request.path());
    if (!node || !node->setDataRequest(request))
        refuse(node, request);
}

void CMNodesWorker::getRowsRequest(const CMGetRowsRequest& request)
{
    CMNode* node = matchRowRequest(request);
    if (!node || !node->getRowsRequest(request))
        refuse(node, request);
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
