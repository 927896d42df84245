#pragma once

#include "client/ApiClient.h"
#include "client/Completion.h"

namespace cli {

/// Asks the streamer for paths and playlists to complete. Made for one completion, used on the main
/// thread. Errors give no candidates. It has no time limit of its own.
class TreePaths
{
public:
    explicit TreePaths(ApiClient& api) : m_api(api) {}

    /// The rows whose paths begin with \p prefix: beside what is typed, or below it when it is a
    /// whole path, else found from the top on. Behind a slash all rows below, since their paths
    /// need not begin with their parent's.
    QVector<Completion::Candidate> startingWith(const QString& prefix);
    /// The user's own playlists: ids, with the titles as notes.
    QVector<Completion::Candidate> playlists();

private:
    using Candidates = QVector<Completion::Candidate>;

    Candidates rowsOf(const QString& list);
    Candidates searched(const QString& prefix);

    ApiClient& m_api;
};

} // namespace cli
