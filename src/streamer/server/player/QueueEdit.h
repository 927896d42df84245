#pragma once
#include "RowFinder.h"

#include <QStringList>

/// What a client wants done to the queue, read and checked as far as that goes without it. A value
/// type.
struct QueueEdit
{
    enum Action { Add, Move, Remove, Jump, Clear };

    Action action = Clear;
    QList<CMPath> paths;    ///< to add; one of an empty base holds a track id as "id"
    RowFinder::Place place; ///< of the first of them
    bool isNext = false;    ///< in front of what was added before
    quint64 version = 0;    ///< that the positions belong to
    int position = 0;
    int to = 0;
    int count = 1;
};
