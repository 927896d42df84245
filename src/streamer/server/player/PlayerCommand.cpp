#include "PlayerCommand.h"
#include "PlayerEngine.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace {
constexpr double largestPosition = 1e12;
constexpr double largestIndex = 1e9;

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

PlayerCommand parsePlay(const QVariantHash& arguments)
{
    const QVariant value = arguments.value(QStringLiteral("path"));
    const QString text = value.toString();
    if (value.userType() != QMetaType::QString || text.isEmpty())
        return wrong(
            QStringLiteral("\"path\" is missing: a row's path, a list's path or a track id"));
    const bool isId = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
    if (isId)
        return {[text](PlayerEngine& engine, const auto& reply) { engine.playId(text, reply); },
                {}};
    bool isPath = false;
    const CMPath path = CMPath::fromEncoded(text, &isPath);
    if (!isPath || path.base().isEmpty())
        return wrong(QStringLiteral("\"path\" is not well-formed"));
    RowFinder::Place place;
    const QVariant list = arguments.value(QStringLiteral("list"));
    if (list.isValid()) {
        place.list = CMPath::fromEncoded(list.toString(), &isPath);
        const auto index = wholeNumber(arguments.value(QStringLiteral("index")), largestIndex);
        place.index = int(index.value_or(0));
        if (list.userType() != QMetaType::QString || !isPath || place.list.base().isEmpty() ||
            !index)
            return wrong(QStringLiteral("\"list\" and \"index\" must be a list's path and the "
                                        "number of a row in it"));
    }
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
    return wrong(QStringLiteral("\"%1\" is no command of the player").arg(name));
}
