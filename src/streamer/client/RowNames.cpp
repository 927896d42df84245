#include "client/RowNames.h"

#include "client/DisplayText.h"

#include <algorithm>

namespace cli {

namespace {

/// Longer numbers are ids of the service.
constexpr int mostNumberDigits = 4;

QString numbersOf(const QVector<ListedRow>& rows)
{
    constexpr int most = 8;
    QStringList numbers;
    for (const ListedRow& row : rows.mid(0, most))
        numbers.append(QString::number(row.number));
    return numbers.join(", ") + (rows.size() > most ? ", ..." : "");
}

std::optional<ListedRow> refused(const CommandContext& context, const QString& message)
{
    context.terminal.error("kelo: " + message);
    return std::nullopt;
}

} // namespace

std::optional<ListedRow> namedRow(const CommandContext& context, const QString& text)
{
    const ListedRow typed{-1, {}, text};
    if (text.startsWith('/'))
        return typed;
    const std::optional<Listing> listing = context.state.listing(context.api.server());
    const bool isNumber = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= '0' && c <= '9';
    });
    if (isNumber) {
        const ListedRow* row = listing ? listing->at(text.toInt()) : nullptr;
        if (row)
            return *row;
        if (!listing || text.size() > mostNumberDigits)
            return typed;
        return refused(context, QStringLiteral("what this terminal listed last has no row %1 with "
                                               "a path")
                                    .arg(text));
    }
    if (!listing)
        return refused(context,
                       QStringLiteral("\"%1\" is no path, and this terminal has listed nothing "
                                      "that could be called so (kelo rows, kelo search)")
                           .arg(shown(text)));
    const QVector<ListedRow> found = listing->called(text);
    if (found.size() == 1)
        return found.first();
    const QString name = shown(text);
    return refused(
        context,
        found.isEmpty()
            ? QStringLiteral("nothing that this terminal listed last is called \"%1\"").arg(name)
            : QStringLiteral("\"%1\" may be row %2 of the last listing; take a number")
                  .arg(name, numbersOf(found)));
}

std::optional<QStringList> namedPaths(const CommandContext& context, const QStringList& texts)
{
    QStringList paths;
    for (const QString& text : texts) {
        const auto row = namedRow(context, text);
        if (!row)
            return std::nullopt;
        paths.append(row->path);
    }
    return paths;
}

QString nameOfList(const CommandContext& context, const QString& path)
{
    if (!context.terminal.isInteractive() || context.isJson || !path.contains('?'))
        return {};
    for (const ListedRow& row :
         context.state.listing(context.api.server()).value_or(Listing()).rows) {
        if (row.path == path)
            return row.title;
    }
    const ApiReply reply = context.api.get("row", {{"path", path}});
    return textIn(objectIn(reply.document, "row"), "Title");
}

QString titleOfList(const CommandContext& context, const QJsonObject& player)
{
    const QString name = nameOfList(context, textIn(player, "list"));
    return name.isEmpty() ? textIn(player, "listTitle") : name;
}

int atPath(const CommandContext& context, const QString& text,
           const std::function<int(const QString&)>& run)
{
    const auto row = namedRow(context, text);
    return row ? run(row->path) : ExitRefused;
}

} // namespace cli
