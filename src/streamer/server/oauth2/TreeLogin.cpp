#include "TreeLogin.h"

#include "Clock.h"

#include <kelo/CMRoot.h>

TreeLogin::TreeLogin(const QString& service, Listener listener)
    : m_path(KeloOAuth2ServicePath()), m_listener(std::move(listener))
{
    m_path.appendSubpath(service);
    CMPath subscription;
    subscription.appendSubpath(service);
    subscription.appendSubpath(QStringLiteral("subscription"));
    m_watch = CMRoot().watchValue(m_path, [this](const KeloValue& value, const KeloValue&) {
        take([&] {
            m_info = value.oauth2Info();
            m_publishedAtMs = SystemClock().steadyMs();
        });
    });
    m_subscriptionWatch =
        CMRoot().watchValue(subscription, [this](const KeloValue& value, const KeloValue&) {
            take([&] { m_setUp = value.oauth2Info(); });
        });
    const KeloValue login = CMRoot().value(m_path);
    const KeloValue setUp = CMRoot().value(subscription);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_info.isEmpty()) {
        m_info = login.oauth2Info();
        m_publishedAtMs = SystemClock().steadyMs();
    }
    if (m_setUp.isEmpty())
        m_setUp = setUp.oauth2Info();
}

TreeLogin::~TreeLogin()
{
    CMRoot().unwatch(m_watch);
    CMRoot().unwatch(m_subscriptionWatch);
}

void TreeLogin::take(const std::function<void()>& change)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const KeloOAuth2Info before = present();
    change();
    if (!(present() == before))
        tell(lock);
}

void TreeLogin::tell()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    tell(lock);
}

void TreeLogin::tell(std::unique_lock<std::mutex>& lock)
{
    // Login and subscription are published on different threads; the listener hears each state in
    // its order, so the thread that tells already tells of this one, too.
    m_untold.push_back(present());
    if (m_isTelling)
        return;
    m_isTelling = true;
    while (!m_untold.empty()) {
        const KeloOAuth2Info told = m_untold.front();
        m_untold.pop_front();
        lock.unlock();
        m_listener(told);
        lock.lock();
    }
    m_isTelling = false;
}

KeloOAuth2Info TreeLogin::present() const
{
    KeloOAuth2Info info = m_info;
    if (info.loggedIn() && m_setUp.loginNumber() == info.loginNumber() &&
        !m_setUp.subscription().isEmpty())
        info.setSubscription(m_setUp.subscription());
    return info;
}

KeloOAuth2Info TreeLogin::status() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    KeloOAuth2Info info = present();
    if (info.isPending()) {
        const qint64 passedS = (SystemClock().steadyMs() - m_publishedAtMs) / 1000;
        info.setExpiresIn(int(qMax(qint64(0), info.expiresIn() - passedS)));
    }
    return info;
}

CMReply<QVariant> TreeLogin::start()
{
    return CMRoot().invoke(m_path, true);
}

CMReply<QVariant> TreeLogin::logout()
{
    CMPath path = m_path;
    path.appendSubpath(QStringLiteral("logout"));
    return CMRoot().invoke(path, true);
}
