#pragma once
#include <QJsonObject>
#include <QString>

/// What the player says of itself at one moment. A plain value.
struct PlayerStatus
{
    enum class State { Stopped, Resolving, Playing, Paused };

    State state = State::Stopped;
    QString path;
    QString title;
    QString artist;
    QString album;
    QString icon;
    QString qualityAsked;
    QString qualityDelivered;
    QString note;
    QString list;          ///< encoded path of the list that is walked on; empty when there is none
    int index = -1;        ///< row of the item in that list; negative while unknown
    int volume = 100;      ///< percent
    qint64 positionMs = 0; ///< at measuredMs
    qint64 durationMs = 0; ///< 0 when unknown
    qint64 measuredMs = 0; ///< time of the player's clock

    /// The form of the web API at a time of the player's clock: while playing, the position runs
    /// on. What is unknown is left out.
    QJsonObject toJson(qint64 nowMs) const;
};
