#pragma once
#include <functional>
#include <kelo/CMReply.h>
#include <QVariantHash>

class PlayerEngine;

/// A command of the web API, read and checked: what it asks of the engine, or what is wrong with
/// it. A value type.
struct PlayerCommand
{
    using Run = std::function<void(PlayerEngine&, const CMReply<QVariant>&)>;

    Run run;       ///< empty when the command is malformed
    CMError error; ///< set then

    static PlayerCommand parse(const QString& name, const QVariantHash& arguments);
};
