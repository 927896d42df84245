#include "client/Completion.h"

#include "client/CommandPlace.h"
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

/// "section.key=" while the key is typed, "section.key=value" after that.
Completion::Result settings(const QString& prefix)
{
    Completion::Result result;
    const SettingsKey* known = findSettingsKey(prefix.section('=', 0, 0));
    if (prefix.contains('=')) {
        for (const QString& value : known ? known->choices : QStringList())
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

Completion::Result Completion::complete(const QStringList& words) const
{
    CommandPlace place(m_program);
    for (int i = 1; i + 1 < words.size(); ++i)
        place.take(words.at(i));
    Result result;
    const Command& command = *place.command;
    const QString word = words.size() > 1 ? words.last() : QString();
    const bool isOption = !place.hasOptionsEnded && word.startsWith('-');
    if (place.waiting) {
        result = values(*place.waiting, word);
    } else if (isOption && word.contains('=')) {
        const QString name = word.section('=', 0, 0);
        if (const Option* option = command.findOption(name)) {
            result = values(*option, word.mid(name.size() + 1));
            for (Candidate& candidate : result.candidates)
                candidate.text.prepend(name + '=');
        }
    } else if (!isOption && !command.commands.isEmpty()) {
        if (place.arguments > 0)
            return result; // no such command
        for (const Command& below : command.commands)
            result.candidates.append({below.name, below.text});
    } else if (!isOption && !command.arguments.isEmpty()) {
        const Option* argument = place.nextArgument();
        return argument ? values(*argument, word) : result;
    } else if (isOption || word.isEmpty()) {
        for (const Option& option : command.options) {
            if (option.target.isMany || !place.given.contains(&option))
                result.candidates.append({option.names.last(), option.text});
        }
    }
    if (result.kind != Kind::Files && result.kind != Kind::Folders)
        keepStarting(result.candidates, word);
    return result;
}

/// What a value is called in help says what it is.
Completion::Result Completion::values(const Option& option, const QString& prefix) const
{
    Result result;
    const QString& value = option.value;
    if (!option.target.choices.isEmpty())
        result.candidates = ofWords(option.target.choices);
    else if (value == "PATH" && m_streamer.paths)
        return {m_streamer.paths(prefix), Kind::Parts};
    else if (value == "ID" && m_streamer.playlists)
        result.candidates = m_streamer.playlists();
    else if (value == "FILE")
        result.kind = Kind::Files;
    else if (value == "FOLDER")
        result.kind = Kind::Folders;
    else if (value == "KEY=VALUE")
        result = settings(prefix);
    else if (value == "LEVEL")
        result.candidates = ofWords(findSettingsKey("log.level")->choices);
    else if (value == "SINK")
        result.candidates =
            ofWords({"auto", "null", "alsasink", "jackaudiosink", "pipewiresink", "pulsesink"});
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
