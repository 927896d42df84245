#include "ModuleTest.h"
#include <chrono>
#include <httplib.h>
#include <log4cplus/logger.h>
#include <QJsonDocument>

namespace {
constexpr int patienceMs = 20000;

std::string target(const QString& path)
{
    return ("/v1" + path + (path.contains('?') ? "&" : "?") + "countryCode=NO").toStdString();
}

QJsonObject objectOf(const httplib::Result& result)
{
    if (!result)
        return QJsonObject();
    QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(result->body)).object();
    object.insert("_status", result->status);
    object.insert("_etag", QString::fromStdString(result->get_header_value("ETag")));
    return object;
}
} // namespace

QT_BEGIN_NAMESPACE
void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

QByteArray pageOf(const QByteArray& items, int total)
{
    return "{\"totalNumberOfItems\":" + QByteArray::number(total) + ",\"items\":[" + items + "]}";
}

QByteArray many(const QByteArray& item, int count, int first)
{
    QByteArrayList items;
    for (int i = first; i < first + count; ++i)
        items << QByteArray(item).replace("%", QByteArray::number(i));
    return items.join(',');
}

ModuleTest::ModuleTest()
{
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::OFF_LOG_LEVEL);
}

void ModuleTest::TearDown()
{
    stop();
    EXPECT_EQ(CMRoot().pendingRequests(), 0);
    CMRoot().setDeadlines(CMDeadlines());
}

void ModuleTest::startConfigured(const QString& token)
{
    start();
    setLoggedIn(true, token);
    settle();
    ASSERT_EQ(errorOf(askRows("/tidal")), "");
}

CMGetRowsRequest ModuleTest::askRows(const QString& path, int from, int to,
                                     const QStringList& roles)
{
    const CMGetRowsRequest request(CMPath::fromEncoded(path), from, to, roles);
    CMRoot().request(request);
    return request;
}

CMSetDataRequest ModuleTest::set(const QString& path, const QVariant& value, const QString& role)
{
    const CMSetDataRequest request(CMPath::fromEncoded(path), role, value);
    CMRoot().request(request);
    return request;
}

CMGetDataRequest ModuleTest::askData(const QString& path, const QStringList& roles)
{
    const CMGetDataRequest request(CMPath::fromEncoded(path), roles);
    CMRoot().request(request);
    return request;
}

bool ModuleTest::wait(const CMRequest& request)
{
    const bool isFinished = request.reply().waitForFinished(patienceMs);
    EXPECT_TRUE(isFinished) << "no answer";
    return isFinished;
}

CMSetDataRequest ModuleTest::setAndWait(const QString& path, const QVariant& value,
                                        const QString& role)
{
    const CMSetDataRequest request = set(path, value, role);
    wait(request);
    return request;
}

QString ModuleTest::errorOf(const CMRequest& request)
{
    return wait(request) ? request.reply().error().message() : "no answer";
}

KeloActionReply ModuleTest::actionOf(const CMSetDataRequest& request)
{
    EXPECT_EQ(errorOf(request), "");
    const KeloActionReply reply(KeloHash(request.reply().value().toHash()));
    EXPECT_EQ(reply.xclass(), "KeloActionReply");
    return reply;
}

QList<KeloRoles> ModuleTest::rowsOf(const CMGetRowsRequest& request)
{
    EXPECT_EQ(errorOf(request), "");
    QList<KeloRoles> result;
    const QVariantList rows = request.reply().value().rows().toList();
    for (const QVariant& row : rows) {
        const QVariantList values = row.toList();
        EXPECT_EQ(values.size(), request.roles().size());
        KeloRoles roles;
        for (int i = 0; i < values.size(); ++i) {
            if (values.at(i).isValid())
                roles.insert(request.roles().at(i), values.at(i));
        }
        result.append(roles);
    }
    return result;
}

QStringList ModuleTest::column(const QList<KeloRoles>& rows, const QString& role)
{
    QStringList result;
    for (const KeloRoles& row : rows)
        result.append(row.value(role).toString());
    return result;
}

QStringList ModuleTest::column(const QString& path, const QString& role)
{
    return column(rowsOf(askRows(path)), role);
}

