#include <dlfcn.h>
#include <iostream>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloModule.h>
#include <kelo/PlayLogicInterface.h>
#include <log4cplus/configurator.h>
#include <QCoreApplication>

/// Stands where modules look for a player; a real one makes sound of what it gets.
class Player : public PlayLogicInterface
{
public:
    Player() { setInstance(CMPath(QStringLiteral("/player")), this); }
    ~Player() override { setInstance(CMPath(QStringLiteral("/player")), nullptr); }
    QVariant play(const KeloRoles& item, int) override
    {
        std::cout << "plays " << item.mediaData().resources().value(0).uri().toStdString() << "\n";
        return QVariant();
    }
};

/// Publishes the login states; nobody is logged in.
static CMAbstractWorker* makeLogins()
{
    auto* logins = new CMNodesWorker(QVariantHash(), QStringLiteral("oauth2"));
    KeloOAuth2Info info;
    info.setLoggedIn(false);
    KeloValue value;
    value.setOauth2Info(info);
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(QStringLiteral("tidal"));
    CMValueNode::create(logins->nodes(), path)->setValue(value);
    return logins;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    log4cplus::BasicConfigurator::doConfigure();
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::WARN_LOG_LEVEL);

    void* file = argc > 2 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE) : nullptr;
    void* version = file ? dlsym(file, "kelo_module_interface") : nullptr;
    void* create = file ? dlsym(file, "worker_create") : nullptr;
    if (!create || !version || qstrcmp(static_cast<char*>(version), KELO_INTERFACE_VERSION) != 0) {
        std::cerr << "usage: host FILE PATH, FILE a module for " KELO_INTERFACE_VERSION "\n";
        return 2;
    }
    Player player;
    CMWorkerThread logins;
    CMWorkerThread module; // ends before what it uses
    logins.start("oauth2", makeLogins);
    QVariantHash settings;
    module.start("module", [&] {
        void* worker = reinterpret_cast<KeloWorkerCreate>(create)("module", &settings);
        return static_cast<CMAbstractWorker*>(worker);
    });

    const CMGetRowsRequest request(CMPath(QString::fromUtf8(argv[2])), 0, 99, {KeloRoles::Title()});
    CMRoot().request(request);
    request.reply().waitForFinished(-1); // no longer than its deadline
    for (const QVariant& row : request.reply().value().rows().toList())
        std::cout << row.toList().value(0).toString().toStdString() << "\n";
    if (!request.reply().error().isSet())
        return 0;
    std::cerr << request.reply().error().message().toStdString() << "\n";
    return 1;
}
