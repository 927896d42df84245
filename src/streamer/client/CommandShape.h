#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace CLI {
class App;
}

/// The command structure as plain values: what help, completion and manual pages are made from, so
/// that none of them can miss a command or an option. Made from the parser when it is asked for;
/// it parses nothing.
namespace cli {

struct ShapeOption
{
    QStringList names;   ///< "-o", "--output"; of an argument its name alone, "PATH"
    QString value;       ///< what the value is called, "FILE"; empty for a flag
    QStringList choices; ///< the only values there are; empty: anything
    QString text;
    bool isRequired = false;
    bool isMany = false;

    bool hasValue() const { return !value.isEmpty(); }
    /// "-o KEY=VALUE", "--in albums|tracks": the option as it is written.
    QString written() const;
};

struct ShapeCommand
{
    QString name;
    QString group; ///< the heading it stands under
    QString text;
    QStringList examples;
    QVector<ShapeOption> arguments; ///< in order
    QVector<ShapeOption> options;
    QVector<ShapeCommand> commands;

    const ShapeOption* findOption(const QString& name) const;
    const ShapeCommand* findCommand(const QString& name) const;
    /// The groups of the commands, in order.
    QStringList groups() const;
    /// What follows the name in a usage line: "[OPTIONS] ID PATH...".
    QString usage() const;
};

/// The shape of \p app and of everything below it. Hidden commands and options are left out.
ShapeCommand shapeOf(const CLI::App& app);

} // namespace cli
