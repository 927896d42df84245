#include <cstdlib>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMQueryNode.h>
#include <kelo/CMRoot.h>
#include <kelo/CMValueItem.h>
#include <kelo/KeloModule.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/PlayLogicInterface.h>
#include <stdexcept>
#include <unistd.h>

#ifdef SHELF_IS_OLD
#undef KELO_INTERFACE_VERSION
#define KELO_INTERFACE_VERSION "0.0"
#endif

/// A module with one list of tones, for tests. Its settings say what it does wrong: "how" is one of
/// throws, throwsNumber, null, hangs, exits, stays (when it is to end), or of its prefixes noPaths,
/// top, throwsPaths. One that hangs waits for the end of the pipe "until" (for ever without one)
/// and closes "gone" when its worker is deleted. Where the environment names the pipe
/// (SHELF_UNTIL), its first code hangs in that way.
class ShelfWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    ShelfWorker(const QVariantHash& settings, const QString& name) : CMNodesWorker(settings, name)
    {
        const QVariantHash own = settings["settings"].toHash();
        m_how = own["how"].toString();
        m_uri = own["uri"].toString();
        m_gone = own.value("gone", -1).toInt();
        m_loginPath.appendSubpath(name);
        m_login = new CMValueItem(this, m_loginPath, this, SLOT(on_login()));
        auto* top = m_top = CMListRowsNode::create(nodes(), addPrefix(QString()));
        top->setTitle(own.value("title", "Shelf").toString());
        auto* tones = CMListRowsNode::create(nodes(), addPrefix("tones"));
        tones->setTitle(QString("Tones"));
        tones->setPlayable(true);
        auto* find = CMQueryNode::create(nodes(), addPrefix("find"));
        find->setQuery("text");
        find->setQueryPath(tones->path());
        top->setSearchPath(find->path());
        const CMPath play = addPrefix("play");
        for (int i = 1; i <= 60; ++i)
            tones->rowsAppend(tone(QString("Tone %1").arg(i), tones->path(), play));
        CMActivateNode::create(nodes(), play, this, SLOT(on_play(CMSetDataRequest)),
                               Qt::QueuedConnection)
            ->setActivateRole(KeloRoles::PrePlay());
        auto* crash =
            CMActivateNode::create(nodes(), addPrefix("crash"), this,
                                   SLOT(on_crash(CMSetDataRequest)), Qt::QueuedConnection);
        crash->setTitle(QString("Crash"));
        on_login();
        CMActivateNode::create(nodes(), addPrefix("register"), this,
                               SLOT(on_register(CMSetDataRequest)), Qt::QueuedConnection);
    }
    void getRowsRequest(const CMGetRowsRequest& request) override
    {
        if (request.path() != m_top->path() && wantsLogin())
            request.reply().setError(CMError("Shelf", QString("The shelf is locked")));
        else
            CMNodesWorker::getRowsRequest(request);
    }
    ~ShelfWorker() override
    {
        while (m_how == "stays")
            ::pause();
        if (m_gone >= 0)
            ::close(m_gone);
    }
    QStringList prefixes() const override
    {
        if (m_how == "throwsPaths")
            throw std::runtime_error("no paths today");
        return m_how == "noPaths" ? QStringList()
               : m_how == "top"   ? QStringList("/")
                                  : CMNodesWorker::prefixes();
    }

private Q_SLOTS:
    /// Wants a login from now on, which TIDAL's addresses serve.
    void on_register(const CMSetDataRequest& request)
    {
        const auto setting = [](const CMPath& path) { return CMRoot().value(path).string_(); };
        KeloOAuth2ServiceInfo info;
        info.setServiceName(m_loginPath.splitBase().last());
        info.setDisplayName(m_top->title());
        info.setDeviceCodeUrl(setting(KeloTidalDeviceCodeUrlPath()));
        info.setTokenUrl(setting(KeloTidalTokenServiceUrlPath()));
        info.setClientId(setting(KeloTidalClientIdPath()));
        info.setClientSecret(setting(KeloTidalClientSecretPath()));
        const auto reply = CMRoot().invoke(KeloOAuth2AddServicePath(), info.toVariant());
        reply.addWatcher(this, [request] { request.reply().setValue(QVariant()); });
    }
    void on_login()
    {
        m_top->rowsClear();
        m_top->rowsAppend(wantsLogin() ? m_loginPath : addPrefix("tones"));
        m_top->rowsAppend(addPrefix("crash"));
    }
    void on_crash(const CMSetDataRequest&) { throw std::runtime_error("the shelf broke"); }
    void on_play(const CMSetDataRequest& request)
    {
        KeloRoles item{KeloHash(request.value().toHash())};
        KeloResource resource;
        resource.setUri(m_uri);
        resource.setMimeType("audio/wav");
        KeloMediaData media = item.mediaData();
        media.setResources({resource});
        item.setMediaData(media);
        item.setPath(request.path());
        request.reply().setValue(PlayLogicInterface::instance(CMPath("/player"))->play(item, 0));
    }

private:
    bool wantsLogin() const
    {
        const KeloValue login = m_login->value();
        return !login.isEmpty() && !login.oauth2Info().loggedIn();
    }
    static KeloRoles tone(const QString& title, const CMPath& list, const CMPath& play)
    {
        KeloMetaData meta;
        meta.setArtist("Somebody");
        meta.setPrePlayPath(play);
        meta.setContentPlayContextPath(list);
        KeloMediaData media;
        media.setMetaData(meta);
        KeloRoles row;
        row.setType(KeloRolesType::Audio_);
        row.setTitle(title);
        CMPath path = list;
        path.addParam("id", title);
        row.setPath(path);
        row.setMediaData(media);
        return row;
    }

    QString m_how;
    QString m_uri;
    int m_gone;
    CMPath m_loginPath = KeloOAuth2ServicePath();
    CMValueItem* m_login;
    CMListRowsNode* m_top;
};

namespace {

void waitForEnd(int pipe)
{
    char byte;
    while (::read(pipe, &byte, 1) > 0) {
    }
}

struct FirstCode
{
    FirstCode()
    {
        if (qEnvironmentVariableIsSet("SHELF_UNTIL"))
            waitForEnd(qEnvironmentVariableIntValue("SHELF_UNTIL"));
    }
} firstCode;

} // namespace

#ifndef SHELF_HAS_NO_ENTRY
extern "C" Q_DECL_EXPORT void* worker_create(const char* name, void* settings)
{
    const QVariantHash given = *static_cast<const QVariantHash*>(settings);
    const QString how = given["settings"].toHash()["how"].toString();
    if (how == "throws")
        throw std::runtime_error("no shelf today");
    if (how == "throwsNumber")
        throw 42;
    if (how == "exits")
        std::exit(0);
    if (how == "null")
        return nullptr;
    if (how == "hangs" && !given["settings"].toHash().contains("until"))
        ::pause();
    if (how == "hangs")
        waitForEnd(given["settings"].toHash()["until"].toInt());
    return static_cast<CMAbstractWorker*>(new ShelfWorker(given, name));
}
#endif

KELO_MODULE_INTERFACE;

#include "Shelf.moc"
