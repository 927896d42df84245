#include "ServiceTest.h"
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
        const QString list = QStringLiteral("/tidal/myMusic/req/favorites/users/tracks");
        const QJsonArray rows = streamer.rows(list).value(QStringLiteral("rows")).toArray();
        m_track = rows.first().toObject().value(QStringLiteral("Path")).toString();
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
        const QString mark = state + QStringLiteral("/mark");
        // The access token has run out, so that the journey writes another one.
        sim->reset();
        sim->expireTokens();
        QFile file(state + tokenFile);
        if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly) ||
            file.write(m_token) != m_token.size())
            return QStringLiteral("no state to begin with");
        file.close();

        qputenv("LD_PRELOAD", KELO_FAULT_SHIM);
        qputenv("KELO_FAULT",
                QStringLiteral("%1 %2 %3 %4").arg(kind).arg(number).arg(state, mark).toUtf8());
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
            return QStringLiteral("it ended with the status %1").arg(status);
        if (!listener.start(Streamer::settingsFor(*sim)))
            return QStringLiteral("it does not start again");
        const bool isLoggedIn = listener.get(login).body.value(QStringLiteral("loggedIn")).toBool();
        if (!isLoggedIn && !hasLoggedOut)
            return QStringLiteral("the login is lost");
        return listener.stop() == 0 ? QString() : QStringLiteral("it does not stop again");
    }

private:
    /// Each step gets an answer, after a connection that breaks on another one.
    QString travel(const Streamer& listener, QStringList* refused, bool* hasLoggedOut) const
    {
        const auto set = [](const char* path, const char* value) {
            return QStringLiteral(R"({"path":"%1","value":%2})").arg(path, value).toUtf8();
        };
        const QString sets = api + QStringLiteral("set");
        const QString rows = api + QStringLiteral("rows?path=");
        const struct
        {
            QString path;
            QByteArray body; ///< empty: a GET
        } steps[] = {
            {login, {}},
            {rows + QStringLiteral("/tidal"), {}},
            {rows + QStringLiteral("/tidal/req/featured/new/albums"), {}},
            {rows + QStringLiteral("/tidal/myMusic/req/favorites/users/tracks"), {}},
            {api + QStringLiteral("player/play"), "{\"path\":\"" + m_track.toUtf8() + "\"}"},
            {sets, set("/tidal/context/favorites?id=100001&type=Tracks", "1")},
            {sets, set("/tidal/createPlaylist/title", "\"Mine\"")},
            {sets, set("/tidal/createPlaylist/accept", "1")},
            {api + QStringLiteral("player/stop"), "{}"},
            {sets, set("/oauth2/services/tidal/logout", "1")}};
        for (const auto& step : steps) {
            // The first requests are refused, until the access token is renewed.
            Streamer::Answer answer;
            for (int tries = step.body.isEmpty() ? 400 : 2; tries > 0 && answer.status != 200;
                 --tries)
                answer = step.body.isEmpty() ? listener.get(step.path)
                                             : listener.post(step.path, step.body);
            if (answer.status == 0)
                return QStringLiteral("no answer to ") + step.path + QString::fromUtf8(step.body);
            if (answer.status != 200)
                *refused << step.path + QStringLiteral(" %1").arg(answer.status);
            *hasLoggedOut = step.body.contains("logout");
        }
        return QString();
    }

    static const QString api;
    static const QString login;
    static const QString tokenFile;
    QByteArray m_token;
    QString m_track;
};

const QString FaultsTest::api = QStringLiteral("/api/v1/");
const QString FaultsTest::login = QStringLiteral("/api/v1/login");
const QString FaultsTest::tokenFile = QStringLiteral("/oauth2/tidal.json");
} // namespace

TEST_F(FaultsTest, anOperationThatFailsCostsNeitherAnAnswerNorTheLogin)
{
    const char* only = std::getenv("KELO_FAULT_KIND"); // for one kind by hand
    for (const char* kind : {"file", "rename", "module", "thread", "json", "socket"}) {
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
