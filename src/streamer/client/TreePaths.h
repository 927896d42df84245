#pragma once

#include "client/ApiClient.h"
#include "client/Completion.h"

/// What the streamer at \p server knows to complete. Errors give no candidates; there is no time
/// limit.
namespace cli {

/// The rows whose paths begin with \p prefix: beside what is typed, or below it when it is a whole
/// path, else found from the top on. Behind a slash all rows below, since their paths need not
/// begin with their parent's.
Completion::Candidates treePaths(const QString& server, const QString& prefix);
/// The user's own playlists: ids, with the titles as notes.
Completion::Candidates playlistIds(const QString& server);

} // namespace cli
