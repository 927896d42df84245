#pragma once
#include "ScriptedService.h"
#include <functional>
#include <gtest/gtest.h>
#include <kelo/CMRequest.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloTidalTypes.h>
#include <kelo/PlayLogicInterface.h>
#include <mutex>
#include <QStringList>

class TidalWorker;

QT_BEGIN_NAMESPACE
/// How GoogleTest prints them.
void PrintTo(const QString& text, std::ostream* stream);
void PrintTo(const QStringList& texts, std::ostream* stream);
QT_END_NAMESPACE

/// A player that keeps what it is given.
class RecordingPlayer : public PlayLogicInterface
{
public:
    RecordingPlayer();
    ~RecordingPlayer() override;

    QVariant play(const KeloRoles& item, int options) override;
    QList<KeloRoles> played() const;

private:
    mutable std::mutex m_mutex;
    QList<KeloRoles> m_played;
};

/// The module in a host tree with the settings and the login state that a test sets, against a
/// scripted service. Session and subscription are answered unless a test says otherwise. The module
/// is made through its entry, on a thread of its own.
class TreeFixture : public testing::Test
{
protected:
    TreeFixture();
    ~TreeFixture() override;
    /// Every test ends with every request answered.
    void TearDown() override;

    /// Starts the module; called by tests that prepare more before.
    void start();
    void stop();
    TidalWorker* worker() const { return m_worker; }
    /// Publishes the login state, the token first.
    void setLoggedIn(bool loggedIn, const QString& token = QStringLiteral("token-1"));
    /// The tokens that the module has asked the login service to replace, since the last call.
    QStringList takeRefusedTokens();
    void setSettings(const KeloTidalSettings& settings);
    KeloTidalSettings settings() const;
    /// Starts the module logged in, with the session set up.
    void startConfigured();

    /// Sends requests from outside, without waiting.
    static CMGetRowsRequest askRows(const QString& path, int from = 0, int to = 49,
                                    const QStringList& roles = itemRoles());
    static CMSetDataRequest set(const QString& path, const QVariant& value,
                                const QString& role = KeloRoles::Value());
    static CMGetDataRequest askData(const QString& path, const QStringList& roles);
    /// Waits for an answer; false, and a test failure, when none comes.
    static bool wait(const CMVoidReply& reply);
    /// The message of the error that a request is answered with; empty when it is none.
    static QString errorOf(const CMRequest& request);
    /// Asks for rows and waits: one role of each row.
    static QStringList column(const QString& path, const QString& role = KeloRoles::Title());
    /// Rows of a list as hashes of roles.
    static QList<QVariantHash> rowsOf(const CMGetRowsRequest& answered);
    static QStringList itemRoles();

    /// Runs a function on the module's thread and waits for it.
    void onWorker(const std::function<void()>& function);
    /// Returns when everything that was queued for the module has run.
    void settle();

    RecordingPlayer m_player;
    ScriptedService m_service;

private:
    CMWorkerThread m_settingsThread;
    CMWorkerThread m_oauthThread;
    CMWorkerThread m_tidalThread;
    TidalWorker* m_worker = nullptr;
    CMValueNode* m_settings = nullptr;
    CMValueNode* m_login = nullptr;
    CMValueNode* m_token = nullptr;
    std::mutex m_mutex;
    QStringList m_refusedTokens;
};
