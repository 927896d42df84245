#include "TreeLogins.h"

#include <algorithm>
#include <kelo/CMRoot.h>

namespace {

CMReply<QVariant> notFound(const QString& service)
{
    auto reply = CMReply<QVariant>::create();
    reply.setError(CMError(CMError::NotFoundName(),
                           QStringLiteral("There is no login service \"%1\".").arg(service)));
    return reply;
}

} // namespace

TreeLogins::TreeLogins()
{
    m_rows = CMRoot().openRows(KeloOAuth2ServicePath(), [this](const CMRowsNotice&) { look(); });
    look();
}

TreeLogins::~TreeLogins()
{
    CMRoot().closeRows(m_rows);
}

void TreeLogins::look()
{
    constexpr int mostServices = 50;
    const CMGetRowsRequest request(KeloOAuth2ServicePath(), 0, mostServices - 1,
                                   {KeloRoles::Path()});
    CMRoot().requestInternal(request); // a list of the host's own, which answers at once
    const QVariantList rows = request.reply().value().rows().toList();
    for (const QVariant& row : rows) {
        const CMPath path = CMPath::fromEncoded(row.toList().value(0).toString());
        const QString service = path.splitBase().value(KeloOAuth2ServicePath().splitBase().size());
        if (service.isEmpty() || find(service))
            continue;
        auto login = std::make_unique<TreeLogin>(service, [this, service](const auto& info) {
            m_listeners.notify({service, info});
        });
        TreeLogin& added = *login;
        std::unique_lock<std::mutex> lock(m_mutex);
        if (entryOf(service) != m_logins.end())
            continue; // another thread was faster
        m_logins.push_back({service, std::move(login)});
        lock.unlock();
        added.tell();
    }
}

TreeLogins::Entries::const_iterator TreeLogins::entryOf(const QString& service) const
{
    return std::find_if(m_logins.begin(), m_logins.end(),
                        [&](const Entry& entry) { return entry.service == service; });
}

TreeLogin* TreeLogins::find(const QString& service) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = entryOf(service);
    return found == m_logins.end() ? nullptr : found->login.get();
}

QStringList TreeLogins::services() const
{
    QStringList names;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Entry& entry : m_logins)
        names.append(entry.service);
    return names;
}

KeloOAuth2Info TreeLogins::status(const QString& service) const
{
    const TreeLogin* login = find(service);
    return login ? login->status() : KeloOAuth2Info();
}

CMReply<QVariant> TreeLogins::start(const QString& service)
{
    TreeLogin* login = find(service);
    return login ? login->start() : notFound(service);
}

CMReply<QVariant> TreeLogins::logout(const QString& service)
{
    TreeLogin* login = find(service);
    return login ? login->logout() : notFound(service);
}

quint64 TreeLogins::addListener(Listener listener)
{
    return m_listeners.add(std::move(listener));
}

void TreeLogins::removeListener(quint64 id)
{
    m_listeners.remove(id);
}
