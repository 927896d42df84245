#pragma once
#include "RouteTable.h"

class PlayerControl;
struct PlayerStatus;
class ReplyWaiter;

/// The player's calls of the HTTP API. Owned by the web server; any thread.
class PlayerApi
{
public:
    PlayerApi(PlayerControl& player, ReplyWaiter& waiter) : m_player(player), m_waiter(waiter) {}

    void addRoutes(RouteTable& routes);
    /// A status as JSON, as the call and the event show it. What is unknown is left out.
    static std::string text(const PlayerStatus& status, const TextCatalogue* texts);

private:
    HttpReply state(const HttpCall& call) const;
    void command(const QString& name, const HttpCall& call, const HttpAnswer& answer);
    void queue(const HttpCall& call, const HttpAnswer& answer);
    void editQueue(const HttpCall& call, const HttpAnswer& answer);
    /// Runs a command of the player; `then` makes an answer of its outcome.
    void run(const QString& name, const QVariantHash& arguments, const HttpAnswer& answer,
             std::function<HttpReply(const QVariant&)> then);

    PlayerControl& m_player;
    ReplyWaiter& m_waiter;
};
