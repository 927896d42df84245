#include "client/AudioCheck.h"
#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/ProblemReport.h"
#include "client/SettingsOptions.h"
#include "settings/StateDirectory.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <sstream>
#include <sys/timex.h>
#include <unistd.h>

namespace cli {

namespace {

/// A streamer that hangs is told of, not waited for.
constexpr std::chrono::seconds patience{10};

/// `kelo doctor`: looks at everything that playing needs and says what is wrong and what helps.
/// It changes nothing; told to, it writes a report to send.
struct DoctorCommand
{
    SettingsOptions options;
    QString stateDirectory;
    QString bundle; ///< the file of the report; empty: none

    /// ExitDone unless a check failed, or the report could not be written.
    int run(const CommandContext& context);

private:
    enum Result { Good, Warning, Bad };
    struct Check
    {
        QString name;
        Result result;
        QString detail;
    };
    struct Look
    {
        const char* word;
        const char* shown;
        Terminal::Style style;
    };
    static constexpr Look looks[] = {{"ok", "ok  ", Terminal::Style::Good},
                                     {"warn", "warn", Terminal::Style::Warning},
                                     {"fail", "FAIL", Terminal::Style::Bad}};

    void checkAudio();
    void checkClock();
    void checkSettings(const LoadedSettings& loaded);
    void checkState();
    void checkStreamer(ApiClient& api);
    void checkLogins(ApiClient& api);
    void add(const QString& name, Result result, const QString& detail)
    {
        m_checks.append({name, result, detail});
    }
    QStringList lines(const Terminal& terminal) const;
    int writeBundle(const CommandContext& context, const LoadedSettings& loaded) const;

