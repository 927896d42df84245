#include "PlayerCommand.h"
#include "PlayerEngine.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace {
constexpr double largestPosition = 1e12;
constexpr double largestIndex = 1e9;
constexpr int mostPaths = 500; ///< in one wish
constexpr int mostRows = 200;  ///< of the queue in one answer

PlayerCommand wrong(const QString& text)
{
    return {nullptr, CMError(CMError::BadRequestName(), TrString(text))};
}

/// A whole number from 0 to `largest`.
std::optional<qint64> wholeNumber(const QVariant& value, double largest)
{
    const int type = value.userType();
    const bool isNumber = type == QMetaType::Int || type == QMetaType::UInt ||
                          type == QMetaType::LongLong || type == QMetaType::ULongLong ||
                          type == QMetaType::Double;
    const double number = isNumber ? value.toDouble() : -1;
    if (!(number >= 0 && number <= largest) || std::floor(number) != number)
        return std::nullopt;
    return qint64(number);
}

const QString placeFault =
    QStringLiteral("\"list\" and \"index\" must be a list's path and the number of a row in it");

/// Where a client saw a row, if it says so.
bool readPlace(const QVariantHash& arguments, RowFinder::Place* place)
{
    const QVariant list = arguments.value(QStringLiteral("list"));
    if (!list.isValid())
        return true;
    bool isPath = false;
    place->list = CMPath::fromEncoded(list.toString(), &isPath);
    const auto index = wholeNumber(arguments.value(QStringLiteral("index")), largestIndex);
    place->index = int(index.value_or(0));
    return list.userType() == QMetaType::QString && isPath && !place->list.base().isEmpty() &&
           index;
}

