#pragma once

#include "client/CommandContext.h"

namespace cli {

/// One value that an edit sends to a node. A plain value.
struct EditStep
{
    QString path;
    QByteArray value = QByteArrayLiteral("1"); ///< JSON
};

using EditSteps = QList<EditStep>;

[[nodiscard]] ApiReply send(ApiClient& api, const EditStep& step);

/// Sends one after the other and stops at the first that is refused, whose answer it gives; else
/// the last one's.
[[nodiscard]] ApiReply send(ApiClient& api, const EditSteps& steps);

/// Prints what would be sent, each step as the command that sends it, or as one JSON document.
void printDryRun(const CommandContext& context, const EditSteps& steps);

} // namespace cli
