#include "TidalListAnswer.h"
#include <limits>

namespace {
/// Whether the items stand one level deeper: the first one tells, by the key alone, since its item
/// may be null.
bool isFavorites(const KeloJson& items)
{
    bool isFirst = true;
    bool result = false;
    items.forEach([&](const KeloJson& item) {
        if (!item.isObject() || !isFirst)
            return;
        isFirst = false;
        result = item.contains("item");
    });
    return result;
}
} // namespace

TidalListAnswer::TidalListAnswer(const QByteArray& body, KeloError& error)
{
    const KeloJson answer = KeloJson::parse(body, &error);
    if (error.isSet())
        KELO_LOG("Tidal", WARN) << "Failed to parse list: " << error.message();
    m_total = totalOf(answer);
    m_items = answer.value("items");
    m_isWrapped = isFavorites(m_items);
}

int TidalListAnswer::totalOf(const KeloJson& answer)
{
    const qint64 total = answer.value("totalNumberOfItems").toInt64();
    return int(qBound<qint64>(0, total, std::numeric_limits<int>::max()));
}
