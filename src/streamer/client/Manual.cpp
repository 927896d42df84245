#include "client/Commands.h"
#include "client/JsonText.h"
#include "client/ManualText.h"
#include "settings/SettingsKeys.h"

#include <QDateTime>

namespace cli {

namespace {

using Tagged = QVector<QPair<QString, QString>>;

void addTagged(ManualText& page, const QString& heading, const Tagged& entries)
{
    page.heading(heading);
    for (const auto& [tag, text] : entries)
        page.tagged(tag, 1, text);
}

void addOptions(ManualText& page, const QVector<Option>& options)
{
    for (const Option& option : options)
        page.tagged(option.written(), option.names.size(), option.text);
}

/// The options of \p command that are not those of the whole program.
QVector<Option> ownOptions(const Command& command, const Command& program)
{
    QVector<Option> result;
    for (const Option& option : command.options) {
        if (!program.findOption(option.names.last()))
            result.append(option);
    }
    return result;
}

/// The words of \p command itself, then its own options; of a command that has commands, those.
void addCommand(ManualText& page, const Command& command, const QString& words,
                const Command& program)
{
    const auto addBelow = [&] {
        for (const Command& below : command.commands)
            addCommand(page, below, words + ' ' + below.name, program);
    };
    if (!command.ask && !command.run)
        return addBelow();
    const QVector<Option> options = ownOptions(command, program);
    QString usage = words;
    if (!options.isEmpty())
        usage += " [OPTIONS]";
    for (const QString& word : command.usage().split(' ').mid(1))
        usage += ' ' + word;
    page.tagged(usage, words.count(' ') + 1, command.text);
    page.begin();
    addOptions(page, command.arguments);
    addOptions(page, options);
    page.lines(command.examples);
    page.end();
    addBelow();
}

const Tagged exitStatuses{
    {"0", "Done."},
    {"1", "The streamer answered with an error; its message is printed."},
    {"2", "Wrong usage or settings; of `serve` also that no module can be served."},
    {"3", "No streamer is reachable, or it broke off."},
};

const Tagged environment{
    {"KELO_SERVER", "The address of the streamer, where `--server` does not say it."},
    {"LANG", "The language of rows; `LC_ALL` and `LC_MESSAGES` go first."},
    {"NO_COLOR", "Not empty: no colours. Pipes and dumb terminals get none anyway."},
    {"COLUMNS", "The width to print for, where the terminal is not to decide."},
    {"XDG_RUNTIME_DIR",
     "Where what each terminal listed last is kept, else in XDG_CACHE_HOME, else in `~/.cache`."},
    {"XDG_CONFIG_HOME", "Where the user's settings are; `~/.config` when it is not set."},
    {"XDG_STATE_HOME", "Where logins and the queue are kept; `~/.local/state` when it is not set."},
    {"STATE_DIRECTORY", "The same, as a service manager says it; it goes first."},
    {"CREDENTIALS_DIRECTORY",
     "Where a service manager puts credentials; `kelo.client_secret` is read from there."},
};

const Tagged files{
    {"~/.config/kelo/kelo.toml", "The user's settings, see `kelo.toml`(5)."},
    {"/etc/kelo/kelo.toml", "The settings of the machine, read where the user has none."},
    {"~/.local/state/kelo", "Tokens, the queue and the volume, readable by the user alone."},
};

/// kelo(1), with all of \p program.
QString commandManual(const Command& program, const QString& date)
{
    ManualText page(program.name, 1, date);
    page.heading("Name");
    page.paragraph("kelo - network audio streamer and its command line");
    page.heading("Synopsis");
    page.paragraph(QStringLiteral("`kelo` %1").arg(program.usage()));
    page.heading("Description");
    page.paragraph(
        "`kelo serve` is the streamer: it shows a music service as a tree of paths and plays from "
        "it; the address it prints opens its page in a browser. Every other command talks to a "
        "running streamer over its HTTP interface. `kelo serve "
        "--demo` starts one with a simulated service inside, which needs no account.");
    page.paragraph(
        "A path is one word and names a node of the tree. It may hold characters that a shell acts "
        "on, so put it in quotes; the commands print paths ready to paste. Wherever a path is "
        "wanted, the number of a row will do that this terminal listed last (by `rows`, `search`, "
        "`menu`, `playlist` or `queue`), or its title, or the beginning of it, where only one row "
        "there has it. Numbers begin with 0. At a terminal the paths that do not fit beside "
        "their rows are left out; `--paths` shows them.");
    page.paragraph(
        "With `--json` a command prints one JSON document, for scripts; a command that follows "
        "something prints one a line. `--json` FIELDS, or `--json=`FIELDS where the command still "
        "takes words, prints of each row the named fields alone. An error is then a JSON document, "
        "too, on the standard error: its text is `error`, what the streamer said is `problem`. "
        "Without it what goes into a pipe has tabs between its columns and no colours: number, "
        "type, title, description and path of a row; of a search the kind comes first.");
    page.paragraph(
        "Help and status, and what the player and the login say, are in English. Rows, and what "
        "stands at their paths or is refused there, are in the language that the environment asks "
        "for, as far as the streamer has it.");
    page.heading("Options");
    addOptions(page, program.options);
    page.heading("Commands");
    for (const QString& group : program.groups()) {
        page.subheading(group);
        for (const Command& command : program.commands) {
            if (command.group == group)
                addCommand(page, command, program.name + ' ' + command.name, program);
        }
    }
    addTagged(page, "Exit status", exitStatuses);
    addTagged(page, "Environment", environment);
    addTagged(page, "Files", files);
    page.heading("Examples");
    page.lines(program.examples);
    page.heading("See also");
    page.paragraph("`kelo.toml`(5), `kelo-sim`(1)");
    return page.text();
}

/// kelo.toml(5), with all settings.
QString settingsManual(const QString& date)
{
    ManualText page("kelo.toml", 5, date);
    page.heading("Name");
    page.paragraph("kelo.toml - settings of the kelo streamer");
    page.heading("Description");
    page.paragraph(
        "A TOML file, read when the streamer starts: the file that `--config` names, else the "
        "user's, else the machine's. Every key may be left out. A key that does not exist or a "
        "value that does not fit ends the program with a message that names file, line and key. "
        "`-o` section.key=value on the command line goes before the file. `kelo config` shows what "
        "is in force and where it comes from.");
    page.heading("Settings");
    const Settings defaults;
    QString section;
    for (const SettingsKey& key : settingsKeys()) {
        if (key.section() != section) {
            section = key.section();
            page.subheading('[' + section + ']');
        }
        page.tagged(key.word(), 1, key.meaning);
        const QByteArray value = json(QJsonValue::fromVariant(key.read(defaults)));
        page.begin();
        page.paragraph(
            QStringLiteral("Wanted: %1. Default: `%2`").arg(key.wanted, QString::fromUtf8(value)));
        page.end();
    }
    page.subheading("[module.NAME]");
    page.paragraph(
        "The settings of one module, NAME being that of its file, `libNAME.so` or "
        "`libkelo_cb_NAME.so`. `prefix` is the path below which it stands, `/NAME` "
        "where it is not given; what else is here is handed to the module, which judges "
        "it: an unknown key does not end the program. Of a section whose NAME is that of "
        "no module that is served, the log warns at the start. `kelo config` does not "
        "show these sections, as they may hold secrets. The module tidal stands at "
        "`/tidal`, and its settings are those above.");
    addTagged(page, "Files",
              {{"$XDG_CONFIG_HOME/kelo/kelo.toml",
                "The user's; `~/.config` where the variable is not set."},
               {"/etc/kelo/kelo.toml", "The machine's."}});
    page.heading("Examples");
    page.lines({"[server]", "listen = \"127.0.0.1:8095\"", "[tidal.oauth2]", "client_id = \"...\"",
                "client_secret_file = \"client_secret\"", "[modules]",
                "files = [\"/opt/radio/libradio.so\"] # instead of those installed",
                "[module.radio]", "prefix = \"/waves\"", "station = \"...\""});
    page.heading("See also");
    page.paragraph("`kelo`(1)");
    return page.text();
}

/// Who wants the same page every time says the date
/// (https://reproducible-builds.org/specs/source-date-epoch).
QString pageDate()
{
    bool isGiven = false;
    const qint64 given = qgetenv("SOURCE_DATE_EPOCH").toLongLong(&isGiven);
    const QDateTime now =
        isGiven ? QDateTime::fromSecsSinceEpoch(given, Qt::UTC) : QDateTime::currentDateTimeUtc();
    return now.date().toString(Qt::ISODate);
}

} // namespace

Command manualCommand(const Command& program)
{
    const QStringList pages{"kelo", "kelo.toml"};
    const auto page = std::make_shared<QString>();
    return Command("manual", "", "")
        .option("PAGE", {*page, pages}, "")
        .runs([page, pages, &program](Terminal& terminal) {
            const QString text = *page == pages.first() ? commandManual(program, pageDate())
                                                        : settingsManual(pageDate());
            terminal.line(text.trimmed());
            return ExitDone;
        });
}

} // namespace cli
