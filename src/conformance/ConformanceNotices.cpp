// Who is told of changes.
#include "Conformance.h"

#include <kelo/CMRoot.h>
#include <memory>

namespace {

const QString check = QStringLiteral("notices");

/// What was heard of the open lists, by the number of the list.
struct Heard
{
    std::mutex mutex; ///< guards what follows
    QMap<size_t, QStringList> changes;

    QMap<size_t, QStringList> take()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return std::exchange(changes, {});
    }
};

quint64 open(const CMPath& path, size_t number, const std::shared_ptr<Heard>& heard)
{
    return CMRoot().openRows(path, [number, heard](const CMRowsNotice& notice) {
        // With the count: of two changes in a row, each has its own.
        QString change = notice.change.toStringList().join(QLatin1Char(' '));
        if (notice.count >= 0)
            change += QStringLiteral(" (%1 rows)").arg(notice.count);
        const std::lock_guard<std::mutex> lock(heard->mutex);
        heard->changes[number].append(change);
    });
}

} // namespace

void Conformance::checkNotices()
{
    for (List& list : m_lists)
        list.watch.reset(); // from here on, only clients that come and go
    if (m_options.actions.isEmpty())
        return m_findings.skip(check, QStringLiteral("no --act names what may be activated"));
    bool isChanged = false;
    for (const QString& action : m_options.actions) {
        m_findings.begin(check, action);
        isChanged |= checkAction(CMPath::fromEncoded(action));
    }
    if (!isChanged)
        m_findings.fault(check, QStringLiteral("nothing that was activated changed a list"));
    m_findings.end(check, QStringLiteral("who has a changed list open is told once, nobody else"));
}

/// Whether a list changed. Two clients have each list open, one of which leaves.
bool Conformance::checkAction(const CMPath& action)
{
    const auto heard = std::make_shared<Heard>();
    const auto heardByLeft = std::make_shared<Heard>();
    std::vector<quint64> ids;
    for (size_t i = 0; i < m_lists.size(); ++i) {
        const quint64 left = open(m_lists[i].path, i, heardByLeft);
        ids.push_back(open(m_lists[i].path, i, heard));
        CMRoot().closeRows(left);
        // Asked for now: no change goes unheard.
        m_lists[i].first = m_asker.rows(m_lists[i].path, 0, 19);
    }
    heardByLeft->take(); // before it left
    const auto act = [&] {
        const CMError error = m_asker.set(action, KeloRoles::Value(), QVariant());
        if (error.isSet())
            m_findings.fault(check, action.toEncoded() + QStringLiteral(": ") + error.message());
        settle();
    };
    act();
    const QMap<size_t, QStringList> changes = heard->take();
    bool isChanged = false;
    for (size_t i = 0; i < m_lists.size(); ++i) {
        List& list = m_lists[i];
        const Page now = m_asker.rows(list.path, 0, 19);
        const bool isOther = now.count != list.first.count || now.paths() != list.first.paths();
        QStringList told = changes.value(i);
        isChanged |= isOther;
        if (isOther && told.isEmpty())
            m_findings.fault(check,
                             list.path.toEncoded() + QStringLiteral(" changed, nobody was told"));
        if (told.removeDuplicates() > 0)
            m_findings.fault(check, list.path.toEncoded() + QStringLiteral(": told twice: ") +
                                        told.first());
        list.first = now;
    }
    for (const quint64 id : ids)
        CMRoot().closeRows(id);
    heard->take();
    act();
    if (!heard->take().isEmpty() || !heardByLeft->take().isEmpty())
        m_findings.fault(check, QStringLiteral("who has closed a list is told of it"));
    return isChanged;
}
