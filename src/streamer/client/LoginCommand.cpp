#include "client/Commands.h"
#include "client/DisplayText.h"
#include "qr/QrMatrix.h"

#include <QDeadlineTimer>
#include <QHash>

namespace cli {

namespace {

using Style = Terminal::Style;

bool isLoggedIn(const QJsonObject& login)
{
    return login.value("loggedIn").toBool();
}

/// "logged in", with whose login it is, as far as the streamer knows.
QString loginText(const QJsonObject& login)
{
    QStringList known;
    for (const char* name : {"user", "subscription"}) {
        if (const QString text = shown(textIn(login, name)); !text.isEmpty())
            known.append(text);
    }
    return "logged in" + (known.isEmpty() ? QString() : ": " + known.join(", "));
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

int refused(Terminal& terminal, const QString& problem, const QString& reason)
{
    const QString advice = adviceFor(reason);
    terminal.error("kelo: not logged in: " + problem, {{"reason", reason}, {"advice", advice}});
    if (!advice.isEmpty() && !terminal.isJson())
        terminal.note(advice);
    return ExitRefused;
}

/// Ends the command with the answer that decided it.
int finished(const CommandContext& context, const ApiReply& reply)
{
    if (isLoggedIn(reply.document)) {
        if (context.isJson)
            context.printJson(reply.body);
        else
            context.terminal.line(context.terminal.styled(loginText(reply.document), Style::Good));
        return ExitDone;
    }
    const QString problem = problemOf(reply.document);
    return refused(context.terminal, problem.isEmpty() ? "the login was ended elsewhere" : problem,
                   textIn(reply.document, "reason"));
}

/// Looks every second whether the login is decided, with a countdown where somebody looks.
int waitForDecision(const CommandContext& context, const QJsonObject& pending)
{
    constexpr int longestWait = 24 * 60 * 60; // when the streamer does not say
    const QJsonValue expiresIn = pending.value("expiresIn");
    const QDeadlineTimer end(std::chrono::seconds(expiresIn.toInt(longestWait)));
    const bool hasCountdown =
        expiresIn.isDouble() && !context.isJson && context.terminal.isInteractive();
    for (;;) {
        if (hasCountdown)
            context.terminal.redraw(
                {QStringLiteral("waiting, %1 left").arg(clockTime(end.remainingTime()))});
        const ApiReply now = context.api.get("login");
        if (!now.isDone()) {
            context.terminal.error("kelo: the streamer ended while waiting for the login");
            return now.outcome == ApiReply::Outcome::Refused ? ExitRefused : ExitUnreachable;
        }
        if (isLoggedIn(now.document) || objectIn(now.document, "pending").isEmpty())
            return finished(context, now);
        if (end.hasExpired())
            return refused(context.terminal, "the code has expired", "expired");
        if (context.waitASecond)
            context.waitASecond();
    }
}

/// \p text as a QR code of half blocks, for dark terminals: two modules a character cell, blocks
/// for light ones. Empty when the text is too long for a code.
QStringList qrCode(const QString& text)
{
    const QrMatrix code = QrMatrix::encode(text);
    if (code.isEmpty())
        return {};
    constexpr int margin = 2;
    const int end = code.size() + margin;
    const auto hasBlock = [&code](int x, int y) { return !code.isDark(x, y); };
    static const QChar cells[] = {' ', QChar(0x2584), QChar(0x2580), QChar(0x2588)};
    QStringList lines;
    for (int y = -margin; y < end; y += 2) {
        QString line;
        for (int x = -margin; x < end; ++x) {
            const bool hasLower = y + 1 < end && hasBlock(x, y + 1);
            line += cells[(hasBlock(x, y) ? 2 : 0) + (hasLower ? 1 : 0)];
        }
        lines.append(line);
    }
    return lines;
}

/// With --json stdout belongs to the final answer, so people read on stderr.
void showPending(const CommandContext& context, const QJsonObject& pending)
{
    Terminal& terminal = context.terminal;
    const auto text = [&pending](const char* name) { return shown(textIn(pending, name)); };
    const QString address = text("verificationUri");
    const QString complete = text("verificationUriComplete");
    const auto print = [&](const QString& line) {
        context.isJson ? terminal.note(line) : terminal.line(line);
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
    const QStringList code = qrCode(target);
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
/// or expired. The tokens stay with the streamer.
int login(const CommandContext& context)
{
    const ApiReply reply = context.api.post("login");
    if (reply.outcome == ApiReply::Outcome::Refused) {
        // The refusal is a sentence alone; the state has the reason beside it.
        const ApiReply state = context.api.get("login");
        if (!problemOf(state.document).isEmpty())
            return finished(context, state);
    }
    if (!reply.isDone())
        return context.finish(reply);
    const QJsonObject pending = objectIn(reply.document, "pending");
    if (pending.isEmpty())
        return finished(context, reply);
    showPending(context, pending);
    return waitForDecision(context, pending);
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
    terminal.line(isLoggedIn(reply.document)
                      ? terminal.styled(loginText(reply.document), Style::Good)
                      : terminal.styled("not logged in", Style::Warning));
    const QJsonObject pending = objectIn(reply.document, "pending");
    if (!pending.isEmpty()) {
        terminal.line(QStringLiteral("waiting for code %1 at %2")
                          .arg(valueText(pending.value("userCode")),
                               valueText(pending.value("verificationUri"))));
    }
    if (!problem.isEmpty())
        terminal.line("problem: " + problem);
    const QString advice = adviceFor(textIn(reply.document, "reason"));
    if (!advice.isEmpty())
        terminal.line(advice);
    return status;
}

int logout(const CommandContext& context)
{
    const ApiReply reply = context.api.remove("login");
    return context.show(reply, [&] { context.terminal.line("logged out"); });
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
