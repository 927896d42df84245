#pragma once
#include "OAuth2Service.h"

#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <memory>
#include <QHash>

/// The host's OAuth2 service: modules register a service at KeloOAuth2AddServicePath() and find its
/// login state and access token in the tree. Made by serve, lives on a thread of its own.
class OAuth2Worker : public CMNodesWorker
{
    Q_OBJECT
public:
    /// Keeps tokens in `folder`. Endpoint and clock are the real ones unless given.
    explicit OAuth2Worker(const QString& folder, std::unique_ptr<TokenEndpoint> endpoint = nullptr,
                          std::unique_ptr<Clock> clock = nullptr);
    ~OAuth2Worker() override;

private Q_SLOTS:
    void on_add(CMSetDataRequest request);

private:
    /// What is wrong with a description; empty when nothing is.
    QString fault(const KeloOAuth2ServiceInfo& info) const;

    TokenStore m_store;
    std::unique_ptr<TokenEndpoint> m_endpoint;
    std::unique_ptr<Clock> m_clock;
    CMListRowsNode* m_list; ///< of the node tree
    QHash<QString, OAuth2Service*> m_services;
};
