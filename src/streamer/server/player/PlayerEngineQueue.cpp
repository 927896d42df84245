// The part of PlayerEngine that has to do with the queue.
#include "PlayerControl.h"
#include "PlayerEngine.h"

namespace {
constexpr qint64 saveQueueAfterMs = 2000;
const QString listRole = QStringLiteral("List");
const QString indexRole = QStringLiteral("Index");
const QString queuedRole = QStringLiteral("Queued");

CMError refusal(const TrString& text)
{
    return CMError(CMError::BadRequestName(), text);
}

CMError staleError()
{
    return CMError(PlayerControl::staleName(),
                   TrString::in("Player", "the queue has changed; look at it again"));
}
} // namespace

void PlayerEngine::loadQueue()
{
    QueueStore::Kept kept = m_queueStore.load(m_clock.wallMs());
    if (!kept.note.isEmpty())
        addNote(kept.note);
    if (kept.queue) {
        m_queue = std::move(*kept.queue);
        keepQueue(); // its version is given out from now on
    }
    const QueueEntry& entry = m_item.entry;
    // The item is kept at once, the queue a little later.
    const quint64 key = PlayQueue::keyOf(entry);
    const PlayQueue::Slot front = m_queue.front();
    if (entry.isEmpty())
        m_queue.dropPresent();
    else if (m_queue.present().slot.origin < 0 && !m_queue.hasList() && !entry.list.isEmpty())
        m_queue.begin({entry.list, {}, -1}, entry.index, key);
    else if (m_queue.present().key != key && front.origin >= 0 && entry.index >= 0 &&
             m_queue.listOf(front) == entry.list && m_queue.indexOf(front) == entry.index)
        m_queue.take(0, key);
    queueChanged();
}

void PlayerEngine::queueChanged()
{
    m_rows.follow(m_queue.list(), [this] {
        m_queue.listChanged();
        queueEdited();
        publish();
    });
    if (std::exchange(m_isQueueUnsaved, true))
        return;
    m_saveQueue.start(saveQueueAfterMs, [this] {
        m_isQueueUnsaved = false;
        if (keepQueue())
            publish();
    });
}

bool PlayerEngine::keepQueue()
{
    const TrString problem = m_queueStore.save(m_queue);
    if (!problem.isEmpty())
        addNote(problem);
    return !problem.isEmpty();
}

void PlayerEngine::queueEdited()
{
    queueChanged();
    const PlayQueue::Slot front = m_queue.front();
    const bool isOther = m_chain.aim == Chain::Prefetch
                             ? m_chain.slot.origin >= 0 && m_chain.slot != front
                         : m_next.state == Next::Given ? !m_next.isSame && m_next.slot != front
                                                       : m_next.state == Next::Nothing;
    if (!isOther || m_chain.aim == Chain::Start)
        return;
    // The output keeps what it has until it is given the other.
    endChain();
    m_next = Next();
    prefetch();
}

void PlayerEngine::remember()
{
    if (!m_before)
        m_before = std::make_unique<Before>(Before{m_queue, m_item});
}

void PlayerEngine::restore(bool withItem)
{
    const std::unique_ptr<Before> before = std::move(m_before);
    if (!before || before->item.entry.isEmpty() || before->queue.edits() != m_queue.edits())
        return;
    m_queue.restore(before->queue);
    queueChanged();
    if (!withItem)
        return;
    m_item = before->item;
    m_resumeMs = 0;
}

void PlayerEngine::begin(const RowFinder::Found& found)
{
    const QueueEntry& entry = found.entry;
    const CMPath context = entry.row.mediaData().metaData().contentPlayContextPath();
    if (entry.list.isEmpty())
        m_queue.beginAlone(entry);
    else if (!context.isEmpty() && context != entry.list)
        m_queue.begin(QueueAdder::listOf(context, RowFinder::Found()), -1, PlayQueue::keyOf(entry));
    else
        m_queue.begin(QueueAdder::listOf(entry.list, found), entry.index, PlayQueue::keyOf(entry));
    queueChanged();
}

QVariant PlayerEngine::queueState() const
{
    return QVariantHash{{QStringLiteral("version"), m_queue.version()},
                        {QStringLiteral("queued"), m_queue.queued()},
                        {QStringLiteral("rowsCount"), m_queue.size()}};
}

void PlayerEngine::setShuffled(bool on, const Reply& reply)
{
    m_queue.setShuffled(on);
    queueEdited();
    publish();
    reply.setValue(queueState());
}

