#pragma once

#include "client/Command.h"

#include <functional>

namespace cli {

/// Finds what may follow on a command line: commands and options from the command structure, values
/// from the settings, and the rest (tree paths, playlists) from whoever asks the streamer. Made for
/// one completion, used on the main thread. It prints nothing and knows no shell.
class Completion
{
public:
    struct Candidate
    {
        QString text; ///< replaces the whole last word
        QString note; ///< for people, may be empty
    };
    enum class Kind {
        Words,   ///< a blank follows
        Parts,   ///< more may follow without a blank
        Files,   ///< the shell completes names of files
        Folders, ///< and of folders
    };
    struct Result
    {
        QVector<Candidate> candidates;
        Kind kind = Kind::Words;
    };
    /// What the streamer knows. May be slow; called at most once.
    struct Streamer
    {
        std::function<QVector<Candidate>(const QString& prefix)> paths;
        std::function<QVector<Candidate>()> playlists;
    };

    Completion(const Command& program, Streamer streamer)
        : m_program(program), m_streamer(std::move(streamer))
    {
    }

    /// \p words begin with the program's name; the last one is being typed.
    Result complete(const QStringList& words) const;
    /// The value that an option was given in \p words, the last one where it stands twice; empty
    /// when it was not.
    static QString optionValue(const QStringList& words, const QString& option);

private:
    Result values(const Option& option, const QString& prefix) const;

    const Command& m_program;
    const Streamer m_streamer;
};

} // namespace cli
