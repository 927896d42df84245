#pragma once
#include <kelo/CMPath.h>
#include <kelo/TrString.h>

/// What is shown of an item that is played. A value type.
struct ShownItem
{
    CMPath path; ///< the row's; of an item without a row, the play request's
    QString title;
    QString artist;
    QString album;
    QString icon;
    QString qualityAsked;
    QString qualityDelivered; ///< empty when unknown
    qint64 durationMs = 0;    ///< 0 when unknown
};

/// What the player says of itself at one moment. A value type.
struct PlayerStatus
{
    enum class State { Stopped, Resolving, Playing, Paused };

    State state = State::Stopped;
    ShownItem item; ///< of empty path while there is none
    CMPath list;    ///< that is walked on; empty when there is none
    int index = -1; ///< row of the item in that list; negative while unknown
    TrString listTitle;
    bool isShuffled = false;
    QString repeat = QStringLiteral("off"); ///< off, all or one
    quint64 queueVersion = 0;               ///< another after each change of what comes next
    int queueRows = 0;                      ///< that come next
    int volume = 100;                       ///< percent
    qint64 positionMs = 0;
    QList<TrString> notes; ///< what people should know, oldest first
};