void PlayerEngine::setRepeat(PlayQueue::Repeat repeat, const Reply& reply)
{
    const bool isOther = repeat != m_queue.repeat();
    m_queue.setRepeat(repeat);
    queueChanged();
    const bool isLookedFor = m_chain.aim == Chain::Prefetch ||
                             (m_chain.aim == Chain::None && m_next.state != Next::Unknown);
    if (isOther && isLookedFor) {
        endChain();
        m_next = Next();
        prefetch();
    }
    publish();
    reply.setValue(queueState());
}

void PlayerEngine::editQueue(const QueueEdit& edit, const Reply& reply)
{
    if (edit.action == QueueEdit::Add)
        return addToQueue(edit, reply);
    const bool hasPosition = edit.action != QueueEdit::Clear;
    if (hasPosition && edit.version != m_queue.version())
        return reply.setError(staleError());
    bool isDone = !hasPosition || edit.position < m_queue.size();
    if (edit.action == QueueEdit::Clear)
        m_queue.clear();
    else if (edit.action == QueueEdit::Move)
        isDone = m_queue.move(edit.position, edit.to);
    else if (edit.action == QueueEdit::Remove)
        isDone = m_queue.remove(edit.position, edit.count);
    if (!isDone)
        return reply.setError(
            refusal(TrString::in("Player", "the queue has %1 rows, none at this position",
                                 {QString::number(m_queue.size())})));
    if (edit.action == QueueEdit::Jump)
        return jump(m_queue.at(edit.position), edit.position, reply);
    queueEdited();
    publish();
    reply.setValue(queueState());
}

void PlayerEngine::addToQueue(const QueueEdit& edit, const Reply& reply)
{
    m_adder.find(edit, [this, isNext = edit.isNext, reply](const CMError& error,
                                                           const QueueAdder::Items& items) {
        if (error.isSet())
            return reply.setError(error);
        if (!m_queue.add(items, isNext))
            return reply.setError(
                refusal(TrString::in("Player", "the queue is full: it holds %1 rows",
                                     {QString::number(PlayQueue::mostQueued)})));
        queueEdited();
        publish();
        reply.setValue(queueState());
    });
}

void PlayerEngine::jump(PlayQueue::Slot slot, int position, const Reply& reply)
{
    m_reader.read(position, position, [this, slot, position, reply](const auto& rows) {
        const int now = m_queue.positionOf(slot, position);
        if (now < 0)
            return reply.setError(staleError());
        if (now != position) // rows before it went when its list was looked at
            return jump(slot, now, reply);
        const QueueEntry entry = rows.rows.empty() ? QueueEntry() : rows.rows.front().entry;
        if (entry.isEmpty())
            return reply.setError(
                rows.error.isSet() ? rows.error : CMError(TrString::in("Player", "no such row")));
        if (entry.id.isEmpty() && !entry.isPlayable())
            return reply.setError(
                CMError(TrString::in("Player", "%1 cannot be played", {entry.row.title()})));
        command(reply);
        startChain(Chain::Start, entry);
        m_chain.slot = slot;
        m_chain.position = now;
        resolve();
    });
}

void PlayerEngine::readQueue(int from, int to, const Reply& reply)
{
    m_reader.read(from, to, [this, from, reply](const QueueReader::Rows& rows) {
        QVariantHash answer = queueState().toHash();
        answer.insert(QStringLiteral("from"), from);
        if (m_queue.hasList()) {
            answer.insert(QStringLiteral("list"), m_queue.list().toEncoded());
            answer.insert(QStringLiteral("listTitle"), m_queue.listTitle().toVariant());
        }
        answer.insert(QStringLiteral("rows"), rowsOf(rows, from));
        reply.setValue(answer);
    });
}

QVariantList PlayerEngine::rowsOf(const QueueReader::Rows& rows, int from) const
{
    QVariantList all;
    for (const auto& [slot, entry] : rows.rows) {
        QVariantHash row = entry.row.toHash();
        if (entry.row.isEmpty())
            row = {{KeloRoles::Type(), KeloRolesType::Audio()}};
        if (!entry.id.isEmpty())
            row.insert(KeloRoles::Title(), entry.id);
        else if (entry.isEmpty())
            row.insert(KeloRoles::Disabled(), true);
        const CMPath list = m_queue.listOf(slot);
        if (!list.isEmpty())
            row.insert(listRole, list.toEncoded());
        if (!list.isEmpty() && m_queue.indexOf(slot) >= 0)
            row.insert(indexRole, m_queue.indexOf(slot));
        if (from++ < m_queue.queued())
            row.insert(queuedRole, true);
        all.append(row);
    }
    return all;
}
