#include "TreeLogin.h"

#include "Clock.h"

#include <kelo/CMRoot.h>

TreeLogin::TreeLogin(const QString& serviceName) : m_path(KeloOAuth2ServicePath())
{
    m_path.appendSubpath(serviceName);
    m_watch = CMRoot().watchValue(
        m_path, [this](const KeloValue& value, const KeloValue&) { onValue(value.oauth2Info()); });
    const KeloValue present = CMRoot().value(m_path);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_info.isEmpty()) {
        m_info = present.oauth2Info();
        m_publishedAtMs = SystemClock().steadyMs();
    }
}

TreeLogin::~TreeLogin()
{
    CMRoot().unwatch(m_watch);
}

void TreeLogin::onValue(const KeloOAuth2Info& info)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_info = info;
        m_publishedAtMs = SystemClock().steadyMs();
    }
    m_listeners.notify(status());
}

KeloOAuth2Info TreeLogin::status() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    KeloOAuth2Info info = m_info;
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

quint64 TreeLogin::addListener(Listener listener)
{
    return m_listeners.add(std::move(listener));
}

void TreeLogin::removeListener(quint64 id)
{
    m_listeners.remove(id);
}
