#include "Stage.h"
#include <future>
#include <kelo/CMRoot.h>
#include <kelo/HttpCallLog.h>
#include <kelo/HttpClient.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>

namespace {
QString filled(const char* text, int number)
{
    return QString::fromUtf8(text).replace(QStringLiteral("%t"), QString::number(number));
}

/// Whether nothing in it is a reason for a request to fail.
bool isCalm(const Schedule& schedule)
{
    const auto isHarmless = [](const Step& step) {
        return step.kind == Step::Ask || step.kind == Step::Release || step.kind == Step::Settle;
    };
    return schedule.mood.faults == 0 && !schedule.isImpatient && !schedule.steps.empty() &&
           schedule.steps.front().kind == Step::Login &&
           std::all_of(schedule.steps.begin() + 1, schedule.steps.end(), isHarmless);
}

CMRequest requestFor(const Ask& ask, int number)
{
    const CMPath path = CMPath::fromEncoded(filled(ask.path, number));
    const QString value = ask.value ? filled(ask.value, number) : QString();
    switch (ask.kind) {
    case Ask::Rows:
        return CMGetRowsRequest(path, 0, 49, {KeloRoles::Title()});
    case Ask::Data:
        return CMGetDataRequest(path, {KeloRoles::Title()});
    case Ask::Set:
        return CMSetDataRequest(path, KeloRoles::Value(), value);
    case Ask::Play:
        break;
    }
    KeloMetaData metaData;
    metaData.setPrePlayData(value);
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    QVariantHash item{{KeloTidalPlayItem::Id(), value},
                      {KeloRoles::MediaData(), mediaData.toVariant()}};
    return CMSetDataRequest(path, KeloRoles::PrePlay(), item);
}

std::string named(const CMRequest& request)
{
    return request.toString().toStdString();
}
} // namespace

Stage::Stage()
{
    setToken(QString());
    for (KeloLoopThread& client : m_clients)
        client.start([] {});
    HttpCallLog::instance().addObserver([this](const HttpCallRecord&) { m_service.happened(); });
}

QVariant Stage::play(const KeloRoles& item, int)
{
    const QString address = item.mediaData().resources().value(0).uri();
    const QString title = item.value(KeloRoles::Title()).toString();
    if (address.section(QLatin1Char('/'), -1) != title)
        m_service.setWrong("played " + address.toStdString() + " as " + title.toStdString());
    return title.section(QLatin1Char('|'), 1);
}

void Stage::tokenRefused(const QString& token)
{
    giveToken([&] { return m_service.tokenReported(token.toStdString()); });
}

void Stage::giveToken(const std::function<std::string()>& issue)
{
    std::lock_guard<std::mutex> lock(m_giving);
    if (const std::string token = issue(); !token.empty())
        setToken(QString::fromStdString(token));
}

void Stage::stopWorker()
{
    stop();
    // The connections that are closed now answer nothing any more.
    for (auto seen = m_service.events(); m_service.heldCount() > 0; seen = m_service.events())
        m_service.waitForEvent(seen);
    m_service.forgetRefusals();
}

std::string Stage::play(const Schedule& schedule)
{
    const int livingBefore = CMRequestData::living();
    m_service.begin(schedule.mood);
    m_logins = {};
    m_loginBegun = m_loginDone = 0;
    setSettings(0);
    start();
    CMDeadlines deadlines;
    if (schedule.isImpatient)
        deadlines.rows = deadlines.data = deadlines.set = std::chrono::milliseconds(1);
    CMRoot().setDeadlines(deadlines);

    for (const Step& step : schedule.steps)
        play(step);
    waitForClients();

    CMRoot().setDeadlines(CMDeadlines());
    m_service.behave();
    settle();
    while (m_service.heldCount() > 0) {
        m_service.release(0);
        settle();
    }
    if (m_isLoggedIn && m_service.isReportOwed())
        m_service.setWrong("the latest token was refused, and is not reported");
    // Whatever has happened, from here on everything is as ever.
    const std::size_t last = m_asked.size();
    if (!m_isLoggedIn)
        login(0);
    else
        setToken(QString::fromStdString(m_service.issueToken(m_logins.back())));
    ask(asks()[5], 1);
    settle();
    ask(asks().back(), 77);
    settle();
    // The host itself answers on a thread of its own what the module does not.
    for (const Asked& asked : m_asked) {
        for (auto seen = m_service.events(); asked.outcome->answers == 0;
             seen = m_service.events()) {
            if (!m_service.waitForEvent(seen))
                break;
        }
    }

    std::string wrong = verdict(isCalm(schedule));
    for (std::size_t i = last; i < m_asked.size() && wrong.empty(); ++i) {
        if (m_asked[i].request.reply().error().isSet())
            wrong = "in the end " + named(m_asked[i].request) + " is answered with: " +
                    m_asked[i].request.reply().error().message().toStdString();
    }
    m_asked.clear();
    logout();
    stopWorker();
    if (wrong.empty() && CMRequestData::living() != livingBefore)
        wrong = std::to_string(CMRequestData::living() - livingBefore) + " requests are still held";
    if (wrong.empty() && CMRoot().pendingRequests() > 0)
        wrong = "the host waits for a request that is gone";
    return wrong;
}

