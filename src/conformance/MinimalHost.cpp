#include "MinimalHost.h"

#include <dlfcn.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloThrown.h>
#include <kelo/KeloTidalConstants.h>
#include <QFile>
#include <QFileInfo>

namespace {

/// Answers whatever it is sent.
class TakingNode : public CMNode
{
public:
    using CMNode::CMNode;
    bool setDataRequest(const CMSetDataRequest& request) override
    {
        request.reply().setValue(QVariant());
        return true;
    }
};

class HostWorker : public CMNodesWorker
{
public:
    explicit HostWorker(const Options& options)
        : CMNodesWorker(QVariantHash(), QStringLiteral("host")), m_prefixes{
                                                                     QStringLiteral("/oauth2"),
                                                                     QStringLiteral("/settings")}
    {
        CMPath login = KeloOAuth2ServicePath();
        login.appendSubpath(options.name);
        QVariantHash values = options.values;
        if (!values.contains(login.base())) {
            KeloOAuth2Info info;
            info.setLoggedIn(false);
            KeloValue value;
            value.setOauth2Info(info);
            values.insert(login.base(), value.toVariant());
        }
        for (auto it = values.begin(); it != values.end(); ++it) {
            const CMPath path(it.key());
            CMValueNode::create(nodes(), path)->setValue(KeloValue::fromVariant(it.value()));
            const QString prefix = QLatin1Char('/') + path.splitBase().value(0);
            if (!m_prefixes.contains(prefix))
                m_prefixes.append(prefix);
        }
        login.appendSubpath(KeloOAuth2RefreshSubPath());
        for (const CMPath& path : {KeloOAuth2AddServicePath(), login})
            (new TakingNode(path))->setNodes(nodes());
    }
    QStringList prefixes() const override { return m_prefixes; }

private:
    QStringList m_prefixes;
};

} // namespace

MinimalHost::MinimalHost(const Options& options) : m_options(options)
{
    CMDeadlines deadlines;
    deadlines.rows = deadlines.data = deadlines.set = options.deadline;
    CMRoot().setDeadlines(deadlines);
    setInstance(KeloPlayerPath(), this);
    m_hostThread.start("host", [this] { return new HostWorker(m_options); });
    // The root starts its clock with the first request, and keeps it.
    const CMGetDataRequest first(KeloOAuth2AddServicePath(), {KeloRoles::Title()});
    CMRoot().request(first);
    first.reply().waitForFinished(-1);
}

MinimalHost::~MinimalHost()
{
    stop();
    setInstance(KeloPlayerPath(), nullptr);
}

QString MinimalHost::load()
{
    // A bare name would be looked up on the library path instead.
    const QByteArray name = QFile::encodeName(QFileInfo(m_options.file).absoluteFilePath());
    void* library = dlopen(name.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library)
        return QString::fromLocal8Bit(dlerror());
    const char* version = static_cast<const char*>(dlsym(library, "kelo_module_interface"));
    if (!version)
        return QStringLiteral("it has no symbol \"kelo_module_interface\"");
    if (qstrcmp(version, KELO_INTERFACE_VERSION) != 0)
        return QStringLiteral("it was built for version %1 of the interface, this is %2")
            .arg(QString::fromLatin1(version), QLatin1String(KELO_INTERFACE_VERSION));
    m_create = reinterpret_cast<KeloWorkerCreate>(dlsym(library, "worker_create"));
    return m_create ? QString() : QStringLiteral("it has no symbol \"worker_create\"");
}

QString MinimalHost::start()
{
    QString fault;
    const QByteArray name = m_options.name.toUtf8();
    QVariantHash settings{{QStringLiteral("prefix"), m_options.prefix},
                          {QStringLiteral("settings"), m_options.settings}};
    QStringList prefixes;
    m_worker = m_moduleThread.start(name.constData(), [&] {
        CMAbstractWorker* worker = nullptr;
        fault = keloThrownBy(QStringLiteral("worker_create"), [&] {
            worker = static_cast<CMAbstractWorker*>(m_create(name.constData(), &settings));
            prefixes = worker ? worker->prefixes() : QStringList();
        });
        if (!worker && fault.isEmpty())
            fault = QStringLiteral("worker_create gave no worker");
        return fault.isEmpty() ? worker : nullptr;
    });
    if (m_worker && prefixes != QStringList(m_options.prefix))
        fault = QStringLiteral("it was told to stand at %1, and stands at %2")
                    .arg(m_options.prefix, prefixes.join(QStringLiteral(", ")));
    if (!m_worker && fault.isEmpty())
        fault = QStringLiteral("its place in the tree is taken");
    return fault;
}

void MinimalHost::stop()
{
    m_moduleThread.stop();
    m_worker = nullptr;
}

QVariant MinimalHost::play(const KeloRoles& item, int)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_played.append(item);
    return QVariant();
}

QList<KeloRoles> MinimalHost::takePlayed()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_played, QList<KeloRoles>());
}
