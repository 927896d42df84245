#include "Streamer.h"
#include "client/EventParser.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <kelosim/SimServer.h>
#include <QDeadlineTimer>
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
    client.set_read_timeout(60);
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

} // namespace

QJsonObject Outcome::json() const
{
    return QJsonDocument::fromJson(out).object();
}

Streamer::~Streamer()
{
    if (isRunning())
        stop();
}

QByteArray Streamer::settingsFor(const kelosim::SimServer& sim)
{
    return QByteArray(R"([deadlines]
rows_s = 4
data_s = 4
set_s = 8
[tidal]
api_url = "BASE/v1"
image_url = "BASE/images/"
[tidal.oauth2]
device_code_url = "BASE/v1/oauth2/device_authorization"
token_url = "BASE/v1/oauth2/token"
client_id = "kelo-demo"
client_secret = "kelo-demo-secret"
)")
        .replace("BASE", sim.baseUrl().c_str());
}

bool Streamer::start(const QByteArray& settings, const QStringList& arguments)
{
    const QString file = m_dir.filePath("kelo.toml");
    QFile config(file);
    if (!config.open(QIODevice::WriteOnly) || config.write(settings) != settings.size())
        return false;
    config.close();
    QStringList all{"serve", "--listen", "127.0.0.1:0", "--output", "null"};
    all << "--config" << file << "--state-dir" << stateFolder();
    m_process = std::make_unique<QProcess>();
    // Into a file: a pipe that nobody reads would stop the streamer when it is full.
    m_process->setStandardErrorFile(m_dir.filePath("serve.log"), QIODevice::Append);
    m_process->start(KELO_PROGRAM, all + arguments);
    while (!m_process->canReadLine()) {
        if (!m_process->waitForReadyRead(60000)) {
            m_process->waitForFinished(5000);
            return false;
        }
    }
    const QString line = QString::fromUtf8(m_process->readLine()).trimmed();
    const QString greeting = "listening on ";
    m_url = line.mid(greeting.size());
    return line.startsWith(greeting);
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
    QFile log(m_dir.filePath("serve.log"));
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
}

Outcome Streamer::run(const QStringList& arguments)
{
    QProcess process;
    process.start(KELO_PROGRAM, arguments);
    Outcome outcome;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.out = process.readAllStandardOutput();
    outcome.err = process.readAllStandardError();
    return outcome;
}

Outcome Streamer::kelo(const QStringList& arguments) const
{
    return run(QStringList{"--server", m_url} + arguments);
}

QJsonObject Streamer::rows(const QString& path) const
{
    const Outcome outcome = kelo({"rows", path, "--json"});
    EXPECT_EQ(outcome.status, 0) << path.toStdString() << ": " << outcome.err.toStdString();
    return outcome.json();
}

QString Streamer::rowsError(const QString& path) const
{
    const Answer answer = get("/api/v1/rows?path=" + QUrl::toPercentEncoding(path));
    EXPECT_GE(answer.status, 400) << path.toStdString();
    return answer.body["detail"].toString();
}

bool Streamer::login()
{
    if (post("/api/v1/login", "{}").status != 200)
        return false;
    return waitForEvent("login",
                        [](const QJsonObject& login) { return login["loggedIn"].toBool(); });
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

bool Streamer::waitForEvent(const QByteArray& name, const Predicate& predicate) const
{
    bool hasFound = false;
    cli::EventParser parser([&](const cli::ServerEvent& event) {
        hasFound = event.name == name && predicate(QJsonDocument::fromJson(event.data).object());
        return !hasFound;
    });
    const QDeadlineTimer end(30000);
    httplib::Client client = clientOf(m_url);
    client.Get("/api/v1/events", [&](const char* data, std::size_t size) {
        return parser.feed(data, size) && !end.hasExpired();
    });
    return hasFound;
}
