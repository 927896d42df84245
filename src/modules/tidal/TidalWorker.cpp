#include "TidalWorker.h"

#include "TidalHandler.h"
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMSlot.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloModule.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/PlayLogicInterface.h>

namespace {
QString settingText(const CMPath& path)
{
    const QVariant value = CMAbstractWorker::getValue(CMRoot(), path);
    return KeloValue(KeloHash(value.toHash())).string_();
}

KeloOAuth2ServiceInfo serviceInfo()
{
    const QString scope = settingText(KeloTidalScope());
    KeloOAuth2ServiceInfo info;
    info.setServiceName(KeloTidalName());
    info.setDisplayName(QStringLiteral("Tidal"));
    info.setAuthorizationUrl(settingText(KeloTidalAuthorizationServiceUrlPath()));
    info.setClientId(settingText(KeloTidalClientIdPath()));
    info.setClientSecret(settingText(KeloTidalClientSecretPath()));
    info.setTokenUrl(settingText(KeloTidalTokenServiceUrlPath()));
    info.setScope(scope);
    info.setScopeData(QVariant(scope));
    info.setUsePkce(true);
    info.setAuthMethod(KeloOAuth2AuthMethod::RequestBody_);
    info.setDeviceCodeUrl(settingText(KeloTidalDeviceCodeUrlPath()));
    return info;
}
} // namespace

KELO_MODULE_INTERFACE

/// The module's entry; see KeloWorkerCreate.
extern "C" Q_DECL_EXPORT void* worker_create(const char* name, void* settings)
{
    {
        auto line = dbglog_scopedFunction(Q_FUNC_INFO, "Tidal");
        if (name)
            line << "name: " << name;
    }
    const auto* hash = static_cast<const QVariantHash*>(settings);
    auto* worker = new TidalWorker(hash ? *hash : QVariantHash());
    // Requests on context menus do not pass the gate, and one of them may be the first of all.
    worker->buildStaticStructure();
    return worker;
}

TidalWorker::TidalWorker(const QVariantHash& settings)
    : CMNodesWorker(settings, KeloService_Tidal_Id())
{
    CMActivateNode::create(nodes(), KeloTidalPlayIdPath(), this,
                           SLOT(on_tidalId_play(CMSetDataRequest)), Qt::QueuedConnection);
    CMActivateNode::create(nodes(), KeloTidalGetMediaPath(), this,
                           SLOT(on_media_get(CMSetDataRequest)), Qt::QueuedConnection);
    CMActivateNode* playMedia =
        CMActivateNode::create(nodes(), KeloTidalPlayMediaPath(), this,
                               SLOT(on_media_play(CMSetDataRequest)), Qt::QueuedConnection);
    playMedia->setActivateRole(KeloRoles::PrePlay());

    m_settingsItem = new CMValueItem(this, KeloTidalSettingsPath(), this,
                                     SLOT(on_internal_settingsChanged(KeloValue)));
    const QVariant value = CMAbstractWorker::getValue(CMRoot(), KeloTidalSettingsPath());
    m_settings = KeloValue(KeloHash(value.toHash())).tidalSettings();
    m_handler = new TidalHandler(this, m_settings.apiUrl(), m_settings.countryCode());

    keloConnect(nodes()->subscribe(), SIGNAL(rowsPathAdded(CMPath const&)), this,
                SLOT(on_tidal_path_enter(CMPath const&)));
    keloConnect(nodes()->subscribe(), SIGNAL(rowsPathRemoved(CMPath const&)), this,
                SLOT(on_tidal_path_leave(CMPath const&)));
    m_player = PlayLogicInterface::instance(KeloPlayerPath());

    m_playlistTracksSetting.setOrder(KeloTidalOrder::Index_);

    CMListRowsNode* message = CMListRowsNode::create(nodes(), KeloTidalMessagePath());
    message->setTitle(KELO_TR("Info message"));
    KeloRowsRoles messageRoles;
    messageRoles.setType({KeloRowsRolesType::Default_});
    message->setRowsRoles(messageRoles);
    KeloRoles successful;
    successful.setTitle(KELO_TR("Successful"));
    message->rowsAppend(successful);
    m_subscription = CMValueNode::create(nodes(), KeloTidalSubscriptionPath());
    m_subscription->setTitle(KELO_TR("Subscription"));
    m_subscription->setReadOnly(true);
    m_top = CMListRowsNode::create(nodes(), addPrefix(QString()));
    m_top->setTitle(KELO_TR("TIDAL"));

    registerService();
    m_oauthItem = new CMValueItem(this, loginPath(), this,
                                  SLOT(on_serviceOAuth_changed(KeloValue, KeloValue)));
    m_oauthItem->waitForLoaded(-1);
}

TidalWorker::~TidalWorker()
{
    // The handler's answers and the nodes' slots must not find a worker that is half gone.
    nodes()->subscribe()->disconnect(this);
    delete m_oauthItem;
    delete m_settingsItem;
    delete m_handler;
    m_handler = nullptr;
}

void TidalWorker::registerService()
{
    CMReply<QVariant> reply;
    CMAbstractWorker::invoke(CMRoot(), KeloOAuth2AddServicePath(), serviceInfo().toVariant(),
                             reply);
    reply.waitForFinished(-1);
    if (const CMError error = reply.error(); error.isSet())
        KELO_LOG("Tidal", ERROR) << "The OAuth2 service refused the registration: "
                                 << error.message();
}

CMPath TidalWorker::loginPath()
{
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(KeloTidalName());
    return path;
}

void TidalWorker::on_internal_settingsChanged(KeloValue value)
{
    const KeloTidalSettings settings = value.tidalSettings();
    m_settings.setCountryCode(settings.countryCode());
    m_settings.setApiUrl(settings.apiUrl());
    if (!m_handler)
        return;
    m_handler->setCountryCode(settings.countryCode());
    m_handler->setApiUrl(settings.apiUrl());
}

CMPath TidalWorker::artistsPath() const
{
    return addPrefix(KeloTidalRequest()) + QStringLiteral("/") + KeloTidalArtists().toLower();
}

CMPath TidalWorker::albumsPath() const
{
    return addPrefix(KeloTidalRequest()) + QStringLiteral("/") + KeloTidalAlbums().toLower();
}