CMGetRowsRequest ModuleTest::answered(const QString& path, int from, int to, const QByteArray& body,
                                      const QString& etag, const QStringList& roles)
{
    const CMGetRowsRequest request(CMPath::fromEncoded(path), from, to, roles);
    HttpClientHeaders headers;
    if (!etag.isEmpty())
        headers.insert("etag", etag);
    onWorker([&](TidalHandler& handler) {
        const HttpClientPrivate userData{HttpClientPrivate::Data(request)};
        handler.responder()->on_baseResponse_invoke(KeloUrl(), userData, 200, 0, body, headers);
    });
    return request;
}

CMPath ModuleTest::menuOf(const KeloRoles& row)
{
    return CMPath::fromEncoded(row.context().toHash().value(KeloRoles::Path()).toString());
}

ScriptedTest::ScriptedTest()
{
    m_service.script("/sessions", {{200, R"({"sessionId":"s","countryCode":"NO","userId":4005})"}});
    m_service.script("/subscription", {{200, R"({"highestSoundQuality":"LOSSLESS"})"}});
    setService(m_service.baseUrl());
}

SimulatedTest::SimulatedTest() : m_sim(kelosim::SimOptions())
{
    std::string error;
    EXPECT_TRUE(m_sim.start(&error)) << error;
    setService(m_sim.baseUrl());
    const std::string token = m_sim.issueToken();
    m_client = std::make_unique<httplib::Client>(m_sim.baseUrl());
    m_client->set_default_headers({{"Authorization", "Bearer " + token}});
    startConfigured(QString::fromStdString(token));
    // The last that the module asks for by itself.
    EXPECT_TRUE(m_sim.waitForRequests("/moods", 1, patienceMs));
}

SimulatedTest::~SimulatedTest() = default;

QJsonObject SimulatedTest::read(const QString& path)
{
    return objectOf(m_client->Get(target(path)));
}

QJsonObject SimulatedTest::post(const QString& path, const QByteArray& body, const QString& etag)
{
    httplib::Headers headers;
    if (!etag.isEmpty())
        headers.emplace("If-None-Match", etag.toStdString());
    return objectOf(m_client->Post(target(path), headers, body.toStdString(),
                                   "application/x-www-form-urlencoded"));
}

QList<qint64> SimulatedTest::playable(const QString& path)
{
    QList<qint64> ids;
    for (const QJsonValue& item : itemsOf(path)) {
        if (item["allowStreaming"].toBool())
            ids.append(qint64(item["id"].toDouble()));
    }
    return ids;
}

QList<qint64> SimulatedTest::tracksIn(const QString& playlistId)
{
    QList<qint64> ids;
    for (const QJsonValue& item : itemsOf("/playlists/" + playlistId + "/tracks?limit=1000"))
        ids.append(qint64(item["id"].toDouble()));
    return ids;
}

QString SimulatedTest::newPlaylist(const QByteArray& title, const QList<qint64>& tracks)
{
    const QJsonObject made = post(userPath + "/playlists", "title=" + title);
    const QString id = made.value("uuid").toString();
    QByteArray ids;
    for (const qint64 track : tracks)
        ids += QByteArray::number(track) + ',';
    if (!ids.isEmpty())
        post("/playlists/" + id + "/tracks", "trackIds=" + ids + "&toIndex=-1",
             made.value("_etag").toString());
    return id;
}

QStringList SimulatedTest::requestLog()
{
    QStringList lines;
    const auto log = QJsonDocument::fromJson(QByteArray::fromStdString(m_sim.log())).array();
    for (const QJsonValue& entry : log)
        lines << entry["method"].toString() + ' ' + entry["path"].toString().mid(3);
    return lines;
}

OpenRows::OpenRows(const QString& path)
{
    m_id = CMRoot().openRows(CMPath::fromEncoded(path), [this](const auto& notice) {
        std::lock_guard<std::mutex> lock(m_mutex);
        QString text = notice.change.toStringList().join(' ');
        if (notice.count >= 0)
            text += QString(" of %1").arg(notice.count);
        m_notices.append(text);
        m_changed.notify_all();
    });
}

OpenRows::~OpenRows()
{
    CMRoot().closeRows(m_id);
}

QString OpenRows::next()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, std::chrono::milliseconds(patienceMs),
                       [this] { return !m_notices.isEmpty(); });
    return m_notices.isEmpty() ? QString() : m_notices.takeFirst();
}

int OpenRows::pending() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_notices.size();
}
