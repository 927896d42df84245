#pragma once

#include "client/CommandContext.h"
#include "settings/SettingsLoader.h"

namespace cli {

/// `kelo doctor`: looks at everything that playing needs and says what is wrong and what helps.
/// Made for one run, used on the main thread. It changes nothing.
class DoctorCommand
{
public:
    DoctorCommand(LoadedSettings loaded, QString stateDirectory)
        : m_loaded(std::move(loaded)), m_stateDirectory(std::move(stateDirectory))
    {
    }

    /// ExitDone unless a check failed.
    int run(const CommandContext& context);

private:
    enum class Result { Good, Warning, Bad };
    struct Check
    {
        QString name;
        Result result;
        QString detail;
    };

    void checkAudio();
    void checkClock();
    void checkSettings();
    void checkState();
    void checkStreamer(ApiClient& api);
    void add(const char* name, Result result, const QString& detail)
    {
        m_checks.append({QString::fromLatin1(name), result, detail});
    }
    void print(Terminal& terminal) const;
    QByteArray json() const;

    const LoadedSettings m_loaded;
    const QString m_stateDirectory;
    QList<Check> m_checks;
};

} // namespace cli
