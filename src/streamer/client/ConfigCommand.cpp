#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/SettingsOptions.h"
#include "settings/SettingsKeys.h"

#include <QJsonDocument>

namespace cli {

namespace {

/// `kelo config`: the settings that `kelo serve` would run with, and where each comes from. It
/// talks to no streamer; secrets are masked.
struct ConfigCommand
{
    SettingsOptions options;
    bool isJson = false;

    int run(Terminal& terminal) const;
};

int ConfigCommand::run(Terminal& terminal) const
{
    const LoadedSettings loaded = options.load();
    if (SettingsOptions::printProblems(terminal, loaded))
        return ExitUsage;
    int widestWord = 0;
    int widestValue = 0;
    QJsonObject document;
    for (const SettingsKey& key : settingsKeys()) {
        const QJsonValue value = QJsonValue::fromVariant(key.read(loaded.settings));
        document.insert(key.name,
                        QJsonObject{{"value", value}, {"origin", loaded.origin(key.name)}});
        widestWord = qMax(widestWord, key.word().size());
        widestValue = qMax(widestValue, value.isString() ? columns(value.toString()) + 2 : 8);
    }
    if (isJson) {
        const QByteArray text = QJsonDocument(document).toJson(QJsonDocument::Indented);
        terminal.line(QString::fromUtf8(printableJson(text.trimmed())));
        return ExitDone;
    }
    constexpr int defaultOrigin = 11; // "  # default"
    const int valueWidth =
        qMin(widestValue, qBound(8, terminal.width() - widestWord - 3 - defaultOrigin, 44));
    QString section;
    for (const SettingsKey& key : settingsKeys()) {
        if (key.section() != section) {
            section = key.section();
            terminal.line(terminal.styled('[' + section + ']', Terminal::Style::Bold));
        }
        const QJsonValue value = document.value(key.name).toObject().value("value");
        const QString text = shown(QString::fromUtf8(json(value)));
        const QString setting = padded(key.word(), widestWord) + " = " + padded(text, valueWidth);
        const QString origin = "  # " + shown(loaded.origin(key.name));
        // What is only the default gives way where there is no room for it.
        const bool isLeftOut = !loaded.origins.contains(key.name) &&
                               columns(setting) + columns(origin) > terminal.width();
        terminal.line(setting +
                      (isLeftOut ? QString() : terminal.styled(origin, Terminal::Style::Dim)));
    }
    return ExitDone;
}

} // namespace

Command configCommand()
{
    const auto config = std::make_shared<ConfigCommand>();
    Command result("config", "Show the settings and where each comes from.",
                   "kelo config\nkelo config --config kelo.toml -o log.level=debug");
    config->options.addTo(result);
    return result.option("--json", config->isJson, "Print one JSON document")
        .runs([config](Terminal& terminal) { return config->run(terminal); });
}

} // namespace cli
