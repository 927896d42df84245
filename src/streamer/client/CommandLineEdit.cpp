// The commands that show what can be done with a row, and do it.
#include "client/CommandLine.h"
#include "client/MenuCommand.h"
#include "client/PlaylistCommand.h"

#include <CLI/CLI.hpp>
#include <limits>

namespace cli {

namespace {

const char* const libraryGroup = "Change the library";

QString fromStd(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

void CommandLine::addLibrary()
{
    CLI::App* menu = addClient(libraryGroup, "menu", "Show the context menu of a row.",
                               "kelo menu PATH", [this](const CommandContext& context) {
                                   return MenuCommand{fromStd(m_values.path)}.run(context);
                               });
    menu->add_option("PATH", m_values.path, "A row, a list, or a menu's own path")->required();

    CLI::App* favorite = addClient(
        libraryGroup, "favorite", "Make a row a favorite, or take that back.",
        "kelo favorite PATH\nkelo favorite PATH off", [this](const CommandContext& context) {
            return FavoriteCommand{fromStd(m_values.path), fromStd(m_values.kind)}.run(context);
        });
    favorite->add_option("PATH", m_values.path, "The row")->required();
    favorite->add_option("WISH", m_values.kind, "on or off (the other one than now)")
        ->check(CLI::IsMember({"on", "off"}));

    CLI::App* playlist = add(*m_app, libraryGroup, "playlist", "Make and change playlists.",
                             "kelo playlist create 'Late evening' --description 'quiet ones'\n"
                             "kelo playlist add ID PATH PATH\n"
                             "kelo playlist move ID 3 0 --dry-run");
    playlist->require_subcommand(1);
    addPlaylists(*playlist);
    addPlaylistItems(*playlist);
}

CLI::App* CommandLine::addPlaylistCommand(CLI::App& parent, const char* name,
                                          const char* description, const char* examples,
                                          int (PlaylistCommand::*run)(const CommandContext&) const)
{
    CLI::App* app = addClientTo(parent, "", name, description, examples,
                                [this, run](const CommandContext& context) {
                                    PlaylistCommand command;
                                    command.id = fromStd(m_values.playlist);
                                    command.title = fromStd(m_values.title);
                                    command.description = fromStd(m_values.description);
                                    for (const std::string& path : m_values.paths)
                                        command.paths.append(fromStd(path));
                                    command.row = m_values.from;
                                    command.target = m_values.to;
                                    command.isDryRun = m_values.isDryRun;
                                    return (command.*run)(context);
                                });
    app->add_flag("--dry-run", m_values.isDryRun, "Only say what would be sent");
    return app;
}

void CommandLine::addPlaylists(CLI::App& parent)
{
    const auto addTitle = [this](CLI::App* app) {
        app->add_option("TITLE", m_values.title, "Its title")->required();
        app->add_option("--description", m_values.description, "Its description")
            ->type_name("TEXT");
    };
    addTitle(addPlaylistCommand(parent, "create", "Make a playlist and print its id.",
                                "kelo playlist create 'Late evening'\n"
                                "kelo playlist create -- '-1-'",
                                &PlaylistCommand::create));
    CLI::App* rename = addPlaylistCommand(
        parent, "rename", "Give a playlist another title; without a description it keeps its own.",
        "kelo playlist rename ID 'Early morning'", &PlaylistCommand::rename);
    addPlaylistId(rename);
    addTitle(rename);
    addPlaylistId(addPlaylistCommand(parent, "delete", "Delete a playlist.",
                                     "kelo playlist delete ID", &PlaylistCommand::destroy));
}

void CommandLine::addPlaylistItems(CLI::App& parent)
{
    CLI::App* addItems = addPlaylistCommand(
        parent, "add", "Add tracks, albums or other playlists at the end of a playlist.",
        "kelo playlist add ID PATH PATH", &PlaylistCommand::add);
    addPlaylistId(addItems);
    addItems->add_option("PATH", m_values.paths, "Rows, or their menus")->required();
    const auto addNumber = [](CLI::App* app, const char* name, int& number, const char* text) {
        app->add_option(name, number, text)
            ->required()
            ->check(CLI::Range(0, std::numeric_limits<int>::max()).description(""));
    };
    CLI::App* remove = addPlaylistCommand(parent, "remove", "Remove one row of a playlist.",
                                          "kelo playlist remove ID 4", &PlaylistCommand::remove);
    addPlaylistId(remove);
    addNumber(remove, "ROW", m_values.from, "The row's number, from 0 on");
    CLI::App* move = addPlaylistCommand(parent, "move", "Move one row of a playlist.",
                                        "kelo playlist move ID 3 0", &PlaylistCommand::move);
    addPlaylistId(move);
    addNumber(move, "FROM", m_values.from, "The row's number, from 0 on");
    addNumber(move, "TO", m_values.to, "The number it gets");
}

void CommandLine::addPlaylistId(CLI::App* app)
{
    app->add_option("ID", m_values.playlist, "The playlist's id, or its row's path")->required();
}

} // namespace cli
