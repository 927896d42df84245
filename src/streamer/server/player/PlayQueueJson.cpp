// The part of PlayQueue that is kept over restarts.
#include "PlayQueue.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {
constexpr qint64 largestVersion = 1LL << 53;
const QString listKey = QStringLiteral("list");
const QString titleKey = QStringLiteral("title");
const QString rowKey = QStringLiteral("row");
const QString idKey = QStringLiteral("id");
const QString indexKey = QStringLiteral("index");
const QString countKey = QStringLiteral("count");

/// A whole number in a JSON array or object; the limits are the smallest and the largest.
bool readNumber(const QJsonValue& value, qint64 smallest, qint64 largest, qint64* number)
{
    const double read = value.toDouble(qQNaN());
    if (!(read >= double(smallest) && read <= double(largest)))
        return false;
    *number = qint64(read);
    return double(*number) == read;
}

/// Reads an array of arrays of so many numbers.
bool readNumbers(const QJsonValue& value, size_t most, int size, std::vector<QVector<qint64>>* all)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray() || size_t(array.size()) > most)
        return false;
    for (const QJsonValue& one : array) {
        QVector<qint64> numbers(size);
        const QJsonArray given = one.toArray();
        for (int i = 0; i < size; ++i) {
            if (!readNumber(given.at(i), -1, largestVersion, &numbers[i]))
                return false;
        }
        all->push_back(numbers);
    }
    return true;
}

QJsonArray arrayOf(std::initializer_list<qint64> numbers)
{
    QJsonArray array;
    for (const qint64 number : numbers)
        array.append(number);
    return array;
}
} // namespace

QJsonObject PlayQueue::toJson() const
{
    PlayQueue all = *this;
    all.m_sweepAt = 0;
    all.sweep();
    QJsonArray origins;
    for (const Origin& origin : all.m_origins) {
        QJsonObject json{{listKey, origin.list.toEncoded()},
                         {titleKey, origin.title.source()},
                         {indexKey, origin.index},
                         {countKey, origin.count}};
        if (!origin.row.isEmpty())
            json.insert(rowKey, QJsonDocument::fromJson(origin.row).object());
        if (!origin.id.isEmpty())
            json.insert(idKey, origin.id);
        origins.append(json);
    }
    QJsonArray upcoming; // rows of a list that follow each other are one entry
    for (size_t i = 0, end = 0; i < all.m_upcoming.size(); i = end) {
        const Slot first = all.m_upcoming[i];
        for (end = i + 1; end < all.m_upcoming.size(); ++end) {
            if (all.m_upcoming[end] != Slot{first.origin, first.index + int(end - i)})
                break;
        }
        upcoming.append(arrayOf({first.origin, first.index, qint64(end - i)}));
    }
    const auto ofPlayed = [](const Played& one) {
        return arrayOf({one.slot.origin, one.slot.index, qint64(one.key)});
    };
    QJsonArray history;
    for (const Played& played : all.m_history)
        history.append(ofPlayed(played));
    QJsonArray played;
    for (const Credit& credit : all.m_played)
        played.append(arrayOf({credit.index, qint64(credit.key)}));
    return {{QStringLiteral("queueVersion"), qint64(m_version)},
            {QStringLiteral("shuffle"), m_isShuffled},
            {QStringLiteral("repeat"), nameOf(m_repeat)},
            {QStringLiteral("origins"), origins},
            {QStringLiteral("source"), all.m_source},
            {countKey, m_count},
            {QStringLiteral("queued"), m_queued},
            {QStringLiteral("upcoming"), upcoming},
            {QStringLiteral("present"), ofPlayed(all.m_present)},
            {QStringLiteral("anchor"), arrayOf({m_anchor.index, qint64(m_anchor.key)})},
            {QStringLiteral("isAnchorLost"), m_isAnchorLost},
            {QStringLiteral("history"), history},
            {QStringLiteral("played"), played}};
}

