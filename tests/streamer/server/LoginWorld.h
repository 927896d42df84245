#pragma once
#include "../FakeClock.h"
#include "oauth2/OAuth2Service.h"

#include <deque>
#include <QTemporaryDir>

/// A token endpoint that answers when the test says so.
class FakeEndpoint : public TokenEndpoint
{
public:
    struct Post
    {
        QString url;
        Form form;
        QString authorization;
        Done done;
        QString field(const char* name) const;
    };
    void post(const QString& url, const Form& form, const QString& authorization,
              Done done) override
    {
        posts.push_back({url, form, authorization, done});
        ++count;
    }
    void answer(const TokenReply& reply);

    std::deque<Post> posts; ///< unanswered ones, oldest first
    int count = 0;
};

/// One login service with everything around it under the test's control. Writes what the tree
/// publishes, and when tokens were asked for, into one log.
class LoginWorld
{
public:
    explicit LoginWorld(const QString& folder = QString(), qint64 startS = 0);
    ~LoginWorld();

    static KeloOAuth2ServiceInfo info();
    /// As a client: sends a value to a node of the service; "" is the state node.
    CMReply<QVariant> send(const QString& segment, const QVariant& value = true);
    /// Logs in with these tokens.
    void logIn(const QByteArray& tokenAnswer);
    /// Answers the oldest post and notes its kind and time.
    void answer(const TokenReply& reply);
    void answer(int status, const QByteArray& body) { answer(TokenReply{status, body}); }
    KeloOAuth2Info state() const;

    QStringList log;
    QTemporaryDir ownFolder;
    TokenStore store;
    FakeClock clock;
    FakeEndpoint endpoint;
    CMNodes nodes;
    std::unique_ptr<OAuth2Service> service;

private:
    void onState(const KeloOAuth2Info& info);

    std::vector<quint64> m_watches;
};

constexpr char deviceAnswer[] =
    R"({"deviceCode":"DEVICE","userCode":"QWERT","verificationUri":"link.example.invalid",)"
    R"("verificationUriComplete":"link.example.invalid/QWERT","expiresIn":300,"interval":2})";
constexpr char tokenAnswer[] =
    R"({"access_token":"A1","refresh_token":"R1","expires_in":3600,"token_type":"Bearer",)"
    R"("user":{"fullName":null,"username":"x@example.invalid"}})";
