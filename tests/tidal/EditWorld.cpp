#include "EditWorld.h"
#include <chrono>
#include <httplib.h>
#include <kelo/CMRoot.h>
#include <QJsonDocument>

namespace {
constexpr int patienceMs = 20000;

QJsonObject objectOf(const httplib::Result& result)
{
    if (!result)
        return QJsonObject();
    QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(result->body)).object();
    object.insert(QStringLiteral("_status"), result->status);
    object.insert(QStringLiteral("_etag"),
                  QString::fromStdString(result->get_header_value("ETag")));
    return object;
}

std::string target(const QString& path)
{
    const QChar separator = path.contains(QLatin1Char('?')) ? QLatin1Char('&') : QLatin1Char('?');
    return ("/v1" + path + separator + "countryCode=NO").toStdString();
}
} // namespace

EditWorld::EditWorld()
    : m_client(new httplib::Client(sim().baseUrl())), m_token("Bearer " + sim().issueToken())
{
    m_client->set_keep_alive(true);
    m_client->set_tcp_nodelay(true);
    m_client->set_default_headers({{"Authorization", m_token}});
}

EditWorld::~EditWorld() = default;

CMSetDataRequest EditWorld::set(const QString& path, const QVariant& value, const QString& role)
{
    const CMSetDataRequest request(CMPath::fromEncoded(path), role, value);
    CMRoot().request(request);
    request.reply().waitForFinished(patienceMs);
    return request;
}

CMGetDataRequest EditWorld::data(const QString& path, const QStringList& roles)
{
    const CMGetDataRequest request(CMPath::fromEncoded(path), roles);
    CMRoot().request(request);
    request.reply().waitForFinished(patienceMs);
    return request;
}

QJsonObject EditWorld::read(const QString& path)
{
    return objectOf(m_client->Get(target(path).c_str()));
}

QJsonObject EditWorld::post(const QString& path, const QByteArray& body, const QString& etag)
{
    httplib::Headers headers;
    if (!etag.isEmpty())
        headers.emplace("If-None-Match", etag.toStdString());
    return objectOf(m_client->Post(target(path).c_str(), headers, body.toStdString(),
                                   "application/x-www-form-urlencoded"));
}

QList<qint64> EditWorld::tracksOf(const QString& playlistId)
{
    QList<qint64> ids;
    const QString path = QStringLiteral("/playlists/%1/tracks?limit=1000").arg(playlistId);
    const QJsonArray items = read(path).value(QLatin1String("items")).toArray();
    for (const QJsonValue& item : items)
        ids.append(qint64(item.toObject().value(QLatin1String("id")).toDouble()));
    return ids;
}

QString EditWorld::newPlaylist(const QByteArray& title, const QList<qint64>& tracks)
{
    const QJsonObject made = post(userPath(QStringLiteral("/playlists")), "title=" + title);
    const QString id = made.value(QLatin1String("uuid")).toString();
    QByteArray ids;
    for (const qint64 track : tracks)
        ids += QByteArray::number(track) + ',';
    if (!ids.isEmpty())
        post(QStringLiteral("/playlists/%1/tracks").arg(id), "trackIds=" + ids + "&toIndex=-1",
             made.value(QLatin1String("_etag")).toString());
    return id;
}

QList<qint64> EditWorld::someTracks(int count)
{
    QList<qint64> ids;
    const QJsonArray items = read(QStringLiteral("/featured/new/tracks?limit=50"))
                                 .value(QLatin1String("items"))
                                 .toArray();
    for (const QJsonValue& item : items) {
        const QJsonObject track = item.toObject();
        if (ids.size() < count && track.value(QLatin1String("allowStreaming")).toBool())
            ids.append(qint64(track.value(QLatin1String("id")).toDouble()));
    }
    return ids;
}

QString EditWorld::userPath(const QString& subPath) const
{
    return QStringLiteral("/users/770011") + subPath;
}

QStringList EditWorld::requestLog()
{
    QStringList lines;
    const auto log = QJsonDocument::fromJson(QByteArray::fromStdString(sim().log())).array();
    for (const QJsonValue& entry : log)
        lines << entry.toObject().value(QLatin1String("method")).toString() + QLatin1Char(' ') +
                     entry.toObject().value(QLatin1String("path")).toString().mid(3);
    return lines;
}

OpenRows::OpenRows(const CMPath& path) : m_notices(std::make_shared<Notices>())
{
    const auto notices = m_notices;
    m_id = CMRoot().openRows(path, [notices](const CMRowsNotice& notice) {
        std::lock_guard<std::mutex> lock(notices->mutex);
        QString text = notice.change.toStringList().join(QLatin1Char(' '));
        if (notice.count >= 0)
            text += QStringLiteral(" of %1").arg(notice.count);
        notices->texts.append(text);
        notices->changed.notify_all();
    });
}

OpenRows::~OpenRows()
{
    CMRoot().closeRows(m_id);
}

QString OpenRows::next()
{
    std::unique_lock<std::mutex> lock(m_notices->mutex);
    m_notices->changed.wait_for(lock, std::chrono::milliseconds(patienceMs),
                                [this] { return !m_notices->texts.isEmpty(); });
    return m_notices->texts.isEmpty() ? QString() : m_notices->texts.takeFirst();
}

int OpenRows::pending() const
{
    std::lock_guard<std::mutex> lock(m_notices->mutex);
    return m_notices->texts.size();
}