bool PlayQueue::readOrigins(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray() || array.size() > 2 * (mostKept + mostQueued))
        return false;
    for (const QJsonValue& one : array) {
        const QJsonObject json = one.toObject();
        Origin origin;
        bool isPath = false;
        qint64 index = -1;
        qint64 count = -1;
        origin.list = CMPath::fromEncoded(json.value(listKey).toString(), &isPath);
        origin.title = json.value(titleKey).toString();
        origin.id = json.value(idKey).toString();
        const QJsonObject row = json.value(rowKey).toObject();
        if (!row.isEmpty())
            origin.row = QJsonDocument(row).toJson(QJsonDocument::Compact);
        if (!isPath || !readNumber(json.value(indexKey), -1, INT_MAX, &index) ||
            !readNumber(json.value(countKey), -1, INT_MAX, &count) ||
            (origin.isList() && origin.list.base().isEmpty()))
            return false;
        origin.digest = qHash(origin.row) ^ qHash(origin.id);
        origin.index = int(index);
        origin.count = int(count);
        addOrigin(origin);
    }
    return true;
}

bool PlayQueue::readSlots(const QJsonObject& json)
{
    const auto isSlot = [this](const QVector<qint64>& numbers) {
        return numbers[0] < qint64(m_origins.size()) && numbers[1] <= INT_MAX - mostOfList;
    };
    const auto played = [](const QVector<qint64>& numbers) {
        return Played{{qint32(numbers[0]), qint32(numbers[1])}, quint64(numbers[2])};
    };
    std::vector<QVector<qint64>> upcoming, history, credits, present, anchor;
    const QJsonArray presents{json.value(QStringLiteral("present"))};
    const QJsonArray anchors{json.value(QStringLiteral("anchor"))};
    constexpr size_t most = mostQueued + mostOfList + mostHistory;
    if (!readNumbers(json.value(QStringLiteral("upcoming")), most, 3, &upcoming) ||
        !readNumbers(json.value(QStringLiteral("history")), mostHistory + 1, 3, &history) ||
        !readNumbers(json.value(QStringLiteral("played")), mostOfList, 2, &credits) ||
        !readNumbers(presents, 1, 3, &present) || !readNumbers(anchors, 1, 2, &anchor))
        return false;
    for (const QVector<qint64>& run : upcoming) {
        if (!isSlot(run) || run[0] < 0 || run[1] < 0 || run[2] < 1 ||
            m_upcoming.size() + size_t(run[2]) > most)
            return false;
        for (qint64 i = 0; i < run[2]; ++i)
            m_upcoming.push_back({qint32(run[0]), qint32(run[1] + i)});
    }
    for (const QVector<qint64>& one : history) {
        if (!isSlot(one) || one[0] < 0)
            return false;
        m_history.push_back(played(one));
    }
    for (const QVector<qint64>& one : credits)
        m_played.push_back({quint64(one[1]), qint32(std::min<qint64>(one[0], INT_MAX))});
    if (!isSlot(present[0]))
        return false;
    m_present = played(present[0]);
    m_anchor = {quint64(anchor[0][1]), qint32(std::min<qint64>(anchor[0][0], INT_MAX / 2))};
    return true;
}

std::optional<PlayQueue> PlayQueue::fromJson(const QJsonObject& json)
{
    PlayQueue queue;
    qint64 version = 0;
    qint64 source = -1;
    qint64 count = -1;
    qint64 queued = 0;
    const auto repeat = repeatOf(json.value(QStringLiteral("repeat")).toString());
    const bool isRead =
        repeat && queue.readOrigins(json.value(QStringLiteral("origins"))) &&
        queue.readSlots(json) &&
        readNumber(json.value(QStringLiteral("queueVersion")), 0, largestVersion, &version) &&
        readNumber(json.value(QStringLiteral("source")), -1, qint64(queue.m_origins.size()) - 1,
                   &source) &&
        readNumber(json.value(countKey), -1, INT_MAX, &count) &&
        readNumber(json.value(QStringLiteral("queued")), 0,
                   std::min<qint64>(queue.size(), mostQueued + qint64(mostHistory)), &queued);
    if (!isRead || (source >= 0 && !queue.m_origins[size_t(source)].isList()))
        return std::nullopt;
    queue.m_source = qint32(source);
    queue.m_count = int(count);
    queue.m_queued = int(queued);
    queue.m_version = quint64(version);
    queue.m_repeat = *repeat;
    queue.m_isShuffled = json.value(QStringLiteral("shuffle")).toBool();
    queue.m_isAnchorLost = json.value(QStringLiteral("isAnchorLost")).toBool();
    return queue;
}
