#include "OAuth2Service.h"

#include <kelo/CMActivateNode.h>
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>

namespace {

/// The node at which the login state stands; a value that is sent to it starts a login. Requests
/// reach it on any thread; `activate` runs on the receiver's, in a later turn.
class LoginNode : public CMValueNode
{
public:
    using Activate = std::function<void(const CMSetDataRequest&)>;

    LoginNode(const CMPath& path, QObject* receiver, Activate activate)
        : CMValueNode(path), m_receiver(receiver), m_activate(std::move(activate))
    {
    }

    bool setDataRequest(const CMSetDataRequest& request) override
    {
        if (!isOwnPath(request.path()))
            return replyNotFound(request);
        keloPost(m_receiver, [this, request] { m_activate(request); });
        return true;
    }

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Action_; }

private:
    QObject* const m_receiver;
    const Activate m_activate;
};

CMPath below(const CMPath& path, const QString& segment)
{
    CMPath result = path;
    result.appendSubpath(segment);
    return result;
}

} // namespace

OAuth2Service::OAuth2Service(const KeloOAuth2ServiceInfo& info, CMNodes* nodes, TokenStore& store,
                             TokenEndpoint& endpoint, Clock& clock, QObject* parent)
    : QObject(parent), m_info(info), m_path(below(KeloOAuth2ServicePath(), info.serviceName())),
      m_store(store), m_clock(clock),
      m_login(endpoint, clock,
              {[this](const DeviceCode& code) { onCode(code); },
               [this](const TokenSet& tokens) { adopt(tokens); },
               [this](const LoginProblem& problem) { onLoginFailed(problem); }}),
      m_refresh(endpoint, clock,
                {[this](const TokenSet& tokens) { adopt(tokens); },
                 [this](const LoginProblem& problem) { onRefreshFailed(problem); },
                 [this](const LoginProblem& problem) { endLogin(problem); }})
{
    addNodes(nodes);
    publishToken(QString());
    publish(plainInfo(false));
    loadTokens();
}

void OAuth2Service::addNodes(CMNodes* nodes)
{
    const QList<TrString> name{m_info.displayName()};
    m_tokenNode = CMValueNode::create(nodes, below(m_path, KeloOAuth2AccessTokenSubPath()));
    m_tokenNode->setTitle(KELO_TR("Access token"));
    m_tokenNode->setReadOnly(true);
    m_tokenNode->setSecret(true);

    auto* logout = CMActivateNode::create(nodes, below(m_path, QStringLiteral("logout")), this,
                                          SLOT(on_logout(CMSetDataRequest)), Qt::QueuedConnection);
    logout->setTitle(
        TrString(TrCharData{trExtractContext(Q_FUNC_INFO), "Log out of %1", nullptr}, name));
    auto* refresh =
        CMActivateNode::create(nodes, below(m_path, KeloOAuth2RefreshSubPath()), this,
                               SLOT(on_refresh(CMSetDataRequest)), Qt::QueuedConnection);
    refresh->setTitle(KELO_TR("Renew the access token"));

    m_stateNode = new LoginNode(m_path, this,
                                [this](const CMSetDataRequest& request) { startLogin(request); });
    m_stateNode->setTitle(
        TrString(TrCharData{trExtractContext(Q_FUNC_INFO), "Log in to %1", nullptr}, name));
    m_stateNode->setNodes(nodes);
}

void OAuth2Service::loadTokens()
{
    const TokenSet tokens = m_store.load(m_info);
    const bool isAlive = tokens.isAlive(m_clock.wallMs());
    if (isAlive) {
        publishToken(tokens.access.reveal());
        publishLogin(tokens.user);
    }
    if (isAlive || !tokens.refresh.isEmpty())
        m_refresh.setTokens(m_info, tokens);
}

void OAuth2Service::setInfo(const KeloOAuth2ServiceInfo& info)
{
    const bool isOtherLogin = info.tokenUrl() != m_info.tokenUrl() ||
                              info.clientId() != m_info.clientId() ||
                              info.deviceCodeUrl() != m_info.deviceCodeUrl();
    m_info = info;
    if (!isOtherLogin)
        return;
    m_login.cancel();
    m_refresh.reset();
    answerLogins(CMError(KELO_TR("The login service has changed.")));
    publish(plainInfo(false));
    publishToken(QString());
    loadTokens();
}

