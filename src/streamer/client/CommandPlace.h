#pragma once

#include "client/Command.h"

namespace cli {

/// How far the words of a command line are read, and what the next one is: what reading the line
/// and completing it have in common. A value made for one line. It stores and refuses nothing.
struct CommandPlace
{
    /// What a word is.
    struct Word
    {
        enum class Kind {
            Nothing, ///< a command, "--", an option whose value follows
            Value,   ///< of an option or argument; of a flag "true"
            UnknownOption,
            TooMuch,
        };

        Kind kind = Kind::Nothing;
        const Option* option = nullptr; ///< of a value
        QString value = {};
    };

    explicit CommandPlace(const Command& program) : command(&program), words(program.name) {}

    Word take(const QString& word);
    /// The argument that comes next; null when there is none.
    const Option* nextArgument() const;

    const Command* command;
    QString words;                   ///< the command as it is written, "kelo playlist add"
    const Option* waiting = nullptr; ///< the option whose value comes now
    /// An option that is given as a flag: a word that is nothing else is its value.
    const Option* flag = nullptr;
    int arguments = 0;            ///< given so far
    bool hasOptionsEnded = false; ///< "--" was there
    QVector<const Option*> given = {};

private:
    Word takeOption(const QString& word);
};

} // namespace cli
