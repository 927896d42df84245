#pragma once
#include "modules/ModuleState.h"

#include <functional>
#include <memory>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

class LoginControl;
class PlayerControl;

/// Where the web server listens.
struct WebServerOptions
{
    QString address = QStringLiteral("127.0.0.1");
    int port = 8095;                                  ///< 0 picks a free one
    std::function<QList<ModuleState>()> modules = {}; ///< for the health pages; any thread
    QStringList hostNames;     ///< names, beside the usual ones, under which clients reach it
    QString webDirectory = {}; ///< where the page's files are read from; empty: the built-in ones
    QString imageUrl = {};     ///< how the addresses of pictures begin that may be fetched
    std::function<QStringList()> imageUrls = {}; ///< the same, of other modules; any thread
};

/// The streamer's web page and its HTTP API under /api/v1, with /healthz, /readyz and /metrics.
/// Owned by serve; has threads of its own and asks the tree, the player and the logins, which
/// outlive it.
class WebServer
{
public:
    WebServer(const WebServerOptions& options, PlayerControl& player, LoginControl& login);
    ~WebServer();

    /// Binds and starts; false with a sentence in `error`.
    bool start(QString* error);
    /// The port that it listens on.
    int port() const;
    /// Runs functions on its threads, in later turns. After start().
    std::function<void(std::function<void()>)> runner() const;
    /// All calls that it answers as "METHOD PATH", the page's files left out.
    std::vector<std::string> routes() const;
    /// Ends open event streams and waiting calls, then the threads. Takes less than a second.
    void stop();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
