#pragma once

#include "client/ApiClient.h"
#include "client/JsonText.h"
#include "client/Terminal.h"
#include "client/UserState.h"

namespace cli {

/// Exit statuses that scripts rely on.
enum ExitStatus {
    ExitDone = 0,
    ExitRefused = 1,     ///< the streamer answered with an error
    ExitUsage = 2,       ///< wrong usage
    ExitUnreachable = 3, ///< no streamer reachable
};

/// The top node of the service whose playlists and searches the commands know by name.
inline QString topPath()
{
    return "/tidal";
}

/// What every command gets: the streamer, the place to print, the form to print in. Made by
/// main() for one command, used on the main thread.
struct CommandContext
{
    ApiClient& api;
    Terminal& terminal;
    const UserState& state;
    bool isJson = false;
    QStringList fields = {}; ///< the only ones of a JSON document that are wanted; empty: all
    /// Called before following something until interrupted.
    std::function<void()> endOnInterrupt = {};
    /// Waits before something is asked for again; false, or none: it is not to be.
    std::function<bool()> waitASecond = {};
    /// Asks a person who can say no; none: nobody is there.
    std::function<bool(const QString&)> confirm = {};
    /// Opens an address in the desktop's browser; false, or none: there is no desktop.
    std::function<bool(const QString&)> openAddress = {};

    /// Prints what went wrong and gives the exit status for it; 0 and nothing printed when nothing
    /// did.
    int finish(const ApiReply& reply) const
    {
        if (reply.isDone())
            return ExitDone;
        QJsonObject more;
        if (!reply.document.isEmpty())
            more.insert("problem", reply.document);
        terminal.error("kelo: " + reply.message, more);
        return reply.outcome == ApiReply::Outcome::Refused ? ExitRefused : ExitUnreachable;
    }

    /// Prints the reply: its document, or for people what \p print makes of one that is done.
    int show(const ApiReply& reply, const std::function<void()>& print) const
    {
        if (isJson)
            return printJson(reply);
        if (reply.isDone())
            print();
        return finish(reply);
    }

    /// Prints the reply's document as it came.
    int printJson(const ApiReply& reply) const
    {
        if (reply.isDone())
            printJson(reply.body);
        return finish(reply);
    }

    void printJson(const QByteArray& document) const
    {
        const QByteArray text = fields.isEmpty() ? document : json(picked(document, fields));
        terminal.line(QString::fromUtf8(printableJson(text.trimmed())));
    }
};

} // namespace cli
