#include "settings/SettingsKeys.h"

#include <limits>
#include <QRegularExpression>
#include <QUrl>

namespace {

/// What a text value has to be, and how it is brought into its stored form.
struct TextRule
{
    QString wanted;
    std::function<bool(const QString&)> accepts;
    std::function<QString(const QString&)> tidy = [](const QString& text) { return text; };
};

TextRule anyText()
{
    return {QStringLiteral("a text"), [](const QString&) { return true; }};
}

TextRule matching(const QString& wanted, const QString& pattern)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern));
    return {wanted,
            [expression](const QString& text) { return expression.match(text).hasMatch(); }};
}

TextRule oneOf(const QStringList& words)
{
    return {QStringLiteral("one of %1").arg(words.join(QStringLiteral(", "))),
            [words](const QString& text) { return words.contains(text); }};
}

TextRule webAddress()
{
    return {QStringLiteral("an http or https address without user, password or fragment"),
            [](const QString& text) {
                const QUrl url(text, QUrl::StrictMode);
                return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
                       !url.hasFragment() &&
                       (url.scheme() == QLatin1String("http") ||
                        url.scheme() == QLatin1String("https"));
            }};
}

/// Request paths begin with a slash, so the address they are appended to ends without one.
TextRule addressWithoutClosingSlash()
{
    TextRule rule = webAddress();
    rule.tidy = [](QString text) {
        while (text.endsWith('/'))
            text.chop(1);
        return text;
    };
    return rule;
}

/// Picture paths begin without a slash, so the address they are appended to ends with one.
TextRule addressWithClosingSlash()
{
    TextRule rule = webAddress();
    rule.tidy = [](const QString& text) { return text.endsWith('/') ? text : text + '/'; };
    return rule;
}

template <typename Member>
SettingsKey text(const char* name, Member member, const TextRule& rule)
{
    SettingsKey key{QString::fromLatin1(name), SettingsKey::Kind::Text, rule.wanted};
    key.store = [member, rule](Settings& settings, const QVariant& value) {
        if (value.type() != QVariant::String || !rule.accepts(value.toString()))
            return false;
        member(settings) = rule.tidy(value.toString());
        return true;
    };
    key.read = [member](const Settings& settings) { return QVariant(member(settings)); };
    return key;
}

template <typename Member>
SettingsKey seconds(const char* name, Member member)
{
    constexpr double longest = 24 * 60 * 60;
    SettingsKey key{QString::fromLatin1(name), SettingsKey::Kind::Number,
                    QStringLiteral("seconds above 0, at most %1").arg(longest)};
    key.store = [member](Settings& settings, const QVariant& value) {
        const bool isNumber =
            value.type() == QVariant::LongLong || value.type() == QVariant::Double;
        const double number = isNumber ? value.toDouble() : 0;
        if (!(number > 0 && number <= longest)) // also refuses "not a number"
            return false;
        member(settings) = number;
        return true;
    };
    key.read = [member](const Settings& settings) { return QVariant(member(settings)); };
    return key;
}

template <typename Member>
SettingsKey milliseconds(const char* name, Member member)
{
    SettingsKey key{
        QString::fromLatin1(name), SettingsKey::Kind::Integer,
        QStringLiteral("whole milliseconds, 0 to %1").arg(std::numeric_limits<int>::max())};
    key.store = [member](Settings& settings, const QVariant& value) {
        const qlonglong number = value.type() == QVariant::LongLong ? value.toLongLong() : -1;
        if (number < 0 || number > std::numeric_limits<int>::max())
            return false;
        member(settings) = static_cast<int>(number);
        return true;
    };
    key.read = [member](const Settings& settings) { return QVariant(member(settings)); };
    return key;
}

template <typename Member>
SettingsKey boolean(const char* name, Member member)
{
    SettingsKey key{QString::fromLatin1(name), SettingsKey::Kind::Boolean,
                    QStringLiteral("true or false")};
    key.store = [member](Settings& settings, const QVariant& value) {
        if (value.type() != QVariant::Bool)
            return false;
        member(settings) = value.toBool();
        return true;
    };
    key.read = [member](const Settings& settings) { return QVariant(member(settings)); };
    return key;
}

SettingsKey listenAddress()
{
    SettingsKey key{QStringLiteral("server.listen"), SettingsKey::Kind::Text,
                    QStringLiteral("ADDR:PORT, such as 127.0.0.1:8095 or [::1]:0")};
    key.store = [](Settings& settings, const QVariant& value) {
        const auto address = value.type() == QVariant::String
                                 ? ListenAddress::parse(value.toString())
                                 : std::nullopt;
        if (address)
            settings.server.listen = *address;
        return address.has_value();
    };
    key.read = [](const Settings& settings) { return QVariant(settings.server.listen.toString()); };
    return key;
}

