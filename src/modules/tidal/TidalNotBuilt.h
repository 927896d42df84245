#pragma once
#include <kelo/CMRequest.h>

/// Answers a request for something that this module does not do yet, unless nobody waits for it any
/// more.
inline void replyNotBuilt(const CMRequest& request, const TrString& message)
{
    if (!request.isNull() && !request.reply().isFinished())
        request.reply().setError(CMError(QStringLiteral("TIDAL"), message));
}