bool isTrackId(const QString& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

PlayerCommand parsePlay(const QVariantHash& arguments)
{
    const QVariant value = arguments.value(QStringLiteral("path"));
    const QString text = value.toString();
    if (value.userType() != QMetaType::QString || text.isEmpty())
        return wrong(
            QStringLiteral("\"path\" is missing: a row's path, a list's path or a track id"));
    if (isTrackId(text))
        return {[text](PlayerEngine& engine, const auto& reply) { engine.playId(text, reply); },
                {}};
    bool isPath = false;
    const CMPath path = CMPath::fromEncoded(text, &isPath);
    if (!isPath || path.base().isEmpty())
        return wrong(QStringLiteral("\"path\" is not well-formed"));
    RowFinder::Place place;
    if (!readPlace(arguments, &place))
        return wrong(placeFault);
    return {
        [path, place](PlayerEngine& engine, const auto& reply) { engine.play(path, place, reply); },
        {}};
}

/// A command that takes a whole number from 0 to `largest`.
PlayerCommand parseNumber(const QVariantHash& arguments, const QString& key, double largest,
                          void (PlayerEngine::*run)(qint64, const PlayerEngine::Reply&))
{
    if (!arguments.contains(key))
        return wrong(QStringLiteral("\"%1\" is missing").arg(key));
    const auto number = wholeNumber(arguments.value(key), largest);
    if (!number)
        return wrong(QStringLiteral("\"%1\" must be a whole number from 0 to %2")
                         .arg(key)
                         .arg(largest, 0, 'f', 0));
    return {
        [run, number](PlayerEngine& engine, const auto& reply) { (engine.*run)(*number, reply); },
        {}};
}

PlayerCommand parseShuffle(const QVariantHash& arguments)
{
    const QVariant on = arguments.value(QStringLiteral("on"));
    if (on.userType() != QMetaType::Bool)
        return wrong(QStringLiteral("\"on\" must be true or false"));
    return {[on = on.toBool()](PlayerEngine& engine, const auto& reply) {
                engine.setShuffled(on, reply);
            },
            {}};
}

PlayerCommand parseRepeat(const QVariantHash& arguments)
{
    const auto mode = PlayQueue::repeatOf(arguments.value(QStringLiteral("mode")).toString());
    if (!mode)
        return wrong(QStringLiteral("\"mode\" must be off, all or one"));
    return {
        [mode = *mode](PlayerEngine& engine, const auto& reply) { engine.setRepeat(mode, reply); },
        {}};
}

/// The paths to add; nothing when they are malformed.
std::optional<QList<CMPath>> readPaths(const QVariantHash& arguments)
{
    const QVariant path = arguments.value(QStringLiteral("path"));
    const QVariant several = arguments.value(QStringLiteral("paths"));
    const QVariantList texts = path.isValid() ? QVariantList{path} : several.toList();
    if (path.isValid() == several.isValid() || texts.isEmpty() || texts.size() > mostPaths)
        return std::nullopt;
    QList<CMPath> paths;
    for (const QVariant& text : texts) {
        bool isPath = false;
        const QString encoded = text.toString();
        CMPath one = CMPath::fromEncoded(encoded, &isPath);
        if (text.userType() != QMetaType::QString || encoded.isEmpty())
            return std::nullopt;
        if (isTrackId(encoded))
            one = CMPath(QString(), {{KeloRoles::Id(), encoded}});
        else if (!isPath || one.base().isEmpty())
            return std::nullopt;
        paths.append(one);
    }
    return paths;
}

PlayerCommand parseAdd(const QVariantHash& arguments)
{
    QueueEdit edit;
    edit.action = QueueEdit::Add;
    const auto paths = readPaths(arguments);
    if (!paths)
        return wrong(QStringLiteral("\"path\", or up to %1 \"paths\", must be rows' paths, lists' "
                                    "paths or track ids")
                         .arg(mostPaths));
    edit.paths = *paths;
    if (!readPlace(arguments, &edit.place))
        return wrong(placeFault);
    const QString at = arguments.value(QStringLiteral("at"), QStringLiteral("end")).toString();
    edit.isNext = at == QLatin1String("next");
    if (!edit.isNext && at != QLatin1String("end"))
        return wrong(QStringLiteral("\"at\" must be next or end"));
    return {[edit](PlayerEngine& engine, const auto& reply) { engine.editQueue(edit, reply); }, {}};
}

PlayerCommand parseQueue(const QVariantHash& arguments)
{
    static const QHash<QString, QueueEdit::Action> actions{
        {QStringLiteral("add"), QueueEdit::Add},
        {QStringLiteral("move"), QueueEdit::Move},
        {QStringLiteral("remove"), QueueEdit::Remove},
        {QStringLiteral("jump"), QueueEdit::Jump},
        {QStringLiteral("clear"), QueueEdit::Clear}};
    const QString name = arguments.value(QStringLiteral("action")).toString();
    if (!actions.contains(name))
        return wrong(QStringLiteral("\"action\" must be add, move, remove, jump or clear"));
    QueueEdit edit;
    edit.action = actions.value(name);
    if (edit.action == QueueEdit::Add)
        return parseAdd(arguments);
    const auto read = [&](const char* key, bool isWanted, double largest, auto* number) {
        const QVariant value = arguments.value(QLatin1String(key));
        const auto read = wholeNumber(value, largest);
        if (read)
            *number = std::remove_reference_t<decltype(*number)>(*read);
        return read || (!isWanted && !value.isValid());
    };
    const bool hasPosition = edit.action != QueueEdit::Clear;
    if (hasPosition && !read("version", true, 9e15, &edit.version))
        return wrong(QStringLiteral("\"version\" must be that of the queue which was read"));
    if (hasPosition && !read("position", true, largestIndex, &edit.position))
        return wrong(QStringLiteral("\"position\" must be the number of a row of the queue"));
    if (!read("to", edit.action == QueueEdit::Move, largestIndex, &edit.to))
        return wrong(QStringLiteral("\"to\" must be the number of a row of the queue"));
    if (!read("count", false, largestIndex, &edit.count))
        return wrong(QStringLiteral("\"count\" must be a number of rows"));
    return {[edit](PlayerEngine& engine, const auto& reply) { engine.editQueue(edit, reply); }, {}};
}

PlayerCommand parseQueueRows(const QVariantHash& arguments)
{
    const int from = arguments.value(QStringLiteral("from")).toInt();
    const int to = arguments.value(QStringLiteral("to")).toInt();
    if (from < 0 || to < from)
        return wrong(QStringLiteral("from, to: wanted the first and the last number of rows"));
    return {[from, to = std::min(to, from + mostRows - 1)](
                PlayerEngine& engine, const auto& reply) { engine.readQueue(from, to, reply); },
            {}};
}
} // namespace

PlayerCommand PlayerCommand::parse(const QString& name, const QVariantHash& arguments)
{
    using Plain = void (PlayerEngine::*)(const PlayerEngine::Reply&);
    static const QHash<QString, Plain> plain{{QStringLiteral("pause"), &PlayerEngine::pause},
                                             {QStringLiteral("resume"), &PlayerEngine::resume},
                                             {QStringLiteral("stop"), &PlayerEngine::stop},
                                             {QStringLiteral("next"), &PlayerEngine::next},
                                             {QStringLiteral("previous"), &PlayerEngine::previous}};
    if (const Plain run = plain.value(name))
        return {[run](PlayerEngine& engine, const auto& reply) { (engine.*run)(reply); }, {}};
    if (name == QLatin1String("play"))
        return parsePlay(arguments);
    if (name == QLatin1String("seek"))
        return parseNumber(arguments, QStringLiteral("positionMs"), largestPosition,
                           &PlayerEngine::seek);
    if (name == QLatin1String("volume"))
        return parseNumber(arguments, QStringLiteral("percent"), 100, &PlayerEngine::setVolume);
    using Parse = PlayerCommand (*)(const QVariantHash&);
    static const QHash<QString, Parse> others{{QStringLiteral("shuffle"), &parseShuffle},
                                              {QStringLiteral("repeat"), &parseRepeat},
                                              {QStringLiteral("queue"), &parseQueue},
                                              {QStringLiteral("queueRows"), &parseQueueRows}};
    if (const Parse parse = others.value(name))
        return parse(arguments);
    return wrong(QStringLiteral("\"%1\" is no command of the player").arg(name));
}
