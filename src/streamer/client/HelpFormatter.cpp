#include "client/HelpFormatter.h"

#include "client/CommandShape.h"
#include "client/DisplayText.h"

namespace cli {

namespace {

constexpr int leastWidth = 40;
constexpr int mostWidth = 100;
constexpr int usualWidth = 80;
constexpr int leastTextWidth = 20;

using Entries = QVector<QPair<QString, QString>>;

QString section(const QString& heading, const Entries& entries, int nameWidth, int width)
{
    if (entries.isEmpty())
        return {};
    QString result = '\n' + heading + QStringLiteral(":\n");
    for (const auto& [name, text] : entries) {
        QString before = QStringLiteral("  ") + padded(name, nameWidth) + QStringLiteral("  ");
        for (const QString& line : wrapped(text, qMax(leastTextWidth, width - nameWidth - 4))) {
            result += before + line + '\n';
            before.fill(' ');
        }
    }
    return result;
}

Entries entriesOf(const QVector<ShapeOption>& options)
{
    Entries entries;
    for (const ShapeOption& option : options)
        entries.append({option.written(), option.text});
    return entries;
}

} // namespace

HelpFormatter::HelpFormatter(const Terminal& terminal)
    : m_width(terminal.hasWidth() ? qBound(leastWidth, terminal.width(), mostWidth) : usualWidth)
{
}

std::string HelpFormatter::make_help(const CLI::App* app, std::string name,
                                     CLI::AppFormatMode) const
{
    const ShapeCommand shape = shapeOf(*app);
    QVector<QPair<QString, Entries>> sections{
        {QStringLiteral("Arguments"), entriesOf(shape.arguments)},
        {QStringLiteral("Options"), entriesOf(shape.options)}};
    for (const QString& group : shape.groups()) {
        Entries commands;
        for (const ShapeCommand& command : shape.commands) {
            if (command.group == group)
                commands.append({command.name, command.text});
        }
        sections.append({group, commands});
    }
    int nameWidth = 0;
    for (const auto& [heading, entries] : sections) {
        for (const auto& entry : entries)
            nameWidth = qMax(nameWidth, columns(entry.first));
    }

    QString help = wrapped(shape.text, m_width).join('\n') + QStringLiteral("\n\nExamples:\n");
    for (const QString& example : shape.examples)
        help += QStringLiteral("  ") + example + '\n';
    help += QStringLiteral("\nUsage: %1 %2\n")
                .arg(QString::fromStdString(name.empty() ? app->get_name() : name), shape.usage());
    for (const auto& [heading, entries] : sections)
        help += section(heading, entries, nameWidth, m_width);
    return help.toStdString();
}

} // namespace cli