void OAuth2Service::startLogin(const CMSetDataRequest& request)
{
    const auto reply = request.reply();
    if (m_state.isPending() && m_login.isExpired()) {
        m_login.cancel(); // it only waits for a last answer; a new code serves the user better
    } else if (m_state.loggedIn() || m_state.isPending()) {
        reply.setValue(m_state.toVariant());
        return;
    }
    if (m_info.clientId().isEmpty()) {
        onLoginFailed({TrString::in("Login", "No client id is set for %1; see the settings.",
                                    {m_info.displayName()}),
                       KeloOAuth2Reason::Client()});
        reply.setError(CMError(m_state.problem()));
        return;
    }
    m_waitingLogins.push_back(reply);
    if (m_login.isRunning())
        return;
    KELO_LOG("OAuth2", INFO) << "Login to " << m_info.displayName() << " starts";
    publish(plainInfo(false));
    m_login.start(m_info);
}

void OAuth2Service::answerLogins(const CMError& error)
{
    const auto waiting = std::move(m_waitingLogins);
    m_waitingLogins.clear();
    for (const auto& reply : waiting) {
        if (error.isSet())
            reply.setError(error);
        else
            reply.setValue(m_state.toVariant());
    }
}

void OAuth2Service::onCode(const DeviceCode& code)
{
    KeloOAuth2Info info = plainInfo(false);
    info.setUserCode(code.userCode);
    info.setVerificationUri(code.verificationUri);
    if (!code.verificationUriComplete.isEmpty())
        info.setVerificationUriComplete(code.verificationUriComplete);
    info.setExpiresIn(int(code.expiresInS));
    publish(info);
    answerLogins(CMError());
}

void OAuth2Service::onLoginFailed(const LoginProblem& problem)
{
    KELO_LOG("OAuth2", WARN) << "Login to " << m_info.displayName() << ": "
                             << problem.text.source();
    publishProblem(problem);
    answerLogins(CMError(problem.text));
}

void OAuth2Service::adopt(const TokenSet& tokens)
{
    m_store.save(m_info, tokens);
    m_refresh.setTokens(m_info, tokens);
    m_login.cancel();
    publishToken(tokens.access.reveal());
    if (!m_state.loggedIn())
        KELO_LOG("OAuth2", INFO) << "Logged in to " << m_info.displayName();
    publishLogin(tokens.user);
    answerLogins(CMError());
}

void OAuth2Service::onRefreshFailed(const LoginProblem& problem)
{
    KELO_LOG("OAuth2", WARN) << "The access token of " << m_info.displayName()
                             << " is not renewed: " << problem.text.source();
    if (m_state.loggedIn() || m_state.isPending())
        return;
    publishProblem({TrString::in("Login", "The login is not renewed yet: %1.", {problem.text}),
                    problem.reason});
}

void OAuth2Service::endLogin(const LoginProblem& problem)
{
    if (problem.isEmpty())
        KELO_LOG("OAuth2", INFO) << "Logged out of " << m_info.displayName();
    else
        KELO_LOG("OAuth2", WARN) << m_info.displayName() << ": " << problem.text.source();
    m_store.remove(m_info);
    if (m_login.isRunning() && !problem.isEmpty())
        return; // the stored login ended while the user is at a new one
    publishProblem(problem);
    publishToken(QString());
}

void OAuth2Service::on_logout(CMSetDataRequest request)
{
    m_login.cancel();
    m_refresh.reset();
    endLogin(LoginProblem());
    answerLogins(CMError(KELO_TR("The login was cancelled.")));
    request.reply().setValue(QVariant());
}

void OAuth2Service::on_refresh(CMSetDataRequest request)
{
    const KeloValue value = KeloValue::fromVariant(request.value());
    const QString refused = value.string_();
    tokenRefused(refused.isEmpty() ? m_accessToken : refused);
    request.reply().setValue(QVariant());
}

KeloOAuth2Info OAuth2Service::plainInfo(bool isLoggedIn) const
{
    KeloOAuth2Info info;
    info.setLoggedIn(isLoggedIn);
    info.setDisplayName(m_info.displayName());
    return info;
}

void OAuth2Service::publishLogin(const QString& user)
{
    m_logins += m_state.loggedIn() ? 0 : 1;
    KeloOAuth2Info info = plainInfo(true);
    info.setLoginNumber(m_logins);
    if (!user.isEmpty())
        info.setUser(user);
    publish(info);
}

void OAuth2Service::publishProblem(const LoginProblem& problem)
{
    KeloOAuth2Info info = plainInfo(false);
    if (!problem.isEmpty()) {
        info.setProblem(problem.text);
        info.setReason(problem.reason);
    }
    publish(info);
}

void OAuth2Service::publish(const KeloOAuth2Info& info)
{
    if (!m_state.isEmpty() && info == m_state)
        return;
    m_state = info;
    KeloValue value;
    value.setOauth2Info(info);
    m_stateNode->setValue(value);
}

void OAuth2Service::publishToken(const QString& token)
{
    m_accessToken = token;
    KeloValue value;
    value.setString(token);
    m_tokenNode->setValue(value);
}