    QList<Check> m_checks;
    QString m_audio; ///< the version of the library that plays
};

int DoctorCommand::run(const CommandContext& context)
{
    add("versions", Good, QStringLiteral("kelo " KELO_VERSION ", Qt %1").arg(qVersion()));
    const LoadedSettings loaded = options.load();
    checkAudio();
    checkClock();
    checkSettings(loaded);
    checkState();
    context.api.limitSilence(patience);
    checkStreamer(context.api);
    if (!bundle.isEmpty())
        return writeBundle(context, loaded);
    bool isBad = false;
    QJsonArray checks;
    for (const Check& check : m_checks) {
        isBad = isBad || check.result == Bad;
        checks.append(QJsonObject{
            {"name", check.name}, {"result", looks[check.result].word}, {"detail", check.detail}});
    }
    if (context.isJson)
        context.printJson(json(QJsonObject{{"checks", checks}}));
    else
        context.terminal.lines(lines(context.terminal));
    return isBad ? ExitRefused : ExitDone;
}

void DoctorCommand::checkAudio()
{
    const AudioCheck audio = AudioCheck::look();
    m_audio = audio.version;
    if (audio.version.isEmpty()) {
        add("audio", Bad, "GStreamer cannot start");
        return;
    }
    if (!audio.missing.isEmpty())
        add("audio", Bad,
            QStringLiteral("%1 lacks %2; install gstreamer1.0-plugins-base and -good")
                .arg(audio.version, audio.missing.join(", ")));
    else
        add("audio", Good, audio.version + ", plays FLAC");
    if (!audio.hasAac)
        add("codecs", Warning, "no AAC decoder; LOW and HIGH need one (gstreamer1.0-libav)");
}

/// Logins and tokens depend on the clock: one from before this program was made is wrong for sure.
void DoctorCommand::checkClock()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    timex state = {};
    const bool isUnsynchronised = adjtimex(&state) == TIME_ERROR;
    const QString text = now.toString(Qt::ISODate);
    if (now.date() < QDate(2025, 1, 1))
        add("clock", Bad, text + " lies in the past");
    else if (isUnsynchronised)
        add("clock", Warning, text + ", not synchronised");
    else
        add("clock", Good, text);
}

void DoctorCommand::checkSettings(const LoadedSettings& loaded)
{
    for (const QString& problem : loaded.problems)
        add("settings", Bad, problem);
    if (loaded.problems.isEmpty())
        add("settings", Good, loaded.file.isEmpty() ? "defaults, no file" : loaded.file);
    const OAuth2Settings& oauth2 = loaded.settings.tidal.oauth2;
    if (oauth2.clientId.isEmpty())
        add("client id", Warning,
            "tidal.oauth2.client_id is not set; a login needs one (not with --demo)");
}

void DoctorCommand::checkState()
{
    const QString folder = ::stateDirectory(stateDirectory);
    QFileInfo place(folder);
    const bool exists = place.exists();
    while (!place.exists() && !place.isRoot())
        place = QFileInfo(place.absolutePath());
    const bool isWritable =
        place.isDir() && access(place.filePath().toLocal8Bit().constData(), W_OK | X_OK) == 0;
    if (isWritable)
        add("state", Good, folder + (exists ? QString() : " (made when serving starts)"));
    else
        add("state", Bad, QStringLiteral("%1 is not writable; logins would be lost").arg(folder));
}

void DoctorCommand::checkStreamer(ApiClient& api)
{
    QElapsedTimer timer;
    timer.start();
    const ApiReply health = api.probe("/healthz");
    if (!health.isDone()) {
        add("streamer", Bad, health.message);
        return;
    }
    add("streamer", Good,
        QStringLiteral("%1 answers in %2 ms").arg(api.server()).arg(timer.elapsed()));
    const ApiReply ready = api.probe("/readyz");
    const QJsonObject waiting = ready.document.value("waiting").toObject();
    if (!ready.isDone())
        add("ready", Warning, ready.message);
    else if (!waiting.isEmpty())
        add("ready", Warning, waiting.value("text").toString());
    const QJsonArray problems = ready.document.value("problems").toArray();
    for (const QJsonValue& problem : problems)
        add("module", Bad, problem.toString());
    checkLogins(api);
}

/// A streamer that does not list its logins has one.
void DoctorCommand::checkLogins(ApiClient& api)
{
    ApiReply reply = api.get("logins");
    QJsonArray logins = reply.document.value("logins").toArray();
    if (!reply.isDone()) {
        reply = api.get("login");
        logins = {reply.document};
    }
    if (!reply.isDone()) {
        add("login", Bad, reply.message);
        return;
    }
    for (const QJsonValue& login : qAsConst(logins)) {
        const QString name = logins.size() > 1 ? textIn(login.toObject(), "service") : QString();
        const QString before = name.isEmpty() ? name : name + ": ";
        if (login["loggedIn"].toBool())
            add("login", Good, before + "logged in");
        else
            add("login", Warning,
                before + QString("not logged in (kelo login %1").arg(name).trimmed() + ')');
    }
}

/// The problems that the report is for are in it, so that they are no failure here.
int DoctorCommand::writeBundle(const CommandContext& context, const LoadedSettings& loaded) const
{
    std::ostringstream nowhere;
    ProblemReport report(loaded, ::stateDirectory(stateDirectory));
    report.addVersions(m_audio);
    report.addChecks(lines(Terminal(nowhere, nowhere, {Terminal::unlimited})));
    report.addSettings();
    report.addState();
    report.addLog();
    report.addStreamer(context.api);
    const QString problem = report.write(bundle);
    if (!problem.isEmpty())
        return context.finish(ApiReply::refusal(problem));
    if (context.isJson)
        context.printJson(json(QJsonObject{{"bundle", bundle}}));
    else
        context.terminal.line(
            QStringLiteral("wrote %1; look through it before you send it").arg(shown(bundle)));
    return ExitDone;
}

QStringList DoctorCommand::lines(const Terminal& terminal) const
{
    constexpr int nameWidth = 11;
    constexpr int indent = 4 + 2 + nameWidth;
    QStringList result;
    for (const Check& check : m_checks) {
        const Look& look = looks[check.result];
        QString before =
            terminal.styled(look.shown, look.style) + "  " + check.name.leftJustified(nameWidth);
        for (const QString& line : wrapped(shown(check.detail), terminal.width() - indent)) {
            result.append(before + line);
            before = QString(indent, ' ');
        }
    }
    return result;
}

} // namespace

Command doctorCommand()
{
    const auto doctor = std::make_shared<DoctorCommand>();
    Command result("doctor", "Check what playing needs on this machine.",
                   "kelo doctor\nkelo doctor --json\nkelo doctor --bundle report.txt");
    doctor->options.addTo(result);
    return result
        .option("--state-dir FOLDER", doctor->stateDirectory, "Where logins and the queue are kept")
        .option("--bundle FILE", doctor->bundle,
                "Write a new file to send with a problem report: versions, checks, settings, log, "
                "without secrets")
        .asks([doctor](const CommandContext& context) { return doctor->run(context); });
}

} // namespace cli
