#include "client/EditSteps.h"

#include "client/DisplayText.h"
#include "client/PathText.h"

namespace cli {

ApiReply send(ApiClient& api, const EditStep& step)
{
    return api.post(QStringLiteral("set"),
                    "{\"path\":" + jsonString(step.path) + ",\"value\":" + step.value + '}');
}

ApiReply send(ApiClient& api, const EditSteps& steps)
{
    ApiReply reply = ApiReply::refusal(QStringLiteral("there is nothing to send"));
    for (const EditStep& step : steps) {
        reply = send(api, step);
        if (!reply.isDone())
            break;
    }
    return reply;
}

void printDryRun(const CommandContext& context, const EditSteps& steps)
{
    QByteArray document;
    for (const EditStep& step : steps) {
        if (!context.isJson)
            context.terminal.line(
                QStringLiteral("kelo set %1 %2")
                    .arg(shellWord(shown(step.path)),
                         shellWord(QString::fromUtf8(printableJson(step.value)))));
        document += document.isEmpty() ? "" : ",";
        document += "{\"method\":\"set\",\"path\":" + jsonString(step.path) +
                    ",\"value\":" + step.value + '}';
    }
    if (context.isJson)
        context.printJson("{\"wouldSend\":[" + document + "]}");
}

} // namespace cli
