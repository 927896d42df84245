#include "settings/SettingsKeys.h"

#include <algorithm>
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
    QStringList choices = {};
};

TextRule anyText()
{
    return {"a text", [](const QString&) { return true; }};
}

TextRule matching(const QString& wanted, const QString& pattern)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern));
    return {wanted,
            [expression](const QString& text) { return expression.match(text).hasMatch(); }};
}

TextRule oneOf(const QStringList& words)
{
    TextRule rule{QStringLiteral("one of %1").arg(words.join(", ")),
                  [words](const QString& text) { return words.contains(text); }};
    rule.choices = words;
    return rule;
}

TextRule webAddress()
{
    return {"an http or https address without user, password or fragment", [](const QString& text) {
                const QUrl url(text, QUrl::StrictMode);
                return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
                       !url.hasFragment() && (url.scheme() == "http" || url.scheme() == "https");
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
SettingsKey text(const char* name, const char* meaning, Member member, const TextRule& rule)
{
    SettingsKey key{name, meaning, SettingsKey::Kind::Text, rule.wanted, rule.choices};
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
SettingsKey seconds(const char* name, const char* meaning, Member member)
{
    constexpr double longest = 24 * 60 * 60;
    SettingsKey key{name, meaning, SettingsKey::Kind::Number,
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
SettingsKey milliseconds(const char* name, const char* meaning, Member member)
{
    SettingsKey key{
        name, meaning, SettingsKey::Kind::Integer,
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
SettingsKey boolean(const char* name, const char* meaning, Member member)
{
    SettingsKey key{name, meaning, SettingsKey::Kind::Boolean, "true or false", {"true", "false"}};
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
    SettingsKey key{"server.listen", "Where the streamer listens; port 0 picks a free one.",
                    SettingsKey::Kind::Text, "ADDR:PORT, such as 127.0.0.1:8095 or [::1]:0"};
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

SettingsKey hostNames()
{
    SettingsKey key{"server.host_names",
                    "Further names under which clients reach the streamer; calls "
                    "through other names are refused.",
                    SettingsKey::Kind::TextList, "a list of host names without port"};
    key.store = [](Settings& settings, const QVariant& value) {
        const QStringList names = value.toStringList();
        if (value.type() != QVariant::StringList ||
            !std::all_of(names.begin(), names.end(), isIpv4OrHostName))
            return false;
        settings.server.hostNames = names;
        return true;
    };
    key.read = [](const Settings& settings) { return QVariant(settings.server.hostNames); };
    return key;
}

SettingsKey clientSecret()
{
    SettingsKey key{"tidal.oauth2.client_secret",
                    "The secret of your client id. It may also come from a file or "
                    "from a credential of the service manager.",
                    SettingsKey::Kind::Text, "a text"};
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
    const TextRule size =
        matching("WIDTHxHEIGHT, such as 320x320", "[1-9][0-9]{0,4}x[1-9][0-9]{0,4}");
    const TextRule notEmpty = matching("auto, null or a GStreamer sink description", ".*\\S.*");
    const TextRule country = matching("a country as two capital letters", "[A-Z]{2}");
    const auto withSlash = addressWithClosingSlash();
    const auto withoutSlash = addressWithoutClosingSlash();
    const auto address = webAddress();
    const auto levels = oneOf({"trace", "debug", "info", "warn", "error"});
    const auto qualities = oneOf({"LOW", "HIGH", "LOSSLESS", "HI_RES"});

    // clang-format off
    return {
        listenAddress(),
        hostNames(),
        text("server.web_dir", "A folder with the files of the page; empty: the built-in ones.",
             [](auto& s) -> auto& { return s.server.webDirectory; }, anyText()),
        text("log.level", "How much is logged.",
             [](auto& s) -> auto& { return s.log.level; }, levels),
        text("log.file", "The file that the log goes to; empty: stderr.",
             [](auto& s) -> auto& { return s.log.file; }, anyText()),
        seconds("deadlines.rows_s", "How long a request for rows may take before an error.",
                [](auto& s) -> auto& { return s.deadlines.rowsSeconds; }),
        seconds("deadlines.data_s", "The same for the data of a node.",
                [](auto& s) -> auto& { return s.deadlines.dataSeconds; }),
        seconds("deadlines.set_s", "The same for values that are set.",
                [](auto& s) -> auto& { return s.deadlines.setSeconds; }),
        text("player.output", "Where the sound goes; null plays in real time to nowhere.",
             [](auto& s) -> auto& { return s.player.output; }, notEmpty),
        boolean("player.mpris", "Whether media keys and desktop panels may drive the player.",
                [](auto& s) -> auto& { return s.player.mpris; }),
        text("tidal.api_url", "The address of the service's web API.",
             [](auto& s) -> auto& { return s.tidal.apiUrl; }, withoutSlash),
        text("tidal.country_code", "The country whose catalogue is asked for.",
             [](auto& s) -> auto& { return s.tidal.countryCode; }, country),
        text("tidal.image_url", "The address that pictures are read from.",
             [](auto& s) -> auto& { return s.tidal.imageUrl; }, withSlash),
        text("tidal.image_size", "The size of album covers and of other pictures.",
             [](auto& s) -> auto& { return s.tidal.imageSize; }, size),
        text("tidal.image_size_artist", "The size of pictures of artists.",
             [](auto& s) -> auto& { return s.tidal.imageSizeArtist; }, size),
        text("tidal.image_size_playlist", "The size of pictures of playlists.",
             [](auto& s) -> auto& { return s.tidal.imageSizePlaylist; }, size),
        text("tidal.image_size_genre", "The size of pictures of genres.",
             [](auto& s) -> auto& { return s.tidal.imageSizeGenre; }, size),
        text("tidal.image_size_mood", "The size of pictures of moods.",
             [](auto& s) -> auto& { return s.tidal.imageSizeMood; }, size),
        milliseconds("tidal.max_idle_time_ms", "How long a pause keeps the track's address.",
                     [](auto& s) -> auto& { return s.tidal.maxIdleTimeMs; }),
        text("tidal.sound_quality", "The quality that is asked for; the service may deliver less.",
             [](auto& s) -> auto& { return s.tidal.soundQuality; }, qualities),
        boolean("tidal.use_post_paywall", "Whole tracks, as subscribers have; false: previews.",
                [](auto& s) -> auto& { return s.tidal.usePostPaywall; }),
        text("tidal.oauth2.device_code_url", "Where a login asks for its code.",
             [](auto& s) -> auto& { return s.tidal.oauth2.deviceCodeUrl; }, address),
        text("tidal.oauth2.authorization_url", "The page where a person confirms a login.",
             [](auto& s) -> auto& { return s.tidal.oauth2.authorizationUrl; }, address),
        text("tidal.oauth2.token_url", "Where tokens are fetched and refreshed.",
             [](auto& s) -> auto& { return s.tidal.oauth2.tokenUrl; }, address),
        text("tidal.oauth2.client_id", "Your client id at the service; none is built in.",
             [](auto& s) -> auto& { return s.tidal.oauth2.clientId; }, anyText()),
        clientSecret(),
        text("tidal.oauth2.client_secret_file", "A file that holds the client secret.",
             [](auto& s) -> auto& { return s.tidal.oauth2.clientSecretFile; }, anyText()),
        text("tidal.oauth2.scope", "What a login asks permission for.",
             [](auto& s) -> auto& { return s.tidal.oauth2.scope; }, anyText()),
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
