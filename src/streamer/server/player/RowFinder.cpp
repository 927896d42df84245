#include "RowFinder.h"

#include <algorithm>

namespace {
constexpr int maxPages = 40;
const QString trackIdParam = QStringLiteral("trackId");
} // namespace

bool isItemRow(const KeloRoles& row)
{
    return row.type() == KeloRolesType::Audio() || row.type() == KeloRolesType::Container();
}

void RowFinder::cancel()
{
    ++m_generation;
    m_done = nullptr;
    m_found = Found();
    m_pagesLeft = maxPages;
}

void RowFinder::note(const Page& page)
{
    m_found.count = page.count;
    m_found.title = page.title;
}

void RowFinder::finish(const QueueEntry& entry)
{
    Found found = m_found;
    found.entry = entry;
    if (!entry.isEmpty())
        found.error = CMError();
    const Done done = std::exchange(m_done, nullptr);
    cancel();
    if (done)
        done(found);
}

void RowFinder::fetch(const CMPath& list, int from, std::function<void(const Page&)> then)
{
    if (--m_pagesLeft < 0)
        return finish();
    m_rows.fetch(list, from,
                 [this, generation = m_generation, then = std::move(then)](const Page& page) {
                     if (generation != m_generation)
                         return;
                     note(page);
                     then(page);
                 });
}

void RowFinder::find(const CMPath& path, const Place& place, Done done)
{
    cancel();
    m_done = std::move(done);
    const KeptRows::Found kept = m_rows.find(path, place.list, place.index);
    if (!kept.row.isEmpty()) {
        if (const auto page = m_rows.page(kept.list, kept.index))
            note(*page);
        return finish({kept.row, {}, kept.list, kept.index});
    }
    if (place.list.isEmpty())
        return findAnywhere(path);
    const int from = ListRows::pageOf(place.index);
    fetch(place.list, from, [this, path, place, from](const Page& page) {
        const int at = page.indexOf(path, place.index - from);
        if (at < 0)
            return findAnywhere(path);
        finish({page.rows.at(at), {}, place.list, from + at});
    });
}

void RowFinder::findAnywhere(const CMPath& path)
{
    if (!path.hasParam(trackIdParam)) {
        if (const auto page = m_rows.page(path, 0)) {
            note(*page);
            return onOwnRows(path, *page);
        }
        return fetch(path, 0, [this, path](const Page& page) { onOwnRows(path, page); });
    }
    search(RowSearch(path, RowSearch::listsOf(path).mid(0, 1)),
           [this, id = path.param(trackIdParam)](const QueueEntry& entry) {
               // Rows that stand in no list of their own, as a radio's do, name their track.
               const bool isListMissing = m_found.error.name() == CMError::NotFoundName();
               finish(entry.isEmpty() && isListMissing ? QueueEntry{{}, id, {}, -1} : entry);
           });
}

void RowFinder::onOwnRows(const CMPath& path, const Page& page)
{
    if (!page.error.isSet()) {
        m_found.isList = true;
        return walkPage(path, 0, 1, page);
    }
    m_found.error = page.error;
    search(RowSearch(path, RowSearch::listsOf(path)),
           [this](const QueueEntry& entry) { finish(entry); });
}

void RowFinder::search(const RowSearch& search, const std::function<void(const QueueEntry&)>& then)
{
    if (search.isDone())
        return then(search.hasFound()
                        ? QueueEntry{search.row(), QString(), search.list(), search.index()}
                        : QueueEntry());
    fetch(search.list(), search.from(), [this, search, then](const Page& page) {
        if (page.error.isSet() && !m_found.error.isSet())
            m_found.error = page.error;
        RowSearch rest = search;
        rest.take(page);
        this->search(rest, then);
    });
}

void RowFinder::findBefore(const CMPath& list, int index, Done done)
{
    cancel();
    m_done = std::move(done);
    walk(list, index - 1, -1);
}

/// From a row on, which may stand outside the list.
void RowFinder::walk(const CMPath& list, int index, int step)
{
    if (index < 0)
        return finish();
    if (const auto page = m_rows.page(list, index)) {
        note(*page);
        return walkPage(list, index, step, *page);
    }
    fetch(list, ListRows::pageOf(index),
          [this, list, index, step](const Page& page) { walkPage(list, index, step, page); });
}

void RowFinder::walkPage(const CMPath& list, int index, int step, const Page& page)
{
    if (page.error.isSet()) {
        m_found.error = page.error;
        return finish();
    }
    int i = step > 0 ? index : std::min(index, page.from + page.rows.size() - 1);
    for (; const KeloRoles* row = page.row(i); i += step) {
        const QueueEntry entry{*row, QString(), list, i};
        if (entry.isPlayable())
            return finish(entry);
        if (isItemRow(*row))
            m_found.skipped.append(row->title());
    }
    if (step > 0 ? page.rows.isEmpty() || i >= page.count : i < 0)
        return finish();
    walk(list, step > 0 ? i : page.from - 1, step);
}
