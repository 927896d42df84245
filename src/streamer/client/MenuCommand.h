#pragma once

#include "client/CommandContext.h"

#include <QJsonObject>

namespace cli {

/// `kelo menu`: prints the context menu of a row, its actions with the titles that they have now.
/// Made for one run, used on the main thread. It activates nothing.
struct MenuCommand
{
    QString path; ///< a row's, a list's, or a menu's own

    int run(const CommandContext& context) const;
};

/// `kelo favorite`: makes a row a favourite or takes that back, by the first action of its context
/// menu. Made for one run, used on the main thread.
struct FavoriteCommand
{
    QString path;
    QString wish; ///< "on", "off"; empty: the other one

    int run(const CommandContext& context) const;

private:
    enum class State { On, Off, Unknown };

    [[nodiscard]] static ApiReply readState(ApiClient& api, const QString& action, State& state);
    [[nodiscard]] ApiReply apply(const CommandContext& context, QJsonObject& result) const;
};

} // namespace cli
