#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/QrCode.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <QHash>
#include <QJsonDocument>
#include <thread>

namespace cli {

namespace {

using Clock = std::chrono::steady_clock;
using Style = Terminal::Style;

bool isLoggedIn(const QJsonObject& login)
{
    return login.value("loggedIn").toBool();
}

QJsonObject pendingOf(const QJsonObject& login)
{
    return objectIn(login, "pending");
}

QString problemOf(const QJsonObject& login)
{
    const QJsonValue problem = login.value("problem");
    return problem.isNull() || problem.isUndefined() ? QString() : valueText(problem);
}

/// What the user can do, for each reason that the streamer gives; empty for one that is not known.
QString adviceFor(const QString& reason)
{
    static const QHash<QString, QString> advice{
        {"expired", "Run kelo login again and confirm the code before it ends."},
        {"denied", "Run kelo login again and confirm the login at the service's page."},
        {"client", "Check client_id and client_secret in section [tidal.oauth2] of the "
                   "settings; see kelo config."},
        {"clock", "Set the clock of the streamer's machine (timedatectl)."},
        {"network", "Check the network of the streamer's machine; see kelo doctor."},
        {"service", "Try again in a few minutes."},
        {"ended", "Run kelo login to log in again."}};
    return advice.value(reason);
}

QString adviceOf(const QJsonObject& login)
{
    return adviceFor(textIn(login, "reason"));
}

int refused(Terminal& terminal, const QString& problem, const QString& advice)
{
    terminal.error("kelo: not logged in: " + problem);
    if (!advice.isEmpty())
        terminal.error(advice);
    return ExitRefused;
}

/// Reads login events on a thread of its own and hands them on in order. Lives on the
/// stack of login(); its destructor ends the stream and the thread.
class LoginEvents
{
public:
    explicit LoginEvents(ApiClient& api) : m_api(api), m_thread([this] { read(); }) {}
    ~LoginEvents()
    {
        m_api.stop();
        m_thread.join();
    }
    LoginEvents(const LoginEvents&) = delete;
    LoginEvents& operator=(const LoginEvents&) = delete;

    /// Returns once the stream has begun, with the state as it is, or has ended without (false).
    bool waitForOpen()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_states.empty() || m_end; });
        return !m_states.empty();
    }

    /// The next login answer; nothing when \p until passes or the stream ends first.
    std::optional<QByteArray> next(Clock::time_point until)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_until(lock, until, [this] { return !m_states.empty() || m_end; });
        if (m_states.empty())
            return std::nullopt;
        QByteArray state = m_states.front();
        m_states.pop_front();
        return state;
    }

    /// How the stream ended; nothing while it goes on.
    std::optional<ApiReply> end()
    {
        const std::lock_guard lock(m_mutex);
        return m_end;
    }

private:
    void read()
    {
        const ApiReply reply = m_api.events({}, nullptr, [this](const ServerEvent& event) {
            const std::lock_guard lock(m_mutex);
            if (event.name != "login")
                return true;
            m_states.push_back(event.data);
            m_changed.notify_all();
            return true;
        });
        const std::lock_guard lock(m_mutex);
        m_end = reply;
        m_changed.notify_all();
    }

    ApiClient& m_api;
    std::mutex m_mutex; ///< guards all below
    std::condition_variable m_changed;
    std::deque<QByteArray> m_states;
    std::optional<ApiReply> m_end;
    std::thread m_thread; ///< last: starts when the rest stands
};

/// Ends the command with the answer that decided it.
int finished(const CommandContext& context, const QByteArray& body, const QJsonObject& login)
{
    if (isLoggedIn(login)) {
        if (context.isJson)
            context.printJson(body);
        else
            context.terminal.line(context.terminal.styled("logged in", Style::Good));
        return ExitDone;
    }
    const QString problem = problemOf(login);
    return refused(context.terminal, problem.isEmpty() ? "the login was ended elsewhere" : problem,
                   adviceOf(login));
}

/// Waits for the answer that decides the login, with a countdown where somebody looks.
int waitForDecision(const CommandContext& context, LoginEvents& events, const QJsonObject& pending)
{
    constexpr std::chrono::hours longestWait(24); // when the streamer does not say
    const QJsonValue expiresIn = pending.value("expiresIn");
    const auto end = Clock::now() + (expiresIn.isDouble()
                                         ? std::chrono::seconds(expiresIn.toVariant().toLongLong())
                                         : std::chrono::seconds(longestWait));
    const bool hasCountdown =
        expiresIn.isDouble() && !context.isJson && context.terminal.isInteractive();
    const QJsonValue code = pending.value("userCode");
    bool isOurs = false; // our code has been told: what follows is about it
    bool isFirst = true; // of before the login
    for (;;) {
        const auto left = end - Clock::now();
        if (hasCountdown)
            context.terminal.redraw(
                {QStringLiteral("waiting, %1 left")
                     .arg(clockTime(
                         std::chrono::duration_cast<std::chrono::milliseconds>(left).count()))});
        const auto tick = Clock::now() + std::chrono::seconds(1);
        if (const auto body = events.next(hasCountdown ? std::min(tick, end) : end)) {
            const QJsonObject login = QJsonDocument::fromJson(*body).object();
            isOurs = isOurs || pendingOf(login).value("userCode") == code;
            // States that follow quickly come as their last one, so ours may not be among them.
            const bool isAboutUs = isOurs || (!isFirst && !problemOf(login).isEmpty());
            isFirst = false;
            if (isLoggedIn(login) || (isAboutUs && pendingOf(login).isEmpty()))
                return finished(context, *body, login);
        } else if (const auto ended = events.end()) {
            context.terminal.error("kelo: the streamer ended while waiting for the login");
            return ended->outcome == ApiReply::Outcome::Refused ? ExitRefused : ExitUnreachable;
        } else if (Clock::now() >= end) {
            return refused(context.terminal, "the code has expired", adviceFor("expired"));
        }
    }
}

