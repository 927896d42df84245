#pragma once

#include "client/EditSteps.h"
#include "client/TreeWalk.h"

namespace cli {

/// The commands of `kelo playlist`: they find the menus, choosers and forms that a screen would
/// show, fill them in and submit them. Made for one run, used on the main thread. Everything is
/// looked up before anything is sent. Actions answer the same whether the service took them or not,
/// so where it can be told the lists are looked at afterwards.
struct PlaylistCommand
{
    QString id; ///< the playlist's, or the path of its row
    QString title;
    QString description;
    QStringList paths; ///< rows to add
    int row = 0;
    int target = 0;
    bool isDryRun = false;

    int create(const CommandContext& context) const;
    int rename(const CommandContext& context) const;
    /// Deletes the playlist.
    int destroy(const CommandContext& context) const;
    int add(const CommandContext& context) const;
    /// Removes one row of the playlist.
    int remove(const CommandContext& context) const;
    int move(const CommandContext& context) const;

    /// The path of the list of the user's own playlists.
    [[nodiscard]] static ApiReply findPlaylists(const TreeWalk& walk, QString& list);

private:
    [[nodiscard]] static ApiReply findCollection(const TreeWalk& walk, QString& path);
    [[nodiscard]] ApiReply findPlaylist(const TreeWalk& walk, QJsonObject& playlist) const;
    [[nodiscard]] ApiReply findItem(const TreeWalk& walk, QString& list, QJsonObject& item) const;
    [[nodiscard]] ApiReply fillForm(const TreeWalk& walk, const QString& form,
                                    EditSteps& steps) const;
    /// Looks whether an edit has happened; a refusal when it has not.
    using Check = std::function<ApiReply()>;
    int finish(const CommandContext& context, const ApiReply& found, const EditSteps& steps,
               const QString& done, const Check& check = nullptr) const;
};

} // namespace cli
