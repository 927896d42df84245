#include "client/SettingsOptions.h"

#include "client/DisplayText.h"

namespace cli {

void SettingsOptions::addTo(Command& command)
{
    OptionTarget overrides([this](const QString& text) {
        m_overrides.push_back(splitOverride(text));
        return true;
    });
    overrides.isMany = true;
    command.option("--config FILE", m_file, "The settings file")
        .option("-o KEY=VALUE", overrides, "A setting, as section.key=value");
}

void SettingsOptions::add(Command& command, const QString& form, const QString& key,
                          const QString& text)
{
    const QString origin = form.section(' ', 0, 0);
    command.option(form, OptionTarget([this, key, origin](const QString& value) {
                       m_own.push_back({key, value, origin});
                       return true;
                   }),
                   text);
}

LoadedSettings SettingsOptions::load() const
{
    std::vector<SettingsOverride> all = m_overrides;
    all.insert(all.end(), m_own.begin(), m_own.end());
    return loadSettings(m_file, all);
}

bool SettingsOptions::printProblems(Terminal& terminal, const LoadedSettings& loaded)
{
    for (const QString& problem : loaded.problems)
        terminal.error("kelo: " + shown(problem));
    return !loaded.problems.isEmpty();
}

} // namespace cli
