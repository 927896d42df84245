#pragma once

#include "client/ApiClient.h"

/// The top nodes of the modules that a streamer serves, read from the rows of "/".
namespace cli {

struct TopNode
{
    QString path;
    QString title;
    QString searchPath; ///< empty: it cannot be searched, or not now
};

/// Those of the modules that serve; of a streamer that does not say, the one there always is.
QList<TopNode> topNodes(ApiClient& api);

/// Where commands begin that are told no path: the top node where there is one, else "/".
QString beginPath(ApiClient& api);

} // namespace cli
