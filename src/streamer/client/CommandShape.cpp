#include "client/CommandShape.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <QRegularExpression>

namespace cli {

namespace {

ShapeOption shapeOf(const CLI::Option& option)
{
    ShapeOption shape;
    if (option.get_positional()) {
        shape.names.append(QString::fromStdString(option.get_name(true)));
    } else {
        for (const std::string& name : option.get_snames())
            shape.names.append('-' + QString::fromStdString(name));
        for (const std::string& name : option.get_lnames())
            shape.names.append(QStringLiteral("--") + QString::fromStdString(name));
    }
    shape.text = QString::fromStdString(option.get_description());
    shape.isRequired = option.get_required();
    shape.isMany = option.get_items_expected_max() > 1;
    if (option.get_items_expected_max() == 0)
        return shape;
    shape.value = QString::fromStdString(option.get_type_name());
    // The parser appends the choices of a value to its name: "KIND:{albums,tracks}".
    static const QRegularExpression set(QStringLiteral(":?\\{(.*)\\}$"));
    const auto match = set.match(shape.value);
    if (match.hasMatch()) {
        shape.choices = match.captured(1).split(',');
        shape.value.truncate(match.capturedStart());
    }
    if (option.get_positional())
        shape.value = shape.names.first();
    return shape;
}

} // namespace

QString ShapeOption::written() const
{
    const QString value = choices.isEmpty() ? this->value : choices.join('|');
    const bool isArgument = !names.isEmpty() && !names.first().startsWith('-');
    if (isArgument)
        return names.first();
    const QString all = names.join(QStringLiteral(", "));
    return value.isEmpty() ? all : all + ' ' + value;
}

const ShapeOption* ShapeCommand::findOption(const QString& name) const
{
    const auto found = std::find_if(options.begin(), options.end(), [&name](const auto& option) {
        return option.names.contains(name);
    });
    return found == options.end() ? nullptr : &*found;
}

const ShapeCommand* ShapeCommand::findCommand(const QString& name) const
{
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&name](const auto& command) { return command.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

QStringList ShapeCommand::groups() const
{
    QStringList result;
    for (const ShapeCommand& command : commands) {
        if (!result.contains(command.group))
            result.append(command.group);
    }
    return result;
}

QString ShapeCommand::usage() const
{
    QStringList words{QStringLiteral("[OPTIONS]")};
    for (const ShapeOption& argument : arguments) {
        const QString name = argument.names.first() + QLatin1String(argument.isMany ? "..." : "");
        words.append(argument.isRequired ? name : '[' + name + ']');
    }
    if (!commands.isEmpty())
        words.append(QStringLiteral("COMMAND"));
    return words.join(' ');
}

ShapeCommand shapeOf(const CLI::App& app)
{
    ShapeCommand shape;
    shape.name = QString::fromStdString(app.get_name());
    shape.group = QString::fromStdString(app.get_group());
    shape.text = QString::fromStdString(app.get_description());
    shape.examples = QString::fromStdString(app.get_footer()).split('\n', Qt::SkipEmptyParts);
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional())
            shape.arguments.append(shapeOf(*option));
        else if (!option->get_group().empty())
            shape.options.append(shapeOf(*option));
    }
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty())
            shape.commands.append(shapeOf(*command));
    }
    return shape;
}

} // namespace cli
