#include "RowFinder.h"

#include "ItemRoles.h"

#include <algorithm>
#include <kelo/CMRoot.h>

namespace {
constexpr int pageSize = RowSearch::pageSize;
constexpr int maxPages = 40;
/// Rows before a wanted one that are read with it, for steps back.
constexpr int rowsBefore = 10;
const QString trackIdParam = QStringLiteral("trackId");

/// Headers and texts are no items, so that passing over them is not worth a word.
bool isItem(const KeloRoles& row)
{
    return row.type() == KeloRolesType::Audio() || row.type() == KeloRolesType::Container();
}
} // namespace

void RowFinder::cancel()
{
    ++m_generation;
    m_done = nullptr;
    m_found = Found();
    m_pagesLeft = maxPages;
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

void RowFinder::fetch(const CMPath& list, int from, int to, std::function<void(const Page&)> then)
{
    if (--m_pagesLeft < 0)
        return finish();
    const auto watch = m_kept.begin(list);
    const CMGetRowsRequest request(list, from, to, itemRoles());
    CMRoot().request(request);
    const CMReply<KeloRowsRoles> reply = request.reply();
    reply.addWatcher(
        this,
        [this, reply, from, watch, generation = m_generation, then] {
            m_kept.take(watch, from, reply);
            if (generation == m_generation)
                then(Page(reply));
        },
        Qt::QueuedConnection);
}

void RowFinder::find(const CMPath& path, const Place& place, Done done)
{
    cancel();
    m_done = std::move(done);
    const KeptRows::Found kept = m_kept.find(path, place.list, place.index);
    if (!kept.row.isEmpty())
        return finish({kept.row, {}, kept.list, kept.index});
    if (place.list.isEmpty())
        return findAnywhere(path);
    const int from = std::max(0, place.index - rowsBefore);
    fetch(place.list, from, from + pageSize - 1, [this, path, place, from](const Page& page) {
        const int at = page.indexOf(path, place.index - from);
        if (at < 0)
            return findAnywhere(path);
        finish({page.rows.at(at), {}, place.list, from + at});
    });
}

void RowFinder::findAnywhere(const CMPath& path)
{
    if (!path.hasParam(trackIdParam)) {
        if (const auto kept = m_kept.beside(path, -1, 1))
            return onOwnRows(path, kept->page);
        fetch(path, 0, pageSize - 1, [this, path](const Page& page) { onOwnRows(path, page); });
        return;
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
    fetch(search.list(), search.from(), search.from() + pageSize - 1,
          [this, search, then](const Page& page) {
              if (page.error.isSet() && !m_found.error.isSet())
                  m_found.error = page.error;
              RowSearch rest = search;
              rest.take(page);
              this->search(rest, then);
          });
}

void RowFinder::next(const QueueEntry& entry, int step, Done done)
{
    cancel();
    m_done = std::move(done);
    if (entry.index >= 0 && !entry.list.isEmpty())
        return walk(entry.list, entry.index, step);
    QList<CMPath> lists;
    if (!entry.list.isEmpty() && !entry.row.isEmpty())
        lists.append(entry.list);
    const CMPath prePlay = entry.prePlayPath();
    const auto isEntry = [prePlay, id = entry.row.id()](const KeloRoles& row) {
        const CMPath own = row.mediaData().metaData().prePlayPath();
        return prePlay.isEmpty() ? !id.isEmpty() && row.id() == id : own == prePlay;
    };
    search(RowSearch(lists, isEntry), [this, step](const QueueEntry& found) {
        if (found.isEmpty())
            return finish();
        walk(found.list, found.index, step);
    });
}

void RowFinder::walk(const CMPath& list, int index, int step)
{
    const int from = step > 0 ? index + 1 : std::max(0, index - pageSize);
    const int to = step > 0 ? index + pageSize : index - 1;
    if (to < from)
        return finish();
    if (const auto kept = m_kept.beside(list, index, step))
        return walkPage(list, kept->from, step, kept->page);
    fetch(list, from, to,
          [this, list, from, step](const Page& page) { walkPage(list, from, step, page); });
}

void RowFinder::walkPage(const CMPath& list, int from, int step, const Page& page)
{
    if (page.error.isSet()) {
        m_found.error = page.error;
        return finish();
    }
    const int size = page.rows.size();
    for (int k = 0; k < size; ++k) {
        const int i = step > 0 ? k : size - 1 - k;
        const QueueEntry entry{page.rows.at(i), QString(), list, from + i};
        if (entry.isPlayable())
            return finish(entry);
        if (isItem(entry.row))
            m_found.skipped.append(entry.row.title());
    }
    const bool isAtEnd = step > 0 ? size == 0 || from + size >= page.count : from == 0;
    if (isAtEnd)
        return finish();
    walk(list, step > 0 ? from + size - 1 : from, step);
}
