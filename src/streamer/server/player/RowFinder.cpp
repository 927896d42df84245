#include "RowFinder.h"

#include "ItemRoles.h"

#include <algorithm>
#include <kelo/CMRoot.h>

namespace {
constexpr int pageSize = 50;
constexpr int maxPages = 40;
const QString trackIdParam = QStringLiteral("trackId");

QList<KeloRoles> rolesOf(const QVariant& rows)
{
    QList<KeloRoles> result;
    const QVariantList list = rows.toList();
    result.reserve(list.size());
    for (const QVariant& row : list) {
        const QVariantList values = row.toList();
        KeloRoles roles;
        for (int i = 0; i < values.size() && i < itemRoles().size(); ++i)
            if (values.at(i).isValid())
                roles.insert(itemRoles().at(i), values.at(i));
        result.append(roles);
    }
    return result;
}

/// Lists in which the row at a path may stand: its path without one parameter, or one level up.
QList<CMPath> candidateLists(const CMPath& path)
{
    QList<CMPath> lists;
    const auto& params = path.params();
    for (auto it = params.begin(); it != params.end(); ++it) {
        CMPath list = path;
        list.removeParam(it.key());
        lists.append(list);
    }
    QStringList segments = path.splitBase();
    if (segments.size() > 1) {
        segments.removeLast();
        lists.append(CMPath(QLatin1Char('/') + segments.join(QLatin1Char('/')), params));
    }
    return lists;
}

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
    const CMGetRowsRequest request(list, from, to, itemRoles());
    CMRoot().request(request);
    const CMReply<KeloRowsRoles> reply = request.reply();
    reply.addWatcher(
        this,
        [this, reply, generation = m_generation, then] {
            if (generation != m_generation)
                return;
            Page page;
            page.error = reply.error();
            if (!page.error.isSet()) {
                const KeloRowsRoles rows = reply.value();
                page.rows = rolesOf(rows.rows());
                page.count = rows.rowsCount();
            }
            then(page);
        },
        Qt::QueuedConnection);
}

void RowFinder::find(const CMPath& path, Done done)
{
    cancel();
    m_done = std::move(done);
    const Match isRow = [path](const KeloRoles& row) { return row.path() == path; };
    if (!path.hasParam(trackIdParam)) {
        fetch(path, 0, pageSize - 1, [this, path](const Page& page) { onOwnRows(path, page); });
        return;
    }
    CMPath list = path;
    list.removeParam(trackIdParam);
    search({{list}, 0, isRow, [this, id = path.param(trackIdParam)](const QueueEntry& entry) {
                // Rows that stand in no list of their own, as a radio's do, name their track.
                const bool isListMissing = m_found.error.name() == CMError::NotFoundName();
                finish(entry.isEmpty() && isListMissing ? QueueEntry{{}, id, {}, -1} : entry);
            }});
}

void RowFinder::onOwnRows(const CMPath& path, const Page& page)
{
    if (!page.error.isSet()) {
        m_found.isList = true;
        return walkPage(path, 0, 1, page);
    }
    m_found.error = page.error;
    search({candidateLists(path), 0, [path](const KeloRoles& row) { return row.path() == path; },
            [this](const QueueEntry& entry) { finish(entry); }});
}

void RowFinder::search(Search search)
{
    if (search.lists.isEmpty())
        return search.then(QueueEntry());
    const CMPath list = search.lists.first();
    const int from = search.from;
    fetch(list, from, from + pageSize - 1, [this, search, list, from](const Page& page) {
        if (page.error.isSet() && !m_found.error.isSet())
            m_found.error = page.error;
        for (int i = 0; i < page.rows.size(); ++i)
            if (search.match(page.rows.at(i)))
                return search.then({page.rows.at(i), QString(), list, from + i});
        Search rest = search;
        rest.from = from + pageSize;
        if (page.error.isSet() || page.rows.isEmpty() || rest.from >= page.count) {
            rest.lists.removeFirst();
            rest.from = 0;
        }
        this->search(rest);
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
    search({lists, 0,
            [prePlay, id = entry.row.id()](const KeloRoles& row) {
                const CMPath own = row.mediaData().metaData().prePlayPath();
                return prePlay.isEmpty() ? !id.isEmpty() && row.id() == id : own == prePlay;
            },
            [this, step](const QueueEntry& found) {
                if (found.isEmpty())
                    return finish();
                walk(found.list, found.index, step);
            }});
}

void RowFinder::walk(const CMPath& list, int index, int step)
{
    const int from = step > 0 ? index + 1 : std::max(0, index - pageSize);
    const int to = step > 0 ? index + pageSize : index - 1;
    if (to < from)
        return finish();
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