SettingsKey clientSecret()
{
    SettingsKey key{QStringLiteral("tidal.oauth2.client_secret"), SettingsKey::Kind::Text,
                    QStringLiteral("a text")};
    key.isSecret = true;
    key.store = [](Settings& settings, const QVariant& value) {
        if (value.type() != QVariant::String)
            return false;
        settings.tidal.oauth2.clientSecret = Secret(value.toString());
        return true;
    };
    key.read = [](const Settings& settings) {
        return QVariant(settings.tidal.oauth2.clientSecret.masked());
    };
    return key;
}

std::vector<SettingsKey> makeKeys()
{
    const TextRule size = matching(QStringLiteral("WIDTHxHEIGHT, such as 320x320"),
                                   QStringLiteral("[1-9][0-9]{0,4}x[1-9][0-9]{0,4}"));
    const TextRule notEmpty = matching(QStringLiteral("auto, null or a GStreamer sink description"),
                                       QStringLiteral(".*\\S.*"));
    const TextRule country =
        matching(QStringLiteral("a country as two capital letters"), QStringLiteral("[A-Z]{2}"));
    const auto withSlash = addressWithClosingSlash();
    const auto withoutSlash = addressWithoutClosingSlash();
    const auto address = webAddress();
    const auto levels = oneOf({"trace", "debug", "info", "warn", "error"});
    const auto qualities = oneOf({"LOW", "HIGH", "LOSSLESS", "HI_RES"});

    // clang-format off
    return {
        listenAddress(),
        text("server.web_dir", [](auto& s) -> auto& { return s.server.webDirectory; }, anyText()),
        text("log.level", [](auto& s) -> auto& { return s.log.level; }, levels),
        text("log.file", [](auto& s) -> auto& { return s.log.file; }, anyText()),
        seconds("deadlines.rows_s", [](auto& s) -> auto& { return s.deadlines.rowsSeconds; }),
        seconds("deadlines.data_s", [](auto& s) -> auto& { return s.deadlines.dataSeconds; }),
        seconds("deadlines.set_s", [](auto& s) -> auto& { return s.deadlines.setSeconds; }),
        text("player.output", [](auto& s) -> auto& { return s.player.output; }, notEmpty),
        text("tidal.api_url", [](auto& s) -> auto& { return s.tidal.apiUrl; }, withoutSlash),
        text("tidal.country_code", [](auto& s) -> auto& { return s.tidal.countryCode; }, country),
        text("tidal.image_url", [](auto& s) -> auto& { return s.tidal.imageUrl; }, withSlash),
        text("tidal.image_size", [](auto& s) -> auto& { return s.tidal.imageSize; }, size),
        text("tidal.image_size_artist", [](auto& s) -> auto& { return s.tidal.imageSizeArtist; }, size),
        text("tidal.image_size_playlist", [](auto& s) -> auto& { return s.tidal.imageSizePlaylist; }, size),
        text("tidal.image_size_genre", [](auto& s) -> auto& { return s.tidal.imageSizeGenre; }, size),
        text("tidal.image_size_mood", [](auto& s) -> auto& { return s.tidal.imageSizeMood; }, size),
        milliseconds("tidal.max_idle_time_ms", [](auto& s) -> auto& { return s.tidal.maxIdleTimeMs; }),
        text("tidal.sound_quality", [](auto& s) -> auto& { return s.tidal.soundQuality; }, qualities),
        boolean("tidal.use_post_paywall", [](auto& s) -> auto& { return s.tidal.usePostPaywall; }),
        text("tidal.oauth2.device_code_url", [](auto& s) -> auto& { return s.tidal.oauth2.deviceCodeUrl; }, address),
        text("tidal.oauth2.authorization_url", [](auto& s) -> auto& { return s.tidal.oauth2.authorizationUrl; }, address),
        text("tidal.oauth2.token_url", [](auto& s) -> auto& { return s.tidal.oauth2.tokenUrl; }, address),
        text("tidal.oauth2.client_id", [](auto& s) -> auto& { return s.tidal.oauth2.clientId; }, anyText()),
        clientSecret(),
        text("tidal.oauth2.client_secret_file", [](auto& s) -> auto& { return s.tidal.oauth2.clientSecretFile; }, anyText()),
        text("tidal.oauth2.scope", [](auto& s) -> auto& { return s.tidal.oauth2.scope; }, anyText()),
    };
    // clang-format on
}

} // namespace

const std::vector<SettingsKey>& settingsKeys()
{
    static const std::vector<SettingsKey> keys = makeKeys();
    return keys;
}

const SettingsKey* findSettingsKey(const QString& name)
{
    for (const SettingsKey& key : settingsKeys()) {
        if (key.name == name)
            return &key;
    }
    return nullptr;
}

QStringList settingsSections()
{
    QStringList sections;
    for (const SettingsKey& key : settingsKeys()) {
        if (!sections.contains(key.section()))
            sections.append(key.section());
    }
    return sections;
}
