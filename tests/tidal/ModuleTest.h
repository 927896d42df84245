#pragma once
#include "ModuleBed.h"
#include "ScriptedService.h"
#include <gtest/gtest.h>
#include <kelo/KeloActionReply.h>
#include <kelo/KeloTidalConstants.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonObject>

namespace httplib {
class Client;
}

QT_BEGIN_NAMESPACE
/// How GoogleTest prints it.
void PrintTo(const QString& text, std::ostream* stream);
QT_END_NAMESPACE

inline QString q(const char* text)
{
    return QString::fromUtf8(text);
}

/// A page of a list as the service sends it.
QByteArray pageOf(const QByteArray& items, int total);
/// Items that follow each other, from a text in which % stands for their numbers.
QByteArray many(const QByteArray& item, int count, int first = 0);

/// Base of the module's tests: requests as clients send them, and their answers. Tests start the
/// module, which they find logged out or logged in and set up. Each ends with every request
/// answered.
class ModuleTest : public testing::Test, protected ModuleBed
{
protected:
    ModuleTest();
    void TearDown() override;
    void startConfigured(const QString& token = "token-1");

    /// Sends requests from outside, without waiting.
    static CMGetRowsRequest askRows(const QString& path, int from = 0, int to = 49,
                                    const QStringList& roles = allRoles());
    static CMSetDataRequest set(const QString& path, const QVariant& value = 1,
                                const QString& role = KeloRoles::Value());
    static CMGetDataRequest askData(const QString& path,
                                    const QStringList& roles = {KeloRoles::Title()});
    /// Waits for an answer; false, and a test failure, when none comes.
    static bool wait(const CMRequest& request);
    /// Sends, and waits for the answer.
    static CMSetDataRequest setAndWait(const QString& path, const QVariant& value = 1,
                                       const QString& role = KeloRoles::Value());
    /// These wait first. The message of the error that a request is answered with; empty for none.
    static QString errorOf(const CMRequest& request);
    static KeloActionReply actionOf(const CMSetDataRequest& request);
    /// Rows by their roles; what has no value is left out. They are as long as the roles asked for.
    static QList<KeloRoles> rowsOf(const CMGetRowsRequest& request);
    /// One role of each row of a list.
    static QStringList column(const QList<KeloRoles>& rows,
                              const QString& role = KeloRoles::Title());
    static QStringList column(const QString& path, const QString& role = KeloRoles::Title());
    /// A page of a list after the responder has been given this answer of the service.
    CMGetRowsRequest answered(const QString& path, int from, int to, const QByteArray& body,
                              const QString& etag = QString(),
                              const QStringList& roles = allRoles());
    /// Where the context menu of a row leads.
    static CMPath menuOf(const KeloRoles& row);
};

/// With a service that answers what the test says; session and subscription of user 4005 unless it
/// says otherwise. The module is set up unless SetUp() does something else.
class ScriptedTest : public ModuleTest
{
protected:
    ScriptedTest();
    void SetUp() override { startConfigured(); }
    ScriptedService m_service;
};

/// With the simulated service, which holds a library; reads and edits it as another client would,
/// past the module, which is set up.
class SimulatedTest : public ModuleTest
{
protected:
    SimulatedTest();
    ~SimulatedTest() override;

    QJsonObject read(const QString& path);
    QJsonObject post(const QString& path, const QByteArray& body, const QString& etag = QString());
    QJsonArray itemsOf(const QString& path) { return read(path).value("items").toArray(); }
    /// Ids of the tracks of a list that can be played, and of all in a playlist, as the service
    /// holds them.
    QList<qint64> playable(const QString& path);
    QList<qint64> tracksIn(const QString& playlistId);
    QString newPlaylist(const QByteArray& title, const QList<qint64>& tracks = {});
    /// Methods and paths that arrived since the last reset, parameters and tags left out.
    QStringList requestLog();

    const QString userPath = "/users/770011";
    kelosim::SimServer m_sim;

private:
    std::unique_ptr<httplib::Client> m_client;
};

/// A client that has a rows path open, and keeps the notices it gets.
class OpenRows
{
public:
    explicit OpenRows(const QString& path);
    ~OpenRows();
    /// The next notice as text: "close", "reset", "-4 of 7"; empty when none comes.
    QString next();
    /// Notices that have come and were not read.
    int pending() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QStringList m_notices;
    quint64 m_id;
};
