#pragma once
#include "CMPath.h"
#include "CMReply.h"

/// Has the root answer a request that nobody holds any more. Any thread, also with locks held: the
/// answer is given on the root's own thread.
void keloEndUnanswered(const CMPath& path, const CMVoidReply& reply);
