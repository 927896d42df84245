// The gate that requests pass, the set-up of the user's session, and logging in and out.
#include "TidalActionReply.h"
#include "TidalHandler.h"
#include "TidalNode.h"
#include <kelo/CMListRowsNode.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloPost.h>

namespace {
/// A subscription's type as people write it: PREMIUM_PLUS is "Premium Plus".
QString subscriptionName(const QString& type)
{
    QStringList words = type.split('_', Qt::SkipEmptyParts);
    for (QString& word : words)
        word = word == QLatin1String("HIFI") ? QStringLiteral("HiFi")
                                             : word.left(1).toUpper() + word.mid(1).toLower();
    return words.join(' ');
}
} // namespace

bool TidalWorker::isLoggedIn() const
{
    return m_oauthItem && m_oauthItem->value().oauth2Info().loggedIn();
}

CMError TidalWorker::loggedOutError()
{
    return tidalError(
        TrString(TrCharData{"void TidalWorker::configureUser()", "User was logged out", nullptr}));
}

bool TidalWorker::buildStaticStructure()
{
    if (!m_tree) {
        m_tree = std::make_unique<TidalTree>(this);
        resetTopNode();
    }
    return true;
}

bool TidalWorker::configure(const CMRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    if (!buildStaticStructure()) {
        request.reply().setError(tidalError(KELO_TR("Failed to initialize TIDAL UI")));
        return false;
    }
    if (!isLoggedIn()) {
        const CMGetRowsRequest rows(request);
        if (!rows.isNull() && rows.path() == m_top->path())
            CMNodesWorker::getRowsRequest(rows);
        else
            request.reply().setError(tidalError(KELO_TR("Not logged into TIDAL!")));
        return false;
    }
    if (m_session.state != UserConfigState::NotConfigured && isLoginChanging()) {
        // Behind the notice, so that it is served in the login that it finds.
        keloPost(this, [this, request] { returnToRequest(request); });
        return false;
    }
    switch (m_session.state) {
    case UserConfigState::Configured:
        return true;
    case UserConfigState::SessionPending:
    case UserConfigState::SubscriptionPending:
        postpone(request);
        return false;
    case UserConfigState::NotConfigured:
        postpone(request);
        configureUser();
        return false;
    default:
        request.reply().setError(tidalError(KELO_TR("TIDAL in invalid state!")));
        return false;
    }
}

void TidalWorker::configureUser()
{
    if (!isLoggedIn()) {
        failSetUp(KELO_TR("User was logged out"));
        return;
    }
    // The state comes before the request, so that an answer finds it whenever it comes.
    switch (m_session.state) {
    case UserConfigState::NotConfigured:
        m_session.state = UserConfigState::SessionPending;
        ++m_session.number;
        if (!m_handler->retrieveSession())
            failSetUp(KELO_TR("Failed to initialize TIDAL"));
        break;
    case UserConfigState::SessionPending:
        m_session.state = UserConfigState::SubscriptionPending;
        if (!m_handler->subscribe())
            failSetUp(KELO_TR("Failed to initialize TIDAL"));
        break;
    case UserConfigState::SubscriptionPending:
    case UserConfigState::Configured:
        m_session.state = UserConfigState::Configured;
        finishPosponedRequests(CMError());
        break;
    }
}

void TidalWorker::failSetUp(const TrString& message)
{
    m_session.state = UserConfigState::NotConfigured;
    finishPosponedRequests(tidalError(message));
}

void TidalWorker::resumeSetUp()
{
    if (m_session.state == UserConfigState::NotConfigured && !m_session.postponed.isEmpty())
        configureUser();
}

bool TidalWorker::isExpectedAnswer(UserConfigState::Enum state)
{
    if (m_session.state == state && !m_handler->responder()->isOfEarlierLogin()) {
        if (!isLoginChanging())
            return true;
        m_session.state = UserConfigState::NotConfigured;
    }
    KELO_LOG("Tidal", DEBUG) << "Answer of an earlier set-up dropped";
    resumeSetUp();
    return false;
}

void TidalWorker::on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse session,
                                                   KeloTidalApiErrorResponse error)
{
    if (!isExpectedAnswer(UserConfigState::SessionPending))
        return;
    if (!isLoggedIn()) {
        configureUser();
    } else if (!error.isEmpty()) {
        failSetUp(KELO_TR("Failed to initialize TIDAL"));
    } else {
        m_handler->setAccount(session.sessionId(), session.countryCode(), session.userId());
        updateUIStructure();
        configureUser();
    }
}

void TidalWorker::on_tidalHandler_subscriptionFinished(
    KeloTidalApiSubscriptionResponse subscription, KeloTidalApiErrorResponse error)
{
    // Read before the check, which then says that it is the login that was asked for.
    KeloOAuth2Info login = m_oauthItem->value().oauth2Info();
    if (!isExpectedAnswer(UserConfigState::SubscriptionPending))
        return;
    if (!isLoggedIn()) {
        configureUser();
    } else if (!error.isEmpty()) {
        failSetUp(KELO_TR("Failed to initialize TIDAL"));
    } else {
        m_handler->setAccountSoundQuality(
            KeloTidalSoundQualities::fromString(subscription.highestSoundQuality()));
        login.setSubscription(subscriptionName(subscription.type()));
        KeloValue value;
        value.setOauth2Info(login);
        m_subscription->setValue(value);
        configureUser();
    }
}

void TidalWorker::on_serviceOAuth_changed(const KeloValue& newValue, const KeloValue& oldValue)
{
    const bool loggedIn = newValue.oauth2Info().loggedIn();
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "Logged in: " << loggedIn;
    if (oldValue.isEmpty() || loggedIn == oldValue.oauth2Info().loggedIn())
        return;
    if (!loggedIn) {
        m_session.state = UserConfigState::NotConfigured;
        ++m_session.number;
        m_handler->resetAccount();
        m_subscription->setValue(KeloValue());
        m_playlistPath = CMPath();
        // A copy: clients that are told may close their paths at once.
        const QSet<CMPath> entered = m_open.entered;
        for (const CMPath& path : entered)
            nodes()->subscribe()->changedStartingWith(path, CMSubscribe::RowsChangeClose(), -1, -1);
    }
    resetTopNode();
    if (loggedIn)
        resumeSetUp();
}

void TidalWorker::resetTopNode()
{
    const bool loggedIn = isLoggedIn();
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal")
        << "Is ui initialize: " << bool(m_tree) << ", is logged in: " << loggedIn;
    if (!m_tree)
        return;
    m_top->rowsClear();
    m_top->setSearchPath(CMPath());
    if (!loggedIn) {
        m_top->rowsAppend(tidalRow(KeloRolesType::Text_, KELO_TR("Please login to continue")));
        m_top->rowsAppend(loginPath());
        return;
    }
    for (const CMListRowsNode* menu : m_tree->topMenus)
        m_top->rowsAppend(menu->path());
    m_top->setSearchPath(m_tree->searchContainer->path());
}

void TidalWorker::updateUIStructure()
{
    if (!buildStaticStructure())
        return;
    m_handler->getContentRoots(QStringLiteral("featured"));
    if (m_tree->genres->rowsSize() > 0)
        return;
    m_handler->getContentRoots(QStringLiteral("genres"));
    m_handler->getContentRoots(QStringLiteral("moods"));
}
