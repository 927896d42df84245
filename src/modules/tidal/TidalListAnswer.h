#pragma once
#include <kelo/KeloJson.h>
#include <kelo/KeloLog.h>

/// A page of a list as the service answers it: its total and its items, favourites unwrapped. A
/// view of the parsed body, made for one answer on the worker's thread. It makes no rows.
class TidalListAnswer
{
public:
    /// A body that does not parse is a list without items; why is said in `error` and logged.
    TidalListAnswer(const QByteArray& body, KeloError& error);

    /// The total that an answer tells, kept within what a rows count can be.
    static int totalOf(const KeloJson& answer);

    int total() const { return m_total; }
    /// Upper limit of the number of items.
    int size() const { return m_items.size(); }

    /// Calls visit(KeloJson item, int position) for each item that is an object.
    template <class Visit>
    void forEachItem(Visit visit) const
    {
        int position = -1;
        m_items.forEach([&](const KeloJson& element) {
            ++position;
            const KeloJson item = m_isWrapped ? element.value("item") : element;
            if (item.isObject())
                visit(item, position);
            else
                KELO_LOG("Tidal", WARN) << "Skipping item " << position << ", it is not an object";
        });
    }

private:
    KeloJson m_items;
    int m_total = 0;
    bool m_isWrapped = false; ///< the items stand one level deeper, as favourites do
};
