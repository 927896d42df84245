#pragma once
#include "KeptRows.h"
#include "LoginControl.h"
#include "PlayerControl.h"
#include "web/WebServer.h"

#include <future>
#include <httplib.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloListeners.h>
#include <mutex>
#include <QJsonDocument>
#include <QJsonObject>

/// Keeps listeners as both controls do.
template <class Control, class Status>
class FakeControl : public Control
{
public:
    quint64 addListener(typename Control::Listener listener) override
    {
        return m_listeners.add(std::move(listener));
    }
    void removeListener(quint64 id) override { m_listeners.remove(id); }
    void notify(const Status& status) { m_listeners.notify(status); }

private:
    KeloListeners<Status> m_listeners;
};

/// "play" of the path "wait" is never answered; an unknown path fails.
class FakePlayer : public FakeControl<PlayerControl, PlayerStatus>
{
public:
    PlayerStatus status() const override { return {}; }
    CMReply<QVariant> command(const QString& name, const QVariantHash& arguments) override;
    KeptRows& keptRows() override { return kept; }

    SystemClock clock;
    KeptRows kept{clock};
    std::promise<void> waiting; ///< kept when an endless command has come
};

/// Logs in and out at once.
class FakeLogin : public FakeControl<LoginControl, LoginState>
{
public:
    QStringList services() const override { return names; }
    KeloOAuth2Info status(const QString& service) const override;
    CMReply<QVariant> start(const QString& service) override { return finish(service, true); }
    CMReply<QVariant> logout(const QString& service) override { return finish(service, false); }
    /// Changes the state of a service, and tells of it.
    void tell(const QString& service, const KeloOAuth2Info& info);

    QStringList names{"tidal"}; ///< set while no call is under way

private:
    CMReply<QVariant> finish(const QString& service, bool loggedIn);

    mutable std::mutex m_mutex;
    QHash<QString, KeloOAuth2Info> m_infos; ///< guarded by the mutex
};

/// Paths below /web: "list" has 120 rows, told apart by "id", and fails above 50 at a time, "small"
/// one of each kind,
/// "value", "echo" answers with what was sent, "fail" with an error, "hold" never.
class WebWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    WebWorker();

private Q_SLOTS:
    void on_echo(CMSetDataRequest request);
    void on_fail(CMSetDataRequest request);
    void on_hold(CMSetDataRequest request);

private:
    std::vector<CMSetDataRequest> m_held;
};

/// A running web server over the worker, with a client's view of it.
class WebWorld
{
public:
    explicit WebWorld(const WebServerOptions& options = {"127.0.0.1", 0, {}, {}});
    ~WebWorld();

    struct Answer
    {
        int status = 0;
        QJsonObject json;
        std::string body;
        httplib::Headers headers;
        /// The header field; empty when missing, all values when there are several.
        std::string header(const std::string& name) const;
        QString detail() const { return json.value("detail").toString(); }
    };
    Answer get(const std::string& target, const httplib::Headers& headers = {}) const;
    Answer post(const std::string& target, const std::string& body,
                const httplib::Headers& headers = {}) const;
    Answer call(httplib::Request request) const;
    Answer set(const QByteArray& body) const { return post("/api/v1/set", body.toStdString()); }

    /// A socket on which the bytes were sent.
    int connectTo(const std::string& bytes) const;
    /// Sends bytes as they are and returns the status of the answer as text.
    std::string statusOf(const std::string& bytes) const;

    FakePlayer player;
    FakeLogin login;
    CMWorkerThread thread;
    WebWorker* worker;
    WebServer server;
};
