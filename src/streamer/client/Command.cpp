#include "client/Command.h"

#include <algorithm>

namespace cli {

OptionTarget::OptionTarget(QString& text)
    : store([&text](const QString& given) {
          text = given;
          return true;
      })
{
}

OptionTarget::OptionTarget(QStringList& texts)
    : store([&texts](const QString& given) {
          texts.append(given);
          return true;
      }),
      isMany(true)
{
}

OptionTarget::OptionTarget(bool& flag)
    : store([&flag](const QString& given) {
          flag = given == "true";
          return flag || given == "false";
      }),
      wanted("true or false")
{
}

OptionTarget::OptionTarget(int& number, int least, int most)
    : store([&number, least, most](const QString& given) {
          bool isNumber = false;
          number = given.toInt(&isNumber);
          return isNumber && number >= least && number <= most;
      }),
      wanted(least == INT_MIN ? "a number"
                              : QStringLiteral("a number from %1 to %2").arg(least).arg(most))
{
}

OptionTarget::OptionTarget(QString& text, const QStringList& choices)
    : store([&text, choices](const QString& given) {
          text = given;
          return choices.contains(given);
      }),
      wanted(QStringLiteral("one of %1").arg(choices.join(','))), choices(choices)
{
}

QString Option::written() const
{
    if (!names.first().startsWith('-'))
        return names.first();
    const QString all = names.join(", ");
    if (isValueOptional)
        return all + " [" + value + ']';
    return hasValue() ? all + ' ' + (target.choices.isEmpty() ? value : target.choices.join('|'))
                      : all;
}

Command::Command(const QString& name, const QString& text, const QString& examples)
    : name(name), text(text), examples(examples.split('\n', Qt::SkipEmptyParts))
{
}

Command& Command::option(QString form, OptionTarget target, const QString& text)
{
    const bool isRequired = !form.startsWith('[');
    const bool isOptional = isRequired && form.contains('[');
    QStringList words = form.remove('[').remove(']').split(' ');
    const bool isArgument = !words.first().startsWith('-');
    const QString value = isArgument                      ? words.first()
                          : !words.last().startsWith('-') ? words.takeLast()
                                                          : QString();
    (isArgument ? arguments : options)
        .append({words, value, text, isArgument && isRequired, isOptional, std::move(target)});
    return *this;
}

Command& Command::asks(std::function<int(const CommandContext&)> ask)
{
    this->ask = std::move(ask);
    return *this;
}

Command& Command::runs(std::function<int(Terminal&)> run)
{
    this->run = std::move(run);
    return *this;
}

const Option* Command::findOption(const QString& name) const
{
    const auto found = std::find_if(options.begin(), options.end(), [&name](const auto& option) {
        return option.names.contains(name);
    });
    return found == options.end() ? nullptr : &*found;
}

const Command* Command::findCommand(const QString& name) const
{
    for (const QVector<Command>* all : {&commands, &hidden}) {
        for (const Command& command : *all) {
            if (command.name == name)
                return &command;
        }
    }
    return nullptr;
}

QStringList Command::commandNames() const
{
    QStringList names;
    for (const Command& command : commands)
        names.append(command.name);
    return names;
}

QStringList Command::groups() const
{
    QStringList result;
    for (const Command& command : commands) {
        if (!result.contains(command.group))
            result.append(command.group);
    }
    return result;
}

QString Command::usage() const
{
    QStringList words{"[OPTIONS]"};
    for (const Option& argument : arguments) {
        const QString name = argument.names.first() + (argument.target.isMany ? "..." : "");
        words.append(argument.isRequired ? name : '[' + name + ']');
    }
    if (!commands.isEmpty())
        words.append(ask ? "[COMMAND]" : "COMMAND");
    return words.join(' ');
}

} // namespace cli
