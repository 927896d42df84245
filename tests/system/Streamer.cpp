#include "Streamer.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <kelosim/SimServer.h>
#include <QFile>
#include <QJsonDocument>
#include <QUrl>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int stopLimitMs = 10000;
#else
constexpr int stopLimitMs = 2000;
#endif

namespace {
httplib::Client clientOf(const QString& url)
{
    httplib::Client client(url.toStdString());
    client.set_read_timeout(60, 0);
    return client;
}

Streamer::Answer answerOf(const httplib::Result& result)
{
    Streamer::Answer answer;
    if (result) {
        answer.status = result->status;
        answer.body = QJsonDocument::fromJson(QByteArray::fromStdString(result->body)).object();
    }
    return answer;
}

/// Splits a server-sent event stream (name and data lines alone are looked at).
class EventReader
{
public:
    EventReader(const QByteArray& name, const Streamer::Predicate& predicate)
        : m_name(name), m_predicate(predicate)
    {
    }

    /// False when the wanted event has come.
    bool take(const char* data, std::size_t size)
    {
        m_buffer.append(data, int(size));
        int end = 0;
        while ((end = m_buffer.indexOf("\n\n")) >= 0) {
            const QByteArray event = m_buffer.left(end);
            m_buffer.remove(0, end + 2);
            QByteArray name;
            QByteArray text;
            for (const QByteArray& line : event.split('\n')) {
                if (line.startsWith("event: "))
                    name = line.mid(7).trimmed();
                else if (line.startsWith("data: "))
                    text += line.mid(6);
            }
            if (name == m_name && m_predicate(QJsonDocument::fromJson(text).object()))
                m_hasFound = true;
        }
        return !m_hasFound;
    }
    bool hasFound() const { return m_hasFound; }

private:
    QByteArray m_name;
    Streamer::Predicate m_predicate;
    QByteArray m_buffer;
    bool m_hasFound = false;
};
} // namespace

QJsonObject Outcome::json() const
{
    return QJsonDocument::fromJson(out).object();
}

Streamer::Streamer() = default;

Streamer::~Streamer()
{
    if (isRunning())
        stop();
}

QByteArray Streamer::settingsFor(const kelosim::SimServer& sim)
{
    const QByteArray base = QByteArray::fromStdString(sim.baseUrl());
    return "[deadlines]\nrows_s = 4\ndata_s = 4\nset_s = 8\n"
           "[tidal]\n"
           "api_url = \"" +
           base +
           "/v1\"\n"
           "image_url = \"" +
           base +
           "/images/\"\n"
           "[tidal.oauth2]\n"
           "device_code_url = \"" +
           base +
           "/v1/oauth2/device_authorization\"\n"
           "token_url = \"" +
           base +
           "/v1/oauth2/token\"\n"
           "client_id = \"kelo-demo\"\nclient_secret = \"kelo-demo-secret\"\n";
}

bool Streamer::start(const QByteArray& settings, const QStringList& arguments)
{
    const QString file = m_dir.filePath(QStringLiteral("kelo.toml"));
    QFile config(file);
    if (!config.open(QIODevice::WriteOnly) || config.write(settings) != settings.size())
        return false;
    config.close();
    QStringList all{QStringLiteral("serve"),
                    QStringLiteral("--config"),
                    file,
                    QStringLiteral("--listen"),
                    QStringLiteral("127.0.0.1:0"),
                    QStringLiteral("--state-dir"),
                    m_dir.filePath(QStringLiteral("state")),
                    QStringLiteral("--output"),
                    QStringLiteral("null")};
    all += arguments;
    m_process = std::make_unique<QProcess>();
    // Into a file: a pipe that nobody reads would stop the streamer when it is full.
    m_process->setStandardErrorFile(m_dir.filePath(QStringLiteral("serve.log")), QIODevice::Append);
    m_process->start(QStringLiteral(KELO_PROGRAM), all);
    while (!m_process->canReadLine()) {
        if (!m_process->waitForReadyRead(60000)) {
            m_process->waitForFinished(5000);
            return false;
        }
    }
    const QString line = QString::fromUtf8(m_process->readLine()).trimmed();
    const QString greeting = QStringLiteral("listening on ");
    m_url = line.mid(greeting.size());
    return line.startsWith(greeting);
}

bool Streamer::startDemo(const QStringList& arguments)
{
    // A demo says where it listens once it is logged in.
    return start(QByteArray(), QStringList{QStringLiteral("--demo")} + arguments) &&
           get(QStringLiteral("/api/v1/login")).body.value(QStringLiteral("loggedIn")).toBool();
}

int Streamer::stop()
{
    m_process->terminate();
    if (isRunning() && !m_process->waitForFinished(stopLimitMs)) {
        m_process->kill();
        m_process->waitForFinished(5000);
        return -1;
    }
    return m_process->exitStatus() == QProcess::NormalExit ? m_process->exitCode() : -2;
}

bool Streamer::isRunning() const
{
    return m_process && m_process->state() == QProcess::Running;
}

QByteArray Streamer::errors() const
{
    QFile log(m_dir.filePath(QStringLiteral("serve.log")));
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
}

Outcome Streamer::run(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(KELO_PROGRAM), arguments);
    Outcome outcome;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.out = process.readAllStandardOutput();
    outcome.err = process.readAllStandardError();
    return outcome;
}

Outcome Streamer::kelo(const QStringList& arguments) const
{
    return run(QStringList{QStringLiteral("--server"), m_url} + arguments);
}

QJsonObject Streamer::rows(const QString& path, const QStringList& arguments) const
{
    const Outcome outcome =
        kelo(QStringList{QStringLiteral("rows"), path, QStringLiteral("--json")} + arguments);
    EXPECT_EQ(outcome.status, 0) << path.toStdString() << ": " << outcome.err.toStdString();
    return outcome.json();
}

QString Streamer::rowsError(const QString& path) const
{
    const Answer answer = get(QStringLiteral("/api/v1/rows?path=") +
                              QString::fromUtf8(QUrl::toPercentEncoding(path)));
    EXPECT_GE(answer.status, 400) << path.toStdString();
    return answer.body.value(QStringLiteral("detail")).toString();
}

bool Streamer::login()
{
    if (post(QStringLiteral("/api/v1/login"), "{}").status != 200)
        return false;
    return waitForEvent("login", [](const QJsonObject& login) {
        return login.value(QStringLiteral("loggedIn")).toBool();
    });
}

Streamer::Answer Streamer::get(const QString& path) const
{
    return answerOf(clientOf(m_url).Get(path.toStdString().c_str()));
}

Streamer::Answer Streamer::post(const QString& path, const QByteArray& json) const
{
    return answerOf(
        clientOf(m_url).Post(path.toStdString().c_str(), json.toStdString(), "application/json"));
}

bool Streamer::waitForEvent(const QByteArray& name, const Predicate& predicate,
                            const QString& query, int timeoutMs) const
{
    httplib::Client client(m_url.toStdString());
    client.set_read_timeout(timeoutMs / 1000, (timeoutMs % 1000) * 1000);
    EventReader reader(name, predicate);
    const auto start = std::chrono::steady_clock::now();
    const std::string path = "/api/v1/events" + query.toStdString();
    client.Get(path.c_str(), [&](const char* data, std::size_t size) {
        return reader.take(data, size) &&
               std::chrono::steady_clock::now() - start < std::chrono::milliseconds(timeoutMs);
    });
    return reader.hasFound();
}
