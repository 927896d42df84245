#include "ServiceTest.h"
#include "Table.h"
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonArray>

namespace {
/// The journey of a listener, from the start to the end of the streamer, with one operation of it
/// failing.
class FaultsTest : public ServiceTest
{
protected:
    void SetUp() override
    {
        ServiceTest::SetUp();
        const QString list = "/tidal/myMusic/req/favorites/users/tracks";
        m_track = streamer.rows(list)["rows"].toArray().at(0)["Path"].toString();
        ASSERT_EQ(streamer.stop(), 0);
        QFile file(streamer.stateFolder() + tokenFile);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        m_token = file.readAll();
    }

    /// What went wrong; empty when nothing did. `hasFailed` says whether there was such an
    /// operation.
    QString run(const char* kind, int number, bool* hasFailed)
    {
        Streamer listener;
        const QString state = listener.stateFolder();
        const QString mark = state + "/mark";
        // The access token has run out, so that the journey writes another one.
        sim->reset();
        sim->expireTokens();
        QFile file(state + tokenFile);
        if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly) ||
            file.write(m_token) != m_token.size())
            return "no state to begin with";
        file.close();

        qputenv("LD_PRELOAD", KELO_FAULT_SHIM);
        qputenv("KELO_FAULT",
                QString("%1 %2 %3 %4").arg(kind).arg(number).arg(state, mark).toUtf8());
        const bool isStarted = listener.start(Streamer::settingsFor(*sim));
        qunsetenv("LD_PRELOAD");
        QString wrong;
        QStringList refused;
        bool hasLoggedOut = false;
        if (isStarted)
            wrong = travel(listener, &refused, &hasLoggedOut);
        const int status = listener.stop();
        *hasFailed = QFile::exists(mark);
        if (wrong.isEmpty() && !*hasFailed)
            wrong = refused.join(QLatin1Char(' '));
        if (!wrong.isEmpty())
            return wrong;
        if (isStarted ? status != 0 : status != 1 || listener.errors().isEmpty())
            return QString("it ended with the status %1").arg(status);
        if (!listener.start(Streamer::settingsFor(*sim)))
            return "it does not start again";
        const bool isLoggedIn = listener.get(login).body["loggedIn"].toBool();
        if (!isLoggedIn && !hasLoggedOut)
            return "the login is lost";
        return listener.stop() == 0 ? QString() : "it does not stop again";
    }

private:
    /// Each step gets an answer, after a connection that breaks on another one.
    QString travel(const Streamer& listener, QStringList* refused, bool* hasLoggedOut) const
    {
        const auto set = [](const char* path, const char* value) {
            return QString(R"({"path":"%1","value":%2})").arg(path, value).toUtf8();
        };
        const QString sets = api + "set";
        const QString rows = api + "rows?path=";
        // body: empty: a GET
        for (const auto& [path, body] : Table<QString, QByteArray>{
                 {login, {}},
                 {rows + "/tidal", {}},
                 {rows + "/tidal/req/featured/new/albums", {}},
                 {rows + "/tidal/myMusic/req/favorites/users/tracks", {}},
                 {api + "player/play", "{\"path\":\"" + m_track.toUtf8() + "\"}"},
                 {sets, set("/tidal/context/favorites?id=100001&type=Tracks", "1")},
                 {sets, set("/tidal/createPlaylist/title", "\"Mine\"")},
                 {sets, set("/tidal/createPlaylist/accept", "1")},
                 {api + "player/stop", "{}"},
                 {sets, set("/oauth2/services/tidal/logout", "1")}}) {
            // The first requests are refused, until the access token is renewed.
            Streamer::Answer answer;
            const QDeadlineTimer end(body.isEmpty() ? 20000 : 0);
            for (int tries = 0; answer.status != 200 && (tries < 2 || !end.hasExpired()); ++tries)
                answer = body.isEmpty() ? listener.get(path) : listener.post(path, body);
            if (answer.status == 0)
                return "no answer to " + path + QString::fromUtf8(body);
            if (answer.status != 200)
                *refused << path + QString(" %1").arg(answer.status);
            *hasLoggedOut = body.contains("logout");
        }
        return QString();
    }

    const QString api = "/api/v1/";
    const QString login = "/api/v1/login";
    const QString tokenFile = "/oauth2/tidal.json";
    QByteArray m_token;
    QString m_track;
};
} // namespace

TEST_F(FaultsTest, anOperationThatFailsCostsNeitherAnAnswerNorTheLogin)
{
    const char* only = std::getenv("KELO_FAULT_KIND"); // for one kind by hand
    for (const char* kind : {"file", "rename", "thread", "socket"}) {
        if (only && qstrcmp(only, kind) != 0)
            continue;
        bool hasFailed = true;
        int number = 0;
        while (hasFailed) {
            const QString wrong = run(kind, ++number, &hasFailed);
            EXPECT_EQ(wrong.toStdString(), "") << kind << ' ' << number;
        }
        EXPECT_GT(number, 1) << kind << " never fails";
    }
}
