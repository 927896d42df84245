#include "client/HelpText.h"

#include "client/DisplayText.h"

#include <algorithm>

namespace cli {

namespace {

constexpr int leastTextWidth = 20;
/// Longer names get a line of their own.
constexpr int mostNameWidth = 24;

using Entries = QVector<QPair<QString, QString>>;

QString section(const QString& heading, const Entries& entries, int nameWidth, int width)
{
    if (entries.isEmpty())
        return {};
    QString result = '\n' + heading + ":\n";
    for (const auto& [name, text] : entries) {
        QString before = "  " + padded(name, nameWidth) + "  ";
        if (columns(name) > nameWidth) {
            result += "  " + name + '\n';
            before = QString(nameWidth + 4, ' ');
        }
        for (const QString& line : wrapped(text, qMax(leastTextWidth, width - nameWidth - 4))) {
            result += before + line + '\n';
            before.fill(' ');
        }
    }
    return result;
}

Entries entriesOf(const QVector<Option>& options)
{
    Entries entries;
    for (const Option& option : options)
        entries.append({option.written(), option.text});
    return entries;
}

} // namespace

QString helpText(const Command& command, const QString& words, int width)
{
    QVector<QPair<QString, Entries>> sections{{"Arguments", entriesOf(command.arguments)},
                                              {"Options", entriesOf(command.options)}};
    for (const QString& group : command.groups()) {
        Entries commands;
        for (const Command& below : command.commands) {
            if (below.group == group)
                commands.append({below.name, below.text});
        }
        sections.append({group, commands});
    }
    int nameWidth = 0;
    for (const auto& [heading, entries] : sections) {
        for (const auto& [name, text] : entries) {
            const int columnsOfName = columns(name);
            if (columnsOfName <= mostNameWidth)
                nameWidth = qMax(nameWidth, columnsOfName);
        }
    }

    QString help = wrapped(command.text, width).join('\n') + "\n\nExamples:\n";
    for (const QString& example : command.examples)
        help += "  " + example + '\n';
    help += QStringLiteral("\nUsage: %1 %2\n").arg(words, command.usage());
    for (const auto& [heading, entries] : sections) {
        help += section(heading, entries, nameWidth, width);
        const bool takesPath = std::any_of(entries.begin(), entries.end(),
                                           [](const auto& one) { return one.first == "PATH"; });
        if (takesPath && heading == "Arguments")
            help += '\n' +
                    wrapped("For a path its row's number will do, or its title, in what this "
                            "terminal listed last.",
                            width)
                        .join('\n') +
                    '\n';
    }
    return help;
}

} // namespace cli
