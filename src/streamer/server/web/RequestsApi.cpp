#include "RequestsApi.h"

#include "JsonText.h"

#include <kelo/HttpCallLog.h>
#include <QDateTime>

namespace {

void write(JsonText& json, const HttpCallRecord& record)
{
    json.beginObject();
    json.key(QStringLiteral("id"));
    json.number(qint64(record.number));
    json.key(QStringLiteral("time"));
    json.string(
        QDateTime::fromMSecsSinceEpoch(record.startedMs, Qt::UTC).toString(Qt::ISODateWithMs));
    json.key(QStringLiteral("method"));
    json.string(QString::fromLatin1(record.method));
    json.key(QStringLiteral("address"));
    json.string(record.address());
    json.key(QStringLiteral("status"));
    json.number(record.status);
    json.key(QStringLiteral("error"));
    json.string(record.error());
    json.key(QStringLiteral("durationMs"));
    json.number(record.durationMs);
    json.key(QStringLiteral("bytes"));
    json.number(record.bytes);
    json.endObject();
}

} // namespace

void RequestsApi::addRoutes(RouteTable& routes)
{
    routes.add("GET", "/api/v1/requests", requests);
}

std::string RequestsApi::text(const HttpCallRecord& record)
{
    JsonText json;
    write(json, record);
    return json.text();
}

HttpReply RequestsApi::requests(const HttpCall& call)
{
    QString fault;
    const auto after = call.integer("after", 0, &fault);
    if (!after)
        return HttpReply::badRequest(fault);
    const HttpCallLog& log = HttpCallLog::instance();
    const quint64 last = log.lastNumber();
    // A number from before a restart is behind all of now.
    const quint64 begin = *after < 0 || quint64(*after) > last ? 0 : quint64(*after);
    const QVector<HttpCallRecord> records = log.recordsAfter(begin);
    JsonText json;
    json.beginObject();
    json.key(QStringLiteral("last"));
    json.number(qint64(records.isEmpty() ? last : records.last().number));
    json.key(QStringLiteral("requests"));
    json.beginArray();
    for (const HttpCallRecord& record : records)
        write(json, record);
    json.endArray();
    json.endObject();
    return HttpReply::json(json.text());
}
