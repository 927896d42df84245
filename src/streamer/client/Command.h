#pragma once

#include "client/CommandContext.h"

#include <climits>
#include <QVector>

namespace cli {

/// Where the text of an option goes, and which texts it takes. It points into a command's values.
struct OptionTarget
{
    using Store = std::function<bool(const QString&)>;

    explicit OptionTarget(Store store) : store(std::move(store)) {}
    OptionTarget(QString& text);
    /// Every further value is one more.
    OptionTarget(QStringList& texts);
    OptionTarget(bool& flag);
    OptionTarget(int& number, int least = INT_MIN, int most = INT_MAX);
    OptionTarget(QString& text, const QStringList& choices);

    Store store;              ///< false: the text is not what is wanted
    QString wanted = {};      ///< "a number"
    QStringList choices = {}; ///< the only texts there are; empty: anything
    bool isMany = false;
};

/// An option, a flag or an argument of a command. A value.
struct Option
{
    QStringList names; ///< "-o", "--output"; of an argument its name alone, "PATH"
    QString value;     ///< what the value is called, "FILE"; empty for a flag
    QString text;
    bool isRequired = false;      ///< of an argument
    bool isValueOptional = false; ///< of an option: alone it is a flag
    OptionTarget target;

    bool hasValue() const { return !value.isEmpty(); }
    /// "-o KEY=VALUE", "--in albums|tracks": the option as it is written.
    QString written() const;
};

/// A command with its options and what it does: what the command line is read by, and what help,
/// completion and manual pages are made from. A value; who makes one keeps the values of its
/// options in what runs it. Made for one run, used on the main thread.
struct Command
{
    /// \p examples are lines.
    Command(const QString& name, const QString& text, const QString& examples);

    /// Adds what \p form says: "--from N", "-o KEY=VALUE", "--follow", "--json [FIELDS]", of an
    /// argument "PATH", or "[PATH]" where it may be left out.
    Command& option(QString form, OptionTarget target, const QString& text);
    /// What runs the command, for one that talks to the streamer.
    Command& asks(std::function<int(const CommandContext&)> ask);
    /// The same, for one that needs no streamer.
    Command& runs(std::function<int(Terminal&)> run);

    const Option* findOption(const QString& name) const;
    /// Also finds what is not shown.
    const Command* findCommand(const QString& name) const;
    QStringList commandNames() const;
    /// The groups of the commands, in order.
    QStringList groups() const;
    /// What follows the name in a usage line: "[OPTIONS] ID PATH...".
    QString usage() const;

    QString name;
    QString group = {}; ///< the heading it stands under
    QString text;
    QStringList examples;
    QVector<Option> arguments = {}; ///< in order
    QVector<Option> options = {};
    QVector<Command> commands = {};
    QVector<Command> hidden = {};                       ///< commands that nothing shows
    std::function<int(const CommandContext&)> ask = {}; ///< at most one of the two is set
    std::function<int(Terminal&)> run = {};
};

} // namespace cli
