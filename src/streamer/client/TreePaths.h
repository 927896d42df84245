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
/// The user's own playlists: their titles, or the ids, with the titles as notes, of those that
/// share a title or where \p prefix begins one.
Completion::Candidates playlistNames(const QString& server, const QString& prefix);
/// The login services.
Completion::Candidates loginServices(const QString& server);

} // namespace cli
