#include "client/Completion.h"

#include "settings/SettingsKeys.h"

#include <algorithm>

namespace cli {

namespace {

using Candidates = QVector<Completion::Candidate>;

Candidates ofWords(const QStringList& words)
{
    Candidates result;
    for (const QString& word : words)
        result.append({word, {}});
    return result;
}

/// The words that a setting accepts, where it accepts only some.
QStringList acceptedBy(const SettingsKey& key)
{
    const QString start = QStringLiteral("one of ");
    if (key.kind == SettingsKey::Kind::Boolean)
        return {QStringLiteral("true"), QStringLiteral("false")};
    if (key.wanted.startsWith(start))
        return key.wanted.mid(start.size()).split(QStringLiteral(", "));
    return {};
}

QStringList acceptedBy(const char* name)
{
    const SettingsKey* key = findSettingsKey(QString::fromLatin1(name));
    return key ? acceptedBy(*key) : QStringList();
}

/// "section.key=" while the key is typed, "section.key=value" after that.
Completion::Result settings(const QString& prefix)
{
    Completion::Result result;
    const SettingsKey* known = findSettingsKey(prefix.section('=', 0, 0));
    if (prefix.contains('=')) {
        for (const QString& value : known ? acceptedBy(*known) : QStringList())
            result.candidates.append({known->name + '=' + value, {}});
        return result;
    }
    for (const SettingsKey& key : settingsKeys())
        result.candidates.append({key.name + '=', key.wanted});
    result.kind = Completion::Kind::Parts;
    return result;
}

void keepStarting(Candidates& candidates, const QString& prefix)
{
    const auto isOther = [&prefix](const Completion::Candidate& candidate) {
        return !candidate.text.startsWith(prefix);
    };
    candidates.erase(std::remove_if(candidates.begin(), candidates.end(), isOther),
                     candidates.end());
}

} // namespace

struct Completion::Place
{
    explicit Place(const ShapeCommand* at) : command(at) {}

    const ShapeCommand* command;
    const ShapeOption* waiting = nullptr; ///< the option whose value comes now
    int arguments = 0;                    ///< given before
    bool hasOptionsEnded = false;         ///< "--" was there
    QStringList options;                  ///< given before
};

Completion::Place Completion::find(const QStringList& words) const
{
    Place place(&m_program);
    for (int i = 1; i + 1 < words.size(); ++i) {
        const QString& word = words.at(i);
        if (place.waiting) {
            place.waiting = nullptr;
        } else if (!place.hasOptionsEnded && word == QLatin1String("--")) {
            place.hasOptionsEnded = true;
        } else if (!place.hasOptionsEnded && word.size() > 1 && word.startsWith('-')) {
            const ShapeOption* option = place.command->findOption(word);
            place.options.append(word);
            place.waiting = option && option->hasValue() ? option : nullptr;
        } else if (const ShapeCommand* command = place.command->findCommand(word)) {
            place = Place(command);
        } else {
            ++place.arguments;
        }
    }
    return place;
}

Completion::Result Completion::complete(const QStringList& words) const
{
    Result result;
    const Place place = find(words);
    const QString word = words.size() > 1 ? words.last() : QString();
    if (place.waiting) {
        result = values(place.waiting->value, place.waiting->choices, word);
    } else if (!place.hasOptionsEnded && word.startsWith('-') && word.contains('=')) {
        const QString name = word.section('=', 0, 0);
        if (const ShapeOption* option = place.command->findOption(name)) {
            result = values(option->value, option->choices, word.mid(name.size() + 1));
            for (Candidate& candidate : result.candidates)
                candidate.text.prepend(name + '=');
        }
    } else if (!place.hasOptionsEnded && word.startsWith('-')) {
        for (const ShapeOption& option : place.command->options) {
            if (option.isMany || !place.options.contains(option.names.last()))
                result.candidates.append({option.names.last(), option.text});
        }
    } else if (!place.command->commands.isEmpty() && place.arguments > 0) {
        return result; // no such command
    } else if (!place.command->commands.isEmpty()) {
        for (const ShapeCommand& command : place.command->commands)
            result.candidates.append({command.name, command.text});
    } else if (!place.command->arguments.isEmpty()) {
        const auto& arguments = place.command->arguments;
        const bool isOneMore = place.arguments < arguments.size() || arguments.last().isMany;
        const ShapeOption& argument = arguments.at(qMin(place.arguments, arguments.size() - 1));
        if (isOneMore)
            return values(argument.value, argument.choices, word);
    } else if (word.isEmpty()) {
        for (const ShapeOption& option : place.command->options)
            result.candidates.append({option.names.last(), option.text});
    }
    if (result.kind != Kind::Files && result.kind != Kind::Folders)
        keepStarting(result.candidates, word);
    return result;
}

/// What a value is called in help says what it is.
Completion::Result Completion::values(const QString& value, const QStringList& choices,
                                      const QString& prefix) const
{
    Result result;
    if (!choices.isEmpty())
        result.candidates = ofWords(choices);
    else if (value == QLatin1String("PATH") && m_streamer.paths)
        return {m_streamer.paths(prefix), Kind::Parts};
    else if (value == QLatin1String("ID") && m_streamer.playlists)
        result.candidates = m_streamer.playlists();
    else if (value == QLatin1String("FILE"))
        result.kind = Kind::Files;
    else if (value == QLatin1String("FOLDER"))
        result.kind = Kind::Folders;
    else if (value == QLatin1String("KEY=VALUE"))
        result = settings(prefix);
    else if (value == QLatin1String("LEVEL"))
        result.candidates = ofWords(acceptedBy("log.level"));
    else if (value == QLatin1String("SINK"))
        result.candidates = ofWords({QStringLiteral("auto"), QStringLiteral("null"),
                                     QStringLiteral("alsasink"), QStringLiteral("jackaudiosink"),
                                     QStringLiteral("pipewiresink"), QStringLiteral("pulsesink")});
    keepStarting(result.candidates, prefix);
    return result;
}

QString Completion::optionValue(const QStringList& words, const QString& option)
{
    QString value;
    for (int i = 1; i < words.size(); ++i) {
        if (words.at(i) == option && i + 2 < words.size())
            value = words.at(i + 1);
        else if (words.at(i).startsWith(option + '='))
            value = words.at(i).mid(option.size() + 1);
    }
    return value;
}

} // namespace cli
