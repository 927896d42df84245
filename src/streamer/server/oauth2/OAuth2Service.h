#pragma once
#include "DeviceLogin.h"
#include "TokenRefresh.h"
#include "TokenStore.h"

#include <kelo/CMValueNode.h>

/// The login to one service: publishes its state and its access token, logs in and out, and keeps
/// the tokens fresh and stored. Its nodes stand below KeloOAuth2ServicePath()/<name>: the state,
/// which starts a login when a value is sent to it, "accessToken", "logout", and "refresh", which
/// takes the access token that a service refused. Owned by the OAuth2 worker, on its thread.
class OAuth2Service : public QObject
{
    Q_OBJECT
public:
    /// Publishes the state, logged out, before it returns; then what the store knows.
    OAuth2Service(const KeloOAuth2ServiceInfo& info, CMNodes* nodes, TokenStore& store,
                  TokenEndpoint& endpoint, Clock& clock, QObject* parent);

    /// Replaces the description; a login of another client or service ends.
    void setInfo(const KeloOAuth2ServiceInfo& info);
    /// A service refused this access token: it is refreshed unless it is an older one.
    void tokenRefused(const QString& token) { m_refresh.tokenRefused(token); }

private Q_SLOTS:
    void on_logout(CMSetDataRequest request);
    void on_refresh(CMSetDataRequest request);

private:
    void addNodes(CMNodes* nodes);
    void loadTokens();
    void startLogin(const CMSetDataRequest& request);
    void answerLogins(const CMError& error);
    void onCode(const DeviceCode& code);
    void onLoginFailed(const LoginProblem& problem);
    /// Stores the tokens, then uses them: publishes the access token, then the login.
    void adopt(const TokenSet& tokens);
    void onRefreshFailed(const LoginProblem& problem);
    /// An empty problem: the user wants it so.
    void endLogin(const LoginProblem& problem);
    /// The state of a login that stands; another one than before where none stood.
    void publishLogin(const QString& user);
    void publishProblem(const LoginProblem& problem);
    void publish(const KeloOAuth2Info& info);
    /// The state without code and problem.
    KeloOAuth2Info plainInfo(bool isLoggedIn) const;
    void publishToken(const QString& token);

    KeloOAuth2ServiceInfo m_info;
    const CMPath m_path;
    TokenStore& m_store;
    Clock& m_clock;
    CMValueNode* m_stateNode = nullptr; ///< of the node tree, as the next
    CMValueNode* m_tokenNode = nullptr;
    DeviceLogin m_login;
    TokenRefresh m_refresh;
    KeloOAuth2Info m_state;
    int m_logins = 0;                               ///< that have been published
    QString m_accessToken;                          ///< as published
    std::vector<CMReply<QVariant>> m_waitingLogins; ///< answered when there is a code or none
};
