#include "PlayerStatus.h"
#include <algorithm>

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

QJsonObject PlayerStatus::toJson(qint64 nowMs) const
{
    QJsonObject json{{QStringLiteral("state"), nameOf(state)}, {QStringLiteral("volume"), volume}};
    insertText(json, "path", path);
    insertText(json, "title", title);
    insertText(json, "artist", artist);
    insertText(json, "album", album);
    insertText(json, "icon", icon);
    insertText(json, "note", note);
    insertText(json, "list", list);
    if (!list.isEmpty() && index >= 0)
        json.insert(QStringLiteral("index"), index);
    QJsonObject quality;
    insertText(quality, "asked", qualityAsked);
    insertText(quality, "delivered", qualityDelivered);
    if (!quality.isEmpty())
        json.insert(QStringLiteral("quality"), quality);
    if (path.isEmpty() && state == State::Stopped)
        return json;
    qint64 position = positionMs;
    if (state == State::Playing)
        position += std::max<qint64>(0, nowMs - measuredMs);
    if (durationMs > 0) {
        position = std::min(position, durationMs);
        json.insert(QStringLiteral("durationMs"), durationMs);
    }
    json.insert(QStringLiteral("positionMs"), position);
    return json;
}
