#pragma once

#include "client/CommandContext.h"
#include "client/Redaction.h"
#include "settings/SettingsLoader.h"

namespace cli {

/// What somebody sends with a report of a problem, as one text: versions, checks, settings, the
/// names of what is kept, the end of the log, what the streamer does. Secrets are left out. Made
/// for one run of `kelo doctor`, used on the main thread; it changes nothing but the file it
/// writes.
class ProblemReport
{
public:
    ProblemReport(const LoadedSettings& loaded, const QString& stateFolder);

    /// \p audio is the version of the library that plays.
    void addVersions(const QString& audio);
    void addChecks(const QStringList& lines);
    void addSettings();
    void addState();
    void addLog();
    void addStreamer(ApiClient& api);

    /// Writes a new file that its owner alone may read. What went wrong; empty: nothing.
    [[nodiscard]] QString write(const QString& file) const;

private:
    void section(const QString& title, const QStringList& lines);

    const LoadedSettings& m_loaded;
    const QString m_stateFolder;
    Redaction m_redaction;
    QString m_text;
};

} // namespace cli
