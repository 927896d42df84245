#pragma once
#include "ScriptedServer.h"
#include <gtest/gtest.h>
#include <kelo/HttpClient.h>
#include <QEventLoop>
#include <QTimer>

using Answer = ScriptedServer::Answer;
using Then = ScriptedServer::Then;

/// Takes the answers and waits for them.
class Receiver : public QObject
{
    Q_OBJECT
public:
    struct Delivery
    {
        KeloUrl url;
        HttpClientPrivate userData;
        int status = -1;
        int code = -1;
        QByteArray body;
        HttpClientHeaders headers;
    };
    std::vector<Delivery> deliveries;

    bool waitFor(std::size_t count)
    {
        m_wanted = count;
        QTimer guard;
        guard.setSingleShot(true);
        connect(&guard, &QTimer::timeout, &m_loop, &QEventLoop::quit);
        guard.start(20000);
        if (deliveries.size() < count)
            m_loop.exec();
        return deliveries.size() >= count;
    }

    Q_INVOKABLE void onAnswer(KeloUrl const& url, HttpClientPrivate const& userData, int status,
                              int code, QByteArray const& body, HttpClientHeaders const& headers)
    {
        deliveries.push_back({url, userData, status, code, body, headers});
        if (deliveries.size() >= m_wanted)
            m_loop.quit();
    }

private:
    std::size_t m_wanted = 0;
    QEventLoop m_loop;
};

inline KeloUrl toUrl(const std::string& text)
{
    return KeloUrl(QString::fromStdString(text));
}

inline HttpClientOptions headerOptions(const char* name, const QString& value)
{
    HttpClientHeaders headers;
    headers.insert(name, value);
    return HttpClientOptions().setHeaders(headers);
}

/// One client, one receiver, one server.
struct Rig
{
    explicit Rig(const ScriptedServer::Script& script) : server(script), client(nullptr) {}
    explicit Rig(const std::string& bytes, Then then = Then::Keep)
        : Rig([=](const std::string&) {
              return Answer{bytes, then};
          })
    {
    }

    ScriptedServer server;
    Receiver receiver;
    HttpClient client;

    void* get(const std::string& path, const HttpClientOptions& options = HttpClientOptions())
    {
        return client.get(toUrl(server.url(path)), &receiver, "onAnswer", options);
    }
    /// Gets a path and waits for its answer.
    Receiver::Delivery fetch(const std::string& path,
                             const HttpClientOptions& options = HttpClientOptions())
    {
        get(path, options);
        return wait();
    }
    Receiver::Delivery wait()
    {
        EXPECT_TRUE(receiver.waitFor(1)) << "no answer";
        EXPECT_EQ(client.callsUnderWay(), 0);
        const Receiver::Delivery delivery =
            receiver.deliveries.empty() ? Receiver::Delivery() : receiver.deliveries.back();
        receiver.deliveries.clear();
        return delivery;
    }
};
