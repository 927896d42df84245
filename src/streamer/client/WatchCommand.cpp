#include "client/WatchCommand.h"

#include "client/DisplayText.h"
#include "client/Following.h"
#include "client/PathText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTime>

namespace cli {

QString WatchCommand::changeText(const QJsonValue& change)
{
    if (!change.isArray())
        return valueText(change);
    QStringList words;
    for (const auto& word : change.toArray())
        words.append(valueText(word));
    return words.join(',');
}

int WatchCommand::run(const CommandContext& context) const
{
    const QStringList watched = paths.isEmpty() ? QStringList{topPath()} : paths;
    const ApiReply stream = follow(context, watched, nullptr, [&](const ServerEvent& event) {
        if (event.name != "rows")
            return true;
        if (context.isJson) {
            context.printJson(event.data);
            return true;
        }
        const QJsonObject notice = QJsonDocument::fromJson(event.data).object();
        const QString path = notice.value(QLatin1String("path")).toString();
        context.terminal.line(QStringList{QTime::currentTime().toString(QStringLiteral("HH:mm:ss")),
                                          shellWord(shown(path)),
                                          changeText(notice.value(QLatin1String("change"))),
                                          valueText(notice.value(QLatin1String("count")))}
                                  .join(QStringLiteral("  ")));
        return true;
    });
    return context.finish(stream);
}

} // namespace cli
