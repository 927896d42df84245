#include "client/Commands.h"
#include "client/DisplayText.h"
#include "qr/QrMatrix.h"

#include <algorithm>
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

/// `kelo login`, `kelo logout` with the service that the person named; empty: the usual one.
struct LoginCommand
{
    QString service;
    bool wantsStatus = false;

    int run(const CommandContext& context, int (LoginCommand::*run)(const CommandContext&) const);

    /// Starts a login, shows where to confirm it and waits until it is confirmed, refused or
    /// expired. The tokens stay with the streamer.
    int logIn(const CommandContext& context) const;
    /// Of all services where none is named; a login that failed or ended makes it fail too.
    int show(const CommandContext& context) const;
    int logOut(const CommandContext& context) const;

private:
    /// \p login: its state.
    int waitForDecision(const CommandContext& context, const QJsonObject& login) const;
    /// Ends the command with the state that decided it.
    int finished(const CommandContext& context, const ApiReply& reply) const;
    int refused(Terminal& terminal, const QString& problem, const QJsonObject& login) const;
    Query query() const { return ofService(service); }
    static Query ofService(const QString& name)
    {
        return name.isEmpty() ? Query() : Query{{"service", name}};
    }
};

/// `--json FIELDS` is older than services: the name of a field behind it is none of a service.
int LoginCommand::run(const CommandContext& context,
                      int (LoginCommand::*run)(const CommandContext&) const)
{
    static const QStringList known{"service", "displayName", "loggedIn", "user",  "subscription",
                                   "pending", "problem",     "reason",   "logins"};
    CommandContext meant = context;
    const QStringList words = service.split(',');
    const auto isField = [](const QString& word) { return known.contains(word); };
    if (context.isJson && std::all_of(words.begin(), words.end(), isField)) {
        meant.fields = words;
        service.clear();
    }
    return (this->*run)(meant);
}

/// What the user can do about the problem of \p login, by the reason that the streamer gives; empty
/// for one that is not known. \p service: the one to name for it.
QString adviceFor(const QJsonObject& login, const QString& service)
{
    static const QHash<QString, QString> advice{
        {"expired", "Run %1 again and confirm the code before it ends."},
        {"denied", "Run %1 again and confirm the login at the service's page."},
        {"client", "Check client_id and client_secret in section [tidal.oauth2] of the "
                   "settings; see kelo config."},
        {"clock", "Set the clock of the streamer's machine (timedatectl)."},
        {"network", "Check the network of the streamer's machine; see kelo doctor."},
        {"service", "Try again in a few minutes."},
        {"ended", "Run %1 to log in again."}};
    const QString reason = textIn(login, "reason");
    const QString owner = textIn(login, "service");
    if (reason == "client" && !owner.isEmpty() && owner != "tidal")
        return QStringLiteral("Check client id and secret in section [module.%1] of the settings.")
            .arg(shown(owner));
    QString text = advice.value(reason);
    return text.replace("%1", shown("kelo login " + service).trimmed());
}

int LoginCommand::refused(Terminal& terminal, const QString& problem,
                          const QJsonObject& login) const
{
    const QString advice = adviceFor(login, service);
    terminal.error("kelo: not logged in: " + problem,
                   {{"reason", textIn(login, "reason")}, {"advice", advice}});
    if (!advice.isEmpty() && !terminal.isJson())
        terminal.note(advice);
    return ExitRefused;
}

int LoginCommand::finished(const CommandContext& context, const ApiReply& reply) const
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
                   reply.document);
}

