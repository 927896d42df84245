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
                     {QStringLiteral("volume"), status.volume}};
    insertText(json, "path", item.path.toEncoded());
    insertText(json, "title", item.title);
    insertText(json, "artist", item.artist);
    insertText(json, "album", item.album);
    insertText(json, "icon", item.icon);
    insertText(json, "note", notes.join(QStringLiteral("; ")));
    insertText(json, "list", status.list.toEncoded());
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
    for (const char* name :
         {"play", "pause", "resume", "stop", "next", "previous", "seek", "volume"}) {
        routes.add("POST", path + "/" + name,
                   [this, name](const HttpCall& call, const HttpAnswer& answer) {
                       command(QString::fromLatin1(name), call, answer);
                   });
    }
}

void PlayerApi::command(const QString& name, const HttpCall& call, const HttpAnswer& answer)
{
    QString fault;
    const auto arguments = call.object(&fault);
    if (!arguments)
        return answer(HttpReply::badRequest(fault));
    const CMReply<QVariant> reply = m_player.command(name, arguments->toVariant().toHash());
    m_waiter.whenFinished(reply, [this, reply, call, answer] {
        const CMError error = reply.error();
        answer(error.isSet() ? HttpReply::error(error) : state(call));
    });
}

HttpReply PlayerApi::state(const HttpCall& call) const
{
    return HttpReply::json(text(m_player.status(), call.texts));
}
