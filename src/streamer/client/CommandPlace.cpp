#include "client/CommandPlace.h"

namespace cli {

const Option* CommandPlace::nextArgument() const
{
    const auto& all = command->arguments;
    if (arguments < all.size())
        return &all.at(arguments);
    return !all.isEmpty() && all.last().target.isMany ? &all.last() : nullptr;
}

CommandPlace::Word CommandPlace::take(const QString& word)
{
    if (waiting)
        return {Word::Kind::Value, std::exchange(waiting, nullptr), word};
    const Option* before = std::exchange(flag, nullptr);
    const bool mayBeOption = !hasOptionsEnded && word.size() > 1 && word.startsWith('-');
    if (mayBeOption && word == "--") {
        hasOptionsEnded = true;
        return {};
    }
    if (mayBeOption && !word.at(1).isDigit()) // else a negative number
        return takeOption(word);
    if (const Command* below = command->findCommand(word)) {
        const QString all = words + ' ' + word;
        *this = CommandPlace(*below);
        words = all;
        return {};
    }
    const Option* argument = nextArgument();
    if (!argument && before && (command->ask || command->run))
        return {Word::Kind::Value, before, word};
    ++arguments;
    return {argument ? Word::Kind::Value : Word::Kind::TooMuch, argument, word};
}

/// "--name", "--name=value", "-n", "-nvalue".
CommandPlace::Word CommandPlace::takeOption(const QString& word)
{
    const bool isLong = word.startsWith("--");
    const QString name = isLong ? word.section('=', 0, 0) : word.left(2);
    const Option* option = command->findOption(name);
    const bool isWhole = name == word;
    if (!option || (!isLong && !isWhole && !option->hasValue()))
        return {Word::Kind::UnknownOption};
    given.append(option);
    if (!isWhole)
        return {Word::Kind::Value, option, word.mid(name.size() + (isLong ? 1 : 0))};
    if (option->isValueOptional)
        flag = option;
    if (!option->hasValue() || option->isValueOptional)
        return {Word::Kind::Value, option, "true"};
    waiting = option;
    return {};
}

} // namespace cli
