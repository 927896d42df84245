#include "client/NodeCommands.h"

#include "client/DisplayText.h"

namespace cli {

namespace {

/// One "name  value" line per entry, names aligned.
void printEntries(Terminal& terminal, const QJsonObject& entries)
{
    int widest = 0;
    for (const QString& name : entries.keys())
        widest = qMax(widest, columns(shown(name)));
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        terminal.line(terminal.styled(padded(shown(it.key()), widest), Terminal::Style::Bold) +
                      QStringLiteral("  ") + valueText(it.value()));
    }
}

/// What a finished action has to say: the title and text of its result, or that it is done.
void printAction(Terminal& terminal, const QJsonObject& reply)
{
    const QJsonObject result = reply.value(QLatin1String("result")).toObject();
    const QString title = shown(result.value(QLatin1String("Title")).toString());
    const QString text = shown(result.value(QLatin1String("Description")).toString());
    terminal.line(title.isEmpty() ? QStringLiteral("done")
                                  : terminal.styled(title, Terminal::Style::Bold));
    if (!text.isEmpty())
        terminal.line(text);
}

} // namespace

int DataCommand::run(const CommandContext& context) const
{
    Query query{{QStringLiteral("path"), path}};
    if (!roles.isEmpty())
        query.append({QStringLiteral("roles"), roles});
    const ApiReply reply = context.api.get(QStringLiteral("data"), query);
    if (context.isJson)
        return context.printJson(reply);
    if (reply.isDone())
        printEntries(context.terminal, reply.document.value(QLatin1String("data")).toObject());
    return context.finish(reply);
}

int SetCommand::run(const CommandContext& context) const
{
    const QByteArray text = value.toUtf8();
    if (!parseJsonValue(text)) {
        context.terminal.error(QStringLiteral(
            "kelo: VALUE is no JSON; wanted a number, true, false, null, a text in double quotes "
            "('\"HIGH\"'), an array or an object"));
        return ExitUsage;
    }
    const ApiReply reply = context.api.post(QStringLiteral("set"), "{\"path\":" + jsonString(path) +
                                                                       ",\"value\":" + text + "}");
    if (context.isJson)
        return context.printJson(reply);
    if (reply.isDone()) {
        const QJsonValue answer = reply.document.value(QLatin1String("reply"));
        const QString kind = answer.toObject().value(QLatin1String("class")).toString();
        if (kind == QLatin1String("KeloActionReply"))
            printAction(context.terminal, answer.toObject());
        else if (answer.isObject())
            printEntries(context.terminal, answer.toObject());
        else
            context.terminal.line(answer.isNull() || answer.isUndefined() ? QStringLiteral("done")
                                                                          : valueText(answer));
    }
    return context.finish(reply);
}

} // namespace cli
