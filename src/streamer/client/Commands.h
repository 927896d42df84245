#pragma once

#include "client/Command.h"
#include "settings/ServeOptions.h"
#include "settings/Settings.h"

/// The commands of `kelo`, each described and run by the file of its name. CommandLine puts them
/// together.
namespace cli {

Command rowsCommand();
/// Prints the first page of a list, as `kelo rows` does. With a title of its own a person sees no
/// paths.
int showRows(const CommandContext& context, const QString& path, const QString& title = QString());
Command dataCommand();
Command setCommand();
Command watchCommand();
Command searchCommand();
Command treeCommand();
Command bioCommand();
Command openCommand();

Command menuCommand();
Command favoriteCommand();
Command playlistCommand();

Command playCommand();
/// pause, resume, stop, next, previous.
Command playerCommand(const QString& name, const QString& text);
Command seekCommand();
/// Pauses, or goes on.
Command toggleCommand();
Command volumeCommand();
Command muteCommand();
Command statusCommand();
Command queueCommand();
/// The version of the queue that the positions a person types are of: what this terminal listed
/// last, else the present one; nothing when it cannot be had, which is printed.
std::optional<qint64> queueVersion(const CommandContext& context);
/// Plays what stands at a position of the queue.
int jumpInQueue(const CommandContext& context, int position, qint64 version);
Command shuffleCommand();
Command repeatCommand();

Command loginCommand();
Command logoutCommand();

/// \p serve runs the streamer.
Command serveCommand(std::function<int(const ServeOptions&, const Settings&)> serve);
Command configCommand();
Command doctorCommand();
Command completionCommand();
/// What the completion scripts call: the line that is typed (bash), or its words (zsh). \p endSoon
/// is called before the streamer at \p server is asked, if it is set.
Command completeCommand(const Command& program, const QString& server, const UserState& state,
                        std::function<void()> endSoon);
/// Prints a manual page, for installing.
Command manualCommand(const Command& program);

} // namespace cli
