#include "client/AudioCheck.h"
#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/SettingsOptions.h"
#include "settings/StateDirectory.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <sys/timex.h>
#include <unistd.h>

namespace cli {

namespace {

/// `kelo doctor`: looks at everything that playing needs and says what is wrong and what helps.
/// It changes nothing.
class DoctorCommand
{
public:
    void addTo(Command& command);
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
    void add(const QString& name, Result result, const QString& detail)
    {
        m_checks.append({name, result, detail});
    }
    void print(Terminal& terminal) const;
    QByteArray json() const;

    SettingsOptions m_options;
    LoadedSettings m_loaded;
    QString m_stateDirectory;
    QList<Check> m_checks;
};

void DoctorCommand::addTo(Command& command)
{
    m_options.addTo(command);
    command.option("--state-dir FOLDER", m_stateDirectory, "Where logins and the queue are kept");
}

int DoctorCommand::run(const CommandContext& context)
{
    m_loaded = m_options.load();
    m_stateDirectory = stateDirectory(m_stateDirectory);
    add("versions", Result::Good, QStringLiteral("kelo " KELO_VERSION ", Qt %1").arg(qVersion()));
    checkAudio();
    checkClock();
    checkSettings();
    checkState();
    checkStreamer(context.api);
    if (context.isJson)
        context.printJson(json());
    else
        print(context.terminal);
    for (const Check& check : m_checks) {
        if (check.result == Result::Bad)
            return ExitRefused;
    }
    return ExitDone;
}

void DoctorCommand::checkAudio()
{
    const AudioCheck audio = AudioCheck::look();
    if (audio.version.isEmpty()) {
        add("audio", Result::Bad, "GStreamer cannot start");
        return;
    }
    if (!audio.missing.isEmpty())
        add("audio", Result::Bad,
            QStringLiteral("%1 lacks %2; install gstreamer1.0-plugins-base and -good")
                .arg(audio.version, audio.missing.join(", ")));
    else
        add("audio", Result::Good, audio.version + ", plays FLAC");
    if (!audio.hasAac)
        add("codecs", Result::Warning,
            "no AAC decoder; LOW and HIGH need one (gstreamer1.0-libav)");
}

/// Logins and tokens depend on the clock: one from before this program was made is wrong for sure.
void DoctorCommand::checkClock()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    timex state = {};
    const bool isUnsynchronised = adjtimex(&state) == TIME_ERROR;
    const QString text = now.toString(Qt::ISODate);
    if (now.date() < QDate(2025, 1, 1))
        add("clock", Result::Bad, text + " lies in the past");
    else if (isUnsynchronised)
        add("clock", Result::Warning, text + ", not synchronised");
    else
        add("clock", Result::Good, text);
}

void DoctorCommand::checkSettings()
{
    for (const QString& problem : m_loaded.problems)
        add("settings", Result::Bad, problem);
    if (m_loaded.problems.isEmpty())
        add("settings", Result::Good,
            m_loaded.file.isEmpty() ? "defaults, no file" : m_loaded.file);
    const OAuth2Settings& oauth2 = m_loaded.settings.tidal.oauth2;
    if (oauth2.clientId.isEmpty())
        add("client id", Result::Warning,
            "tidal.oauth2.client_id is not set; a login needs one (not with --demo)");
}

void DoctorCommand::checkState()
{
    QFileInfo place(m_stateDirectory);
    const bool exists = place.exists();
    while (!place.exists() && !place.isRoot())
        place = QFileInfo(place.absolutePath());
    const bool isWritable =
        place.isDir() && access(place.filePath().toLocal8Bit().constData(), W_OK | X_OK) == 0;
    if (isWritable)
        add("state", Result::Good,
            m_stateDirectory + (exists ? QString() : " (made when serving starts)"));
    else
        add("state", Result::Bad,
            QStringLiteral("%1 is not writable; logins would be lost").arg(m_stateDirectory));
}

void DoctorCommand::checkStreamer(ApiClient& api)
{
    QElapsedTimer timer;
    timer.start();
    const ApiReply health = api.probe("/healthz");
    if (!health.isDone()) {
        add("streamer", Result::Bad, health.message);
        return;
    }
    add("streamer", Result::Good,
        QStringLiteral("%1 answers in %2 ms").arg(api.server()).arg(timer.elapsed()));
    const ApiReply ready = api.probe("/readyz");
    const QJsonObject waiting = ready.document.value("waiting").toObject();
    if (!ready.isDone())
        add("ready", Result::Warning, ready.message);
    else if (!waiting.isEmpty())
        add("ready", Result::Warning, waiting.value("text").toString());
    const ApiReply login = api.get("login");
    if (!login.isDone())
        add("login", Result::Bad, login.message);
    else if (login.document.value("loggedIn").toBool())
        add("login", Result::Good, "logged in");
    else
        add("login", Result::Warning, "not logged in (kelo login)");
}

void DoctorCommand::print(Terminal& terminal) const
{
    using Style = Terminal::Style;
    static const struct
    {
        const char* word;
        Style style;
    } looks[] = {{"ok  ", Style::Good}, {"warn", Style::Warning}, {"FAIL", Style::Bad}};
    constexpr int nameWidth = 11;
    for (const Check& check : m_checks) {
        const auto& look = looks[static_cast<int>(check.result)];
        QString before =
            terminal.styled(look.word, look.style) + "  " + check.name.leftJustified(nameWidth);
        const int indent = 4 + 2 + nameWidth;
        for (const QString& line : wrapped(shown(check.detail), terminal.width() - indent)) {
            terminal.line(before + line);
            before = QString(indent, ' ');
        }
    }
}

QByteArray DoctorCommand::json() const
{
    static const char* const words[] = {"ok", "warn", "fail"};
    QJsonArray checks;
    for (const Check& check : m_checks) {
        checks.append(QJsonObject{{"name", check.name},
                                  {"result", words[static_cast<int>(check.result)]},
                                  {"detail", check.detail}});
    }
    return QJsonDocument(QJsonObject{{"checks", checks}}).toJson(QJsonDocument::Compact);
}

} // namespace

Command doctorCommand()
{
    const auto doctor = std::make_shared<DoctorCommand>();
    Command result("doctor", "Check what playing needs on this machine.",
                   "kelo doctor\nkelo doctor --server http://music:8095");
    doctor->addTo(result);
    return result.asks([doctor](const CommandContext& context) { return doctor->run(context); });
}

} // namespace cli
