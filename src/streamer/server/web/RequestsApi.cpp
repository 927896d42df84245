#include "RequestsApi.h"

#include "JsonText.h"

#include <kelo/HttpCallLog.h>
#include <QDateTime>

namespace {

void write(JsonText& json, const HttpCallRecord& record)
{
    json.beginObject();
    json.field("id", record.number);
    json.field(
        "time",
        QDateTime::fromMSecsSinceEpoch(record.startedMs, Qt::UTC).toString(Qt::ISODateWithMs));
    json.field("method", record.method);
    json.field("address", record.address());
    json.field("status", record.status);
    json.field("error", record.error());
    json.field("durationMs", record.durationMs);
    json.field("bytes", record.bytes);
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
    json.field("last", records.isEmpty() ? last : records.last().number);
    json.key(QStringLiteral("requests"));
    json.beginArray();
    for (const HttpCallRecord& record : records)
        write(json, record);
    json.endArray();
    json.endObject();
    return HttpReply::json(json.text());
}