/// Looks every second whether the login is decided, with a countdown where somebody looks.
int LoginCommand::waitForDecision(const CommandContext& context, const QJsonObject& login) const
{
    constexpr int longestWait = 24 * 60 * 60; // when the streamer does not say
    const QJsonValue expiresIn = objectIn(login, "pending").value("expiresIn");
    const QDeadlineTimer end(std::chrono::seconds(expiresIn.toInt(longestWait)));
    const bool hasCountdown =
        expiresIn.isDouble() && !context.isJson && context.terminal.isInteractive();
    for (;;) {
        if (hasCountdown)
            context.terminal.redraw(
                {QStringLiteral("waiting, %1 left").arg(clockTime(end.remainingTime()))});
        // The one that was begun: meanwhile another one may have become the usual one.
        const ApiReply now = context.api.get("login", ofService(textIn(login, "service")));
        if (!now.isDone()) {
            context.terminal.error("kelo: the streamer ended while waiting for the login");
            return now.outcome == ApiReply::Outcome::Refused ? ExitRefused : ExitUnreachable;
        }
        if (isLoggedIn(now.document) || objectIn(now.document, "pending").isEmpty())
            return finished(context, now);
        if (end.hasExpired())
            return refused(context.terminal, "the code has expired", {{"reason", "expired"}});
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

int LoginCommand::logIn(const CommandContext& context) const
{
    const ApiReply reply = context.api.post("login", "{}", query());
    if (reply.outcome == ApiReply::Outcome::Refused) {
        // The refusal is a sentence alone; the state has the reason beside it.
        const ApiReply state = context.api.get("login", query());
        if (!problemOf(state.document).isEmpty())
            return finished(context, state);
    }
    if (!reply.isDone())
        return context.finish(reply);
    const QJsonObject pending = objectIn(reply.document, "pending");
    if (pending.isEmpty())
        return finished(context, reply);
    showPending(context, pending);
    return waitForDecision(context, reply.document);
}

/// What there is to say of a login, as lines. \p service: the one to name in advice.
QStringList linesOf(const Terminal& terminal, const QJsonObject& login, const QString& service)
{
    QStringList lines{isLoggedIn(login) ? terminal.styled(loginText(login), Style::Good)
                                        : terminal.styled("not logged in", Style::Warning)};
    const QJsonObject pending = objectIn(login, "pending");
    if (!pending.isEmpty()) {
        lines.append(QStringLiteral("waiting for code %1 at %2")
                         .arg(valueText(pending.value("userCode")),
                              valueText(pending.value("verificationUri"))));
    }
    const QString problem = problemOf(login);
    if (!problem.isEmpty())
        lines.append("problem: " + problem);
    lines.append(adviceFor(login, service));
    lines.removeAll(QString());
    return lines;
}

/// The same of several, each behind its name.
QStringList linesOfAll(const Terminal& terminal, const QJsonArray& logins)
{
    int width = 0;
    for (const QJsonValue& login : logins)
        width = qMax(width, columns(shown(textIn(login.toObject(), "service"))));
    QStringList lines;
    for (const QJsonValue& login : logins) {
        const QString service = shown(textIn(login.toObject(), "service"));
        QString before = terminal.hasWidth() ? padded(service, width) + "  " : service + '\t';
        for (const QString& line : linesOf(terminal, login.toObject(), service)) {
            lines.append(before + line);
            if (terminal.hasWidth())
                before.fill(' ');
        }
    }
    return lines;
}

int LoginCommand::show(const CommandContext& context) const
{
    const ApiReply reply = context.api.get("login", query());
    if (!reply.isDone())
        return context.finish(reply);
    const int status = problemOf(reply.document).isEmpty() ? ExitDone : ExitRefused;
    QJsonArray all;
    if (service.isEmpty())
        all = context.api.get("logins").document.value("logins").toArray();
    const bool hasSeveral = all.size() > 1;
    if (context.isJson) {
        QJsonObject document = reply.document;
        if (hasSeveral)
            document.insert("logins", all);
        context.printJson(hasSeveral ? json(document) : reply.body);
    } else {
        Terminal& terminal = context.terminal;
        terminal.lines(hasSeveral ? linesOfAll(terminal, all)
                                  : linesOf(terminal, reply.document, service));
    }
    return status;
}

int LoginCommand::logOut(const CommandContext& context) const
{
    const ApiReply reply = context.api.remove("login", query());
    return context.show(reply, [&] { context.terminal.line("logged out"); });
}

const char* const serviceText = "The service, as --status names it (TIDAL's, else the first)";

} // namespace

Command loginCommand()
{
    const auto values = std::make_shared<LoginCommand>();
    return Command("login", "Log in to a service with a code.",
                   "kelo login\nkelo login --status\nkelo login radio")
        .option("[SERVICE]", values->service, serviceText)
        .option("--status", values->wantsStatus,
                "Only tell whether somebody is logged in; without a service, of each")
        .asks([values](const CommandContext& context) {
            return values->run(context,
                               values->wantsStatus ? &LoginCommand::show : &LoginCommand::logIn);
        });
}

Command logoutCommand()
{
    const auto values = std::make_shared<LoginCommand>();
    return Command("logout", "Log out of a service.", "kelo logout\nkelo logout radio")
        .option("[SERVICE]", values->service, serviceText)
        .asks([values](const CommandContext& context) {
            return values->run(context, &LoginCommand::logOut);
        });
}

} // namespace cli