void Stage::play(const Step& step)
{
    switch (step.kind) {
    case Step::Ask:
        m_busyClients.insert(step.who);
        m_clients[std::size_t(step.who)].post(
            [this, step] { ask(asks()[std::size_t(step.what / 100)], step.what % 100); });
        break;
    case Step::Release:
        m_service.release(unsigned(step.what));
        break;
    case Step::Drop:
        m_service.release(unsigned(step.what), true);
        break;
    case Step::Login:
        login(step.who);
        break;
    case Step::Logout:
        logout();
        break;
    case Step::Renew:
        if (m_isLoggedIn)
            setToken(QString::fromStdString(m_service.issueToken(m_logins.back())));
        break;
    case Step::Expire:
        if (m_isLoggedIn)
            m_service.expireToken();
        break;
    case Step::Settings:
        setSettings(step.what);
        break;
    case Step::Restart:
        stopWorker();
        start();
        break;
    case Step::Settle:
        settle();
        break;
    }
}

void Stage::login(int account)
{
    logout();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_logins.push_back(account);
    }
    ++m_loginBegun;
    giveToken([&] { return m_service.issueToken(account); });
    setLoginState(true);
    ++m_loginDone;
    m_isLoggedIn = true;
}

void Stage::logout()
{
    if (!m_isLoggedIn)
        return;
    m_isLoggedIn = false;
    setLoginState(false);
    setToken(QString());
}

void Stage::setSettings(int number)
{
    // Countries of no account.
    KeloTidalSettings changed = settings();
    changed.setApiUrl(QString::fromStdString(m_service.baseUrl()) + (number % 2 ? "/v2" : "/v1"));
    changed.setCountryCode(number % 2 ? "YY" : "ZZ");
    ModuleBed::setSettings(changed);
}

void Stage::ask(const Ask& ask, int number)
{
    const Asked asked{requestFor(ask, number), &ask, number, m_loginDone,
                      std::make_shared<Outcome>()};
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_asked.push_back(asked);
    }
    CMVoidReply(asked.request.reply()).addWatcher(nullptr, [this, outcome = asked.outcome] {
        outcome->lastLogin = m_loginBegun.load();
        ++outcome->answers;
        m_service.happened();
    });
    CMRoot().request(asked.request);
}

int Stage::callsUnderWay()
{
    // What is queued for the worker queues more, but not deeper than this.
    constexpr int turns = 5;
    std::promise<int> calls;
    std::function<void(int)> turn = [&](int left) {
        if (left > 0)
            keloPost(worker(), [&turn, left] { turn(left - 1); });
        else
            calls.set_value(worker()->getHandler()->findChild<HttpClient*>()->callsUnderWay());
    };
    keloPost(worker(), [&turn] { turn(turns); });
    return calls.get_future().get();
}

void Stage::waitForClients()
{
    for (const int client : std::exchange(m_busyClients, {})) {
        std::promise<void> done;
        m_clients[std::size_t(client)].post([&done] { done.set_value(); });
        done.get_future().wait();
    }
}

void Stage::settle()
{
    waitForClients();
    for (;;) {
        const std::uint64_t seen = m_service.events();
        const int calls = callsUnderWay();
        // An answer that has come meanwhile may be queued, and lead to other calls.
        if (calls == m_service.heldCount() && m_service.events() == seen)
            return;
        m_service.waitForEvent(seen);
    }
}

std::string Stage::verdict(bool isCalm)
{
    if (std::string wrong = m_service.wrong(); !wrong.empty())
        return wrong;
    for (const Asked& asked : m_asked) {
        if (std::string wrong = verdict(asked, isCalm); !wrong.empty())
            return wrong;
    }
    return {};
}

std::string Stage::verdict(const Asked& asked, bool isCalm) const
{
    const int answers = asked.outcome->answers;
    if (answers != 1)
        return named(asked.request) + " has " + std::to_string(answers) + " answers";
    if (asked.ask->kind == Ask::Rows)
        return rowsVerdict(asked, isCalm);
    return asked.ask->kind == Ask::Play ? playVerdict(asked) : std::string();
}

bool Stage::isOfLogin(const Asked& asked, const QString& text) const
{
    // The first login has the number 1; before it there is none.
    for (int login = qMax(1, asked.firstLogin); login <= asked.outcome->lastLogin; ++login) {
        if (text.startsWith(QStringLiteral("A%1|").arg(m_logins[std::size_t(login - 1)])))
            return true;
    }
    return false;
}

std::string Stage::rowsVerdict(const Asked& asked, bool isCalm) const
{
    const CMGetRowsRequest request(asked.request);
    const CMError error = request.reply().error();
    if (isCalm && asked.ask->isSafe && error.isSet())
        return named(request) + " is answered with: " + error.message().toStdString();
    const QVariantList rows = request.reply().value().rows().toList();
    for (const QVariant& row : rows) {
        const QString title = row.toList().value(0).toString();
        const bool isServed = title.contains(QLatin1Char('|'));
        if (!isServed)
            continue;
        if (!asked.ask->served || !title.contains(filled(asked.ask->served, asked.number)) ||
            !isOfLogin(asked, title))
            return named(request) + " is answered with the row " + title.toStdString();
    }
    return {};
}

std::string Stage::playVerdict(const Asked& asked)
{
    const CMReply<QVariant> reply(asked.request.reply());
    const QString number = QString::number(asked.number);
    const QString message = reply.error().message();
    const bool isOther = reply.error().isSet()
                             ? message.contains(QLatin1Char('[')) &&
                                   !message.contains(QLatin1Char('[') + number + QLatin1Char(']'))
                             : reply.value().toString() != number;
    if (!isOther)
        return {};
    return named(asked.request) + ", track " + number.toStdString() +
           ", is answered with: " + (message + reply.value().toString()).toStdString();
}
