#include "QueueReader.h"

#include "RowFinder.h"

#include <algorithm>

namespace {
constexpr int mostAtOnce = 4;  ///< pages
constexpr int mostPages = 400; ///< for one question
constexpr int mostChanges = 3; ///< of a list that never stands still

quint64 numberOf(PlayQueue::Slot slot)
{
    return quint64(quint32(slot.origin)) << 32 | quint32(slot.index);
}

std::vector<PlayQueue::Seen> seenOf(const CMPath& list, const ListRows::Page& page)
{
    std::vector<PlayQueue::Seen> rows;
    for (const KeloRoles& row : page.rows)
        rows.push_back({PlayQueue::keyOf({row, {}, list, -1}), isItemRow(row)});
    return rows;
}
} // namespace

void QueueReader::read(int from, int to, const Done& done)
{
    const auto job = std::make_shared<Job>();
    job->from = from;
    job->to = to;
    job->done = done;
    m_jobs.insert(job);
    go(job);
}

void QueueReader::end(const CMError& error)
{
    while (!m_jobs.empty()) {
        const JobPtr job = *m_jobs.begin();
        job->error = error;
        finish(job);
    }
}

void QueueReader::go(const JobPtr& job)
{
    for (;;) {
        const std::vector<Wanted> wanted = missing(*job);
        if (wanted.empty() || job->pages >= mostPages || job->changes > mostChanges)
            return finish(job);
        bool isAnyKept = false;
        for (const Wanted& one : wanted)
            isAnyKept = isAnyKept || takeKept(job, one);
        if (isAnyKept)
            continue;
        for (const Wanted& one : wanted) {
            ++job->awaited;
            ++job->pages;
            m_rows.fetch(one.list, ListRows::pageOf(one.row),
                         [this, job, list = one.list](const ListRows::Page& page) {
                             take(job, list, page);
                             const bool isShort = page.rows.size() < ListRows::pageSize;
                             if (page.error.isSet() || (isShort && !page.isLast()))
                                 job->failed.emplace_back(list, page.from);
                             if (--job->awaited == 0)
                                 go(job);
                         });
        }
        return;
    }
}

bool QueueReader::isPageFailed(const Job& job, const CMPath& list, int row)
{
    return std::any_of(job.failed.begin(), job.failed.end(), [&](const auto& one) {
        return one.second == ListRows::pageOf(row) && one.first == list;
    });
}

std::vector<QueueReader::Wanted> QueueReader::missing(const Job& job) const
{
    const auto row = m_queue.wanted();
    if (row && job.to >= m_queue.queued() && !isPageFailed(job, m_queue.list(), *row))
        return {{m_queue.list(), *row, true}};
    std::vector<Wanted> all;
    for (int i = job.from; i <= job.to && i < m_queue.size() && all.size() < mostAtOnce; ++i) {
        const PlayQueue::Slot slot = m_queue.at(i);
        const CMPath list = m_queue.listOf(slot);
        const bool isHere = !m_queue.isRead(slot) || job.rows.contains(numberOf(slot)) ||
                            isPageFailed(job, list, slot.index);
        const bool isAsked = std::any_of(all.begin(), all.end(), [&](const Wanted& one) {
            return ListRows::pageOf(one.row) == ListRows::pageOf(slot.index) && one.list == list;
        });
        if (!isHere && !isAsked)
            all.push_back({list, slot.index, false});
    }
    return all;
}

bool QueueReader::takeKept(const JobPtr& job, const Wanted& wanted)
{
    const auto page = m_rows.page(wanted.list, wanted.row);
    const bool isWhole = page && page->from == ListRows::pageOf(wanted.row) &&
                         (page->isLast() || page->rows.size() >= ListRows::pageSize);
    if (!page || (wanted.isWhole && !isWhole))
        return false;
    take(job, wanted.list, *page);
    return true;
}

void QueueReader::take(const JobPtr& job, const CMPath& list, const ListRows::Page& page)
{
    if (page.error.isSet()) {
        if (!job->error.isSet())
            job->error = page.error;
        return;
    }
    const PlayQueue::Sight sight =
        m_queue.see(list, page.from, seenOf(list, page), page.count, page.title);
    if (sight == PlayQueue::Sight::Changed) {
        ++job->changes;
        job->rows.clear();
        m_rows.forget();
    }
    if (sight != PlayQueue::Sight::Same)
        m_changed();
    for (int i = job->from; i <= job->to && i < m_queue.size(); ++i) {
        const PlayQueue::Slot slot = m_queue.at(i);
        if (!m_queue.isRead(slot) || m_queue.listOf(slot) != list)
            continue;
        if (const KeloRoles* row = page.row(slot.index))
            job->rows.insert(numberOf(slot), *row);
    }
}

void QueueReader::finish(const JobPtr& job)
{
    if (m_jobs.erase(job) == 0)
        return;
    Rows rows;
    rows.error = job->error;
    for (int i = job->from; i <= job->to && i < m_queue.size(); ++i) {
        const PlayQueue::Slot slot = m_queue.at(i);
        const KeloRoles row = job->rows.value(numberOf(slot));
        if (!m_queue.isRead(slot))
            rows.rows.push_back({slot, m_queue.entry(slot)});
        else if (row.isEmpty())
            rows.rows.push_back({slot, {}});
        else
            rows.rows.push_back({slot, {row, {}, m_queue.listOf(slot), slot.index}});
    }
    job->done(rows);
}

void QueueReader::find(const PlayQueue::Played& played, const Done& done)
{
    const PlayQueue::Slot slot = played.slot;
    if (!m_queue.isRead(slot))
        return done({{{slot, m_queue.entry(slot)}}, CMError()});
    const CMPath list = m_queue.listOf(slot);
    const auto look = [slot, list, key = played.key, done](const ListRows::Page& page) {
        const auto isIt = [&](int index) {
            const KeloRoles* row = page.row(index);
            return row && PlayQueue::keyOf({*row, {}, list, index}) == key;
        };
        int index = slot.index;
        for (int i = page.from; i < page.from + page.rows.size() && !isIt(index); ++i)
            index = i;
        Row found{slot, {}};
        if (isIt(index))
            found = {{slot.origin, index}, {*page.row(index), {}, list, index}};
        done({{found}, page.error});
    };
    if (const auto page = m_rows.page(list, slot.index))
        return look(*page);
    m_rows.fetch(list, ListRows::pageOf(slot.index), look);
}
