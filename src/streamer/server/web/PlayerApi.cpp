#include "PlayerApi.h"

#include "JsonText.h"
#include "PlayerControl.h"
#include "ReplyWaiter.h"
#include "texts/TextCatalogue.h"

namespace {

QString nameOf(PlayerStatus::State state)
{
    switch (state) {
    case PlayerStatus::State::Resolving:
        return QStringLiteral("resolving");
    case PlayerStatus::State::Playing:
        return QStringLiteral("playing");
    case PlayerStatus::State::Paused:
        return QStringLiteral("paused");
    case PlayerStatus::State::Stopped:
        break;
    }
    return QStringLiteral("stopped");
}

void insertText(QJsonObject& object, const char* name, const QString& text)
{
    if (!text.isEmpty())
        object.insert(QLatin1String(name), text);
}

} // namespace

std::string PlayerApi::text(const PlayerStatus& status, const TextCatalogue* texts)
{
    QStringList notes;
    for (const TrString& note : status.notes)
        notes.append(texts ? note.toString(*texts) : note.source());
    const ShownItem& item = status.item;
    QJsonObject json{{QStringLiteral("state"), nameOf(status.state)},
                     {QStringLiteral("volume"), status.volume},
                     {QStringLiteral("shuffle"), status.isShuffled},
                     {QStringLiteral("repeat"), status.repeat},
                     {QStringLiteral("queueVersion"), qint64(status.queueVersion)}};
    insertText(json, "path", item.path.toEncoded());
    insertText(json, "title", item.title);
    insertText(json, "artist", item.artist);
    insertText(json, "album", item.album);
    insertText(json, "icon", item.icon);
    insertText(json, "note", notes.join(QStringLiteral("; ")));
    insertText(json, "list", status.list.toEncoded());
    if (!status.list.isEmpty())
        insertText(json, "listTitle",
                   texts ? status.listTitle.toString(*texts) : status.listTitle.source());
    if (!status.list.isEmpty() && status.index >= 0)
        json.insert(QStringLiteral("index"), status.index);
    QJsonObject quality;
    insertText(quality, "asked", item.qualityAsked);
    insertText(quality, "delivered", item.qualityDelivered);
    if (!quality.isEmpty())
        json.insert(QStringLiteral("quality"), quality);
    if (!item.path.isEmpty() || status.state != PlayerStatus::State::Stopped) {
        json.insert(QStringLiteral("positionMs"), status.positionMs);
        if (item.durationMs > 0)
            json.insert(QStringLiteral("durationMs"), item.durationMs);
    }
    return JsonText::fromObject(json);
}

void PlayerApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/player";
    routes.add("GET", path, [this](const HttpCall& call) { return state(call); });
    for (const char* name : {"play", "pause", "resume", "stop", "next", "previous", "seek",
                             "volume", "shuffle", "repeat"}) {
        routes.add("POST", path + "/" + name,
                   [this, name](const HttpCall& call, const HttpAnswer& answer) {
                       command(QString::fromLatin1(name), call, answer);
                   });
    }
    routes.add("GET", path + "/queue",
               [this](const HttpCall& call, const HttpAnswer& answer) { queue(call, answer); });
    routes.add("POST", path + "/queue",
               [this](const HttpCall& call, const HttpAnswer& answer) { editQueue(call, answer); });
}

void PlayerApi::command(const QString& name, const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto arguments = call.object(&fault);
    if (!arguments)
        return answer(HttpReply::badRequest(fault));
    run(name, arguments->toVariant().toHash(), answer,
        [this, call](const QVariant&) { return state(call); });
}

void PlayerApi::run(const QString& name, const QVariantHash& arguments, const HttpAnswer& answer,
                    std::function<HttpReply(const QVariant&)> then)
{
    const CMReply<QVariant> reply = m_player.command(name, arguments);
    m_waiter.whenFinished(reply, [reply, answer, then = std::move(then)] {
        const CMError error = reply.error();
        answer(error.isSet() ? HttpReply::error(error) : then(reply.value()));
    });
}

void PlayerApi::queue(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto from = call.integer("from", 0, &fault);
    const auto to =
        call.integer("to", int(qMin(qint64(from.value_or(0)) + 49, qint64(INT_MAX))), &fault);
    if (!from || !to)
        return answer(HttpReply::badRequest(fault));
    run(QStringLiteral("queueRows"), {{QStringLiteral("from"), *from}, {QStringLiteral("to"), *to}},
        answer, [texts = call.texts](const QVariant& value) {
            const QVariantHash queue = value.toHash();
            JsonText json(texts);
            json.beginObject();
            for (const char* name : {"version", "list", "listTitle", "queued", "rowsCount", "from"})
                if (queue.contains(QLatin1String(name)))
                    json.field(name, queue.value(QLatin1String(name)));
            json.key(QStringLiteral("rows"));
            json.beginArray();
            const QVariantList rows = queue.value(QStringLiteral("rows")).toList();
            for (const QVariant& row : rows)
                json.rowRoles(row.toHash());
            json.endArray();
            json.endObject();
            return HttpReply::json(json.text());
        });
}

void PlayerApi::editQueue(const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto arguments = call.object(&fault);
    if (!arguments)
        return answer(HttpReply::badRequest(fault));
    run(QStringLiteral("queue"), arguments->toVariant().toHash(), answer,
        [](const QVariant& value) {
            return HttpReply::json(QJsonObject::fromVariantHash(value.toHash()));
        });
}

HttpReply PlayerApi::state(const HttpCall& call) const
{
    return HttpReply::json(text(m_player.status(), call.texts));
}
