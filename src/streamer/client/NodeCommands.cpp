#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/RowNames.h"

namespace cli {

namespace {

/// One "name  value" line per entry, names aligned; a tab between where no person looks.
void printEntries(Terminal& terminal, const QJsonObject& entries)
{
    int widest = 0;
    for (const QString& name : entries.keys())
        widest = qMax(widest, columns(shown(name)));
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        if (!terminal.hasWidth()) {
            terminal.line(shown(it.key()) + '\t' + valueText(it.value()));
            continue;
        }
        terminal.line(terminal.styled(padded(shown(it.key()), widest), Terminal::Style::Bold) +
                      "  " + valueText(it.value()));
    }
}

/// What a finished action has to say: the title and text of its result, or that it is done.
void printAction(Terminal& terminal, const QJsonObject& reply)
{
    const QJsonObject result = objectIn(reply, "result");
    const QString title = shown(textIn(result, "Title"));
    const QString text = shown(textIn(result, "Description"));
    terminal.line(title.isEmpty() ? "done" : terminal.styled(title, Terminal::Style::Bold));
    if (!text.isEmpty())
        terminal.line(text);
}

struct DataCommand
{
    QString path;
    QString roles; ///< names with commas; empty: the streamer's usual ones

    int run(const CommandContext& context) const;
};

struct SetCommand
{
    QString path;
    QString value = "1"; ///< JSON of any kind, sent as it is written

    int run(const CommandContext& context) const;
};

int DataCommand::run(const CommandContext& context) const
{
    Query query{{"path", path}};
    if (!roles.isEmpty())
        query.append({"roles", roles});
    const ApiReply reply = context.api.get("data", query);
    return context.show(reply,
                        [&] { printEntries(context.terminal, objectIn(reply.document, "data")); });
}

int SetCommand::run(const CommandContext& context) const
{
    const QByteArray text = value.toUtf8();
    if (!parseJsonValue(text)) {
        context.terminal.error(
            "kelo: VALUE is no JSON; wanted a number, true, false, null, a text in double quotes "
            "('\"HIGH\"'), an array or an object");
        return ExitUsage;
    }
    const ApiReply reply = context.api.set(path, text);
    return context.show(reply, [&] {
        const QJsonValue answer = reply.document.value("reply");
        if (textIn(answer.toObject(), "class") == "KeloActionReply")
            printAction(context.terminal, answer.toObject());
        else if (answer.isObject())
            printEntries(context.terminal, answer.toObject());
        else
            context.terminal.line(answer.isNull() || answer.isUndefined() ? "done"
                                                                          : valueText(answer));
    });
}

} // namespace

Command dataCommand()
{
    const auto data = std::make_shared<DataCommand>();
    return Command("data", "Show a node's data.",
                   "kelo data /settings/tidal/soundQuality\nkelo data 0 --roles Title")
        .option("PATH", data->path, "The node")
        .option("--roles A,B", data->roles, "Roles wanted, with commas between")
        .asks([data](const CommandContext& context) {
            return atPath(context, data->path, [&](const QString& path) {
                data->path = path;
                return data->run(context);
            });
        });
}

Command setCommand()
{
    const auto set = std::make_shared<SetCommand>();
    return Command("set", "Send a value to a node: activate, store, submit.",
                   "kelo set /settings/tidal/soundQuality 2")
        .option("PATH", set->path, "The node")
        .option("[VALUE]", set->value, "The value as JSON (1)")
        .asks([set](const CommandContext& context) {
            return atPath(context, set->path, [&](const QString& path) {
                set->path = path;
                return set->run(context);
            });
        });
}

} // namespace cli
