#include "client/Completion.h"

#include "client/CommandPlace.h"
#include "client/DisplayText.h"
#include "client/TreePaths.h"
#include "settings/SettingsKeys.h"

namespace cli {

namespace {

Completion::Candidates ofWords(const QStringList& words)
{
    Completion::Candidates result;
    for (const QString& word : words)
        result.append({word, {}});
    return result;
}

Completion::Candidates commandsOf(const Command& command)
{
    Completion::Candidates result;
    for (const Command& below : command.commands)
        result.append({below.name, below.text});
    return result;
}

/// "section.key=" while the key is typed, "section.key=value" after that.
Completion settings(const QString& prefix)
{
    Completion result;
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

/// The rows that the terminal listed last: all by their numbers while nothing is typed, then by
/// their titles.
Completion listedRows(const UserState& state, const QString& server, const QString& prefix)
{
    Completion result;
    const Listing listing = state.listing(server).value_or(Listing());
    for (const ListedRow& row : listing.rows) {
        const QString title = shown(row.title);
        if (row.path.isEmpty())
            continue;
        if (prefix.isEmpty())
            result.candidates.append({QString::number(row.number), title});
        else if (listing.called(row.title).size() == 1)
            result.candidates.append({title, {}});
    }
    result.kind = prefix.isEmpty() ? Completion::Kind::Words : Completion::Kind::Titles;
    return result;
}

/// What a value is called in help says what it is.
Completion values(const Command& program, const Option& option, const QString& prefix,
                  const QString& server, const UserState& state)
{
    Completion result;
    const QString& value = option.value;
    const bool hasStreamer = ApiClient::isServerAddress(server);
    if (!option.target.choices.isEmpty())
        result.candidates = ofWords(option.target.choices);
    else if (value == "PATH" && !prefix.startsWith('/'))
        result = listedRows(state, server, prefix);
    else if (value == "PLAYLIST" && hasStreamer)
        result = {playlistNames(server, prefix), Completion::Kind::Titles};
    else if (value == "SERVICE" && hasStreamer)
        result.candidates = loginServices(server);
    else if (value == "FILE")
        result.kind = Completion::Kind::Files;
    else if (value == "FOLDER")
        result.kind = Completion::Kind::Folders;
    else if (value == "KEY=VALUE")
        result = settings(prefix);
    else if (value == "COMMAND")
        result.candidates = commandsOf(program);
    else if (value == "LEVEL")
        result.candidates = ofWords(findSettingsKey("log.level")->choices);
    else if (value == "SINK")
        result.candidates =
            ofWords({"auto", "null", "alsasink", "jackaudiosink", "pipewiresink", "pulsesink"});
    result.candidates = keepStarting(result.candidates, prefix);
    const bool isPath = value == "PATH" && hasStreamer && result.candidates.isEmpty();
    return isPath ? Completion{treePaths(server, prefix), Completion::Kind::Parts} : result;
}

} // namespace

Completion Completion::find(const Command& program, const QStringList& words, QString server,
                            const UserState& state)
{
    CommandPlace place(program);
    for (int i = 1; i + 1 < words.size(); ++i) {
        const CommandPlace::Word taken = place.take(words.at(i));
        if (taken.option && taken.option->names.first() == "--server")
            server = taken.value;
    }
    Completion result;
    const Command& command = *place.command;
    const QString word = words.size() > 1 ? words.last() : QString();
    const bool isOption = !place.hasOptionsEnded && word.startsWith('-');
    if (place.waiting) {
        result = values(program, *place.waiting, word, server, state);
    } else if (isOption && word.contains('=')) {
        const QString name = word.section('=', 0, 0);
        if (const Option* option = command.findOption(name)) {
            result = values(program, *option, word.mid(name.size() + 1), server, state);
            for (Candidate& candidate : result.candidates)
                candidate.text.prepend(name + '=');
        }
    } else if (!isOption && !command.commands.isEmpty()) {
        if (place.arguments > 0)
            return result; // no such command
        result.candidates = commandsOf(command);
    } else if (!isOption && !command.arguments.isEmpty()) {
        const Option* argument = place.nextArgument();
        return argument ? values(program, *argument, word, server, state) : result;
    } else if (isOption || word.isEmpty()) {
        for (const Option& option : command.options) {
            if (option.target.isMany || !place.given.contains(&option))
                result.candidates.append({option.names.last(), option.text});
        }
    }
    result.candidates = keepStarting(result.candidates, word);
    return result;
}

Completion::Candidates keepStarting(const Completion::Candidates& all, const QString& prefix)
{
    Completion::Candidates result;
    std::copy_if(all.begin(), all.end(), std::back_inserter(result),
                 [&prefix](const auto& candidate) { return candidate.text.startsWith(prefix); });
    return result;
}

} // namespace cli