/// With --json stdout belongs to the final answer, so people read on stderr.
void showPending(const CommandContext& context, const QJsonObject& pending)
{
    Terminal& terminal = context.terminal;
    const auto text = [&pending](const char* name) { return shown(textIn(pending, name)); };
    const QString address = text("verificationUri");
    const QString complete = text("verificationUriComplete");
    const auto print = [&](const QString& line) {
        context.isJson ? terminal.error(line) : terminal.line(line);
    };
    print("Open     " + terminal.styled(address, Style::Accent));
    print("Code     " + terminal.styled(text("userCode"), Style::Bold));
    if (!complete.isEmpty())
        print("or open  " + complete);
    if (context.isJson)
        return;
    QString target = complete.isEmpty() ? address : complete;
    if (!target.contains("://"))
        target.prepend("https://");
    const QStringList code = qrCode(target, true);
    if (code.isEmpty() || code.first().size() > terminal.width())
        return;
    terminal.line();
    for (const QString& line : code) // black on white whatever the terminal's colours are
        terminal.line(terminal.hasColours()
                          ? QStringLiteral("\033[38;5;231;48;5;16m%1\033[0m").arg(line)
                          : line);
    terminal.line();
}

/// `kelo login`: starts a login, shows where to confirm it and waits until it is confirmed, refused
/// or expired; a second thread reads the events while it lasts. The tokens stay with the streamer.
/// The events are subscribed before the login starts, so that a quick confirmation is not missed.
int login(const CommandContext& context)
{
    LoginEvents events(context.api);
    if (!events.waitForOpen())
        return context.finish(events.end().value_or(ApiReply()));
    const ApiReply reply = context.api.post("login");
    if (reply.outcome == ApiReply::Outcome::Refused) {
        // The refusal is a sentence alone; the state has the reason beside it.
        const ApiReply state = context.api.get("login");
        if (!problemOf(state.document).isEmpty())
            return finished(context, state.body, state.document);
    }
    if (!reply.isDone())
        return context.finish(reply);
    const QJsonObject pending = pendingOf(reply.document);
    if (pending.isEmpty())
        return finished(context, reply.body, reply.document);
    showPending(context, pending);
    return waitForDecision(context, events, pending);
}

/// `kelo login --status`: a login that failed or ended makes it fail too.
int showLogin(const CommandContext& context)
{
    const ApiReply reply = context.api.get("login");
    if (!reply.isDone())
        return context.finish(reply);
    const QString problem = problemOf(reply.document);
    const int status = problem.isEmpty() ? ExitDone : ExitRefused;
    if (context.isJson) {
        context.printJson(reply.body);
        return status;
    }
    Terminal& terminal = context.terminal;
    terminal.line(isLoggedIn(reply.document) ? terminal.styled("logged in", Style::Good)
                                             : terminal.styled("not logged in", Style::Warning));
    const QJsonObject pending = pendingOf(reply.document);
    if (!pending.isEmpty()) {
        terminal.line(QStringLiteral("waiting for code %1 at %2")
                          .arg(valueText(pending.value("userCode")),
                               valueText(pending.value("verificationUri"))));
    }
    if (!problem.isEmpty())
        terminal.line("problem: " + problem);
    const QString advice = adviceOf(reply.document);
    if (!advice.isEmpty())
        terminal.line(advice);
    return status;
}

int logout(const CommandContext& context)
{
    const ApiReply reply = context.api.remove("login");
    if (context.isJson)
        return context.printJson(reply);
    if (reply.isDone())
        context.terminal.line("logged out");
    return context.finish(reply);
}

} // namespace

Command loginCommand()
{
    const auto wantsStatus = std::make_shared<bool>();
    return Command("login", "Log in to the service with a code.", "kelo login\nkelo login --status")
        .option("--status", *wantsStatus, "Only tell whether somebody is logged in")
        .asks([wantsStatus](const CommandContext& context) {
            return *wantsStatus ? showLogin(context) : login(context);
        });
}

Command logoutCommand()
{
    return Command("logout", "Log out of the service.", "kelo logout").asks(logout);
}

} // namespace cli
