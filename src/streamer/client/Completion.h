#pragma once

#include "client/Command.h"

namespace cli {

/// What may follow on a command line: commands and options from the command structure, values from
/// the settings, tree paths and playlists from the streamer. A value; finding it may be slow. It
/// prints nothing and knows no shell.
struct Completion
{
    struct Candidate
    {
        QString text; ///< replaces the whole last word
        QString note; ///< for people, may be empty
    };
    using Candidates = QVector<Candidate>;
    enum class Kind {
        Words,   ///< a blank follows
        Parts,   ///< more may follow without a blank
        Titles,  ///< a blank follows; they hold what a shell acts on
        Files,   ///< the shell completes names of files
        Folders, ///< and of folders
    };

    Candidates candidates;
    Kind kind = Kind::Words;

    /// \p words begin with the program's name; the last one is being typed. \p server is asked
    /// where the words name no other. \p state has the rows that go by numbers and titles.
    static Completion find(const Command& program, const QStringList& words, QString server,
                           const UserState& state);
};

/// The candidates that begin with \p prefix.
Completion::Candidates keepStarting(const Completion::Candidates& all, const QString& prefix);

} // namespace cli
