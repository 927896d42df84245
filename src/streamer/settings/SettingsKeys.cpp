#include "settings/SettingsKeys.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <QRegularExpression>
#include <QUrl>

namespace {

using Kind = SettingsKey::Kind;

/// What the values of a key have to be.
template <typename T>
struct Rule
{
    Kind kind;
    QString wanted;
    /// Gets a value of the kind. What is stored; nothing when it is not wanted.
    std::function<std::optional<T>(const QVariant&)> take;
    QStringList choices = {};
};

template <typename T>
std::optional<T> onlyIf(bool isWanted, const T& value)
{
    return isWanted ? std::make_optional(value) : std::nullopt;
}

/// Texts that \p accepts lets pass.
template <typename Accepts>
Rule<QString> textThat(const QString& wanted, Accepts accepts)
{
    return {Kind::Text, wanted, [accepts](const QVariant& value) {
                return onlyIf(accepts(value.toString()), value.toString());
            }};
}

Rule<QString> anyText()
{
    return textThat("a text", [](const QString&) { return true; });
}

Rule<QString> matching(const QString& wanted, const QString& pattern)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern));
    return textThat(
        wanted, [expression](const QString& text) { return expression.match(text).hasMatch(); });
}

Rule<QString> oneOf(const QStringList& words)
{
    Rule<QString> rule = textThat("one of " + words.join(", "),
                                  [words](const QString& text) { return words.contains(text); });
    rule.choices = words;
    return rule;
}

Rule<QString> webAddress()
{
    return textThat(
        "an http or https address without user, password or fragment", [](const QString& text) {
            const QUrl url(text, QUrl::StrictMode);
            return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
                   !url.hasFragment() && (url.scheme() == "http" || url.scheme() == "https");
        });
}

/// The rule's texts, brought into their stored form.
Rule<QString> tidied(Rule<QString> rule, const std::function<QString(QString)>& tidy)
{
    rule.take = [take = rule.take, tidy](const QVariant& value) {
        const std::optional<QString> text = take(value);
        return text ? tidy(*text) : text;
    };
    return rule;
}

Rule<double> seconds()
{
    constexpr double longest = 24 * 60 * 60;
    return {Kind::Number, QStringLiteral("seconds above 0, at most %1").arg(longest),
            [](const QVariant& value) {
                const double number = value.toDouble();
                return onlyIf(number > 0 && number <= longest, number); // no "not a number" either
            }};
}

Rule<int> milliseconds()
{
    constexpr int longest = std::numeric_limits<int>::max();
    return {Kind::Integer, QStringLiteral("whole milliseconds, 0 to %1").arg(longest),
            [](const QVariant& value) {
                const qlonglong number = value.toLongLong();
                return onlyIf(number >= 0 && number <= longest, static_cast<int>(number));
            }};
}

Rule<bool> boolean()
{
    return {Kind::Boolean,
            "true or false",
            [](const QVariant& value) { return value.toBool(); },
            {"true", "false"}};
}

Rule<ListenAddress> listenAddress()
{
    return {Kind::Text, "ADDR:PORT, such as 127.0.0.1:8095 or [::1]:0",
            [](const QVariant& value) { return ListenAddress::parse(value.toString()); }};
}

Rule<QStringList> hostNames()
{
    return {Kind::TextList, "a list of host names without port", [](const QVariant& value) {
                const QStringList names = value.toStringList();
                return onlyIf(std::all_of(names.begin(), names.end(), isIpv4OrHostName), names);
            }};
}

Rule<QStringList> fileNames()
{
    return {Kind::TextList, "a list of files", [](const QVariant& value) {
                const QStringList files = value.toStringList();
                return onlyIf(!files.contains(QString()), files);
            }};
}

Rule<Secret> secret()
{
    return {Kind::Text, "a text", [](const QVariant& value) { return Secret(value.toString()); }};
}

/// A whole number is a number, too.
bool isOf(Kind kind, QVariant::Type type)
{
    return kind == static_cast<Kind>(type) || (kind == Kind::Number && type == QVariant::LongLong);
}

QVariant forPeople(const Secret& secret)
{
    return secret.masked();
}

QVariant forPeople(const ListenAddress& address)
{
    return address.toString();
}

template <typename T>
QVariant forPeople(const T& value)
{
    return value;
}

/// \p member gives the place of the value.
template <typename Member, typename T>
SettingsKey key(const QString& name, const QString& meaning, Member member, const Rule<T>& rule)
{
    return {name,
            meaning,
            rule.kind,
            rule.wanted,
            rule.choices,
            std::is_same_v<T, Secret>,
            [member, rule](Settings& settings, const QVariant& value) {
                const auto taken = isOf(rule.kind, value.type()) ? rule.take(value) : std::nullopt;
                if (taken)
                    member(settings) = *taken;
                return taken.has_value();
            },
            [member](const Settings& settings) { return forPeople(member(settings)); }};
}

// clang-format off
std::vector<SettingsKey> streamerKeys()
{
    const auto output = matching("auto, null or a GStreamer sink description", ".*\\S.*");
    const auto levels = oneOf({"trace", "debug", "info", "warn", "error"});
    return {
        key("server.listen", "Where the streamer listens; port 0 picks a free one.",
            [](auto& s) -> auto& { return s.server.listen; }, listenAddress()),
        key("server.host_names", "Further names under which clients reach the streamer; calls "
            "through other names are refused.",
            [](auto& s) -> auto& { return s.server.hostNames; }, hostNames()),
        key("server.web_dir", "A folder with the files of the page; empty: the built-in ones.",
            [](auto& s) -> auto& { return s.server.webDirectory; }, anyText()),
        key("log.level", "How much is logged.",
            [](auto& s) -> auto& { return s.log.level; }, levels),
        key("log.file", "The file that the log goes to; empty: stderr.",
            [](auto& s) -> auto& { return s.log.file; }, anyText()),
        key("deadlines.rows_s", "How long a request for rows may take before an error.",
            [](auto& s) -> auto& { return s.deadlines.rowsSeconds; }, seconds()),
        key("deadlines.data_s", "The same for the data of a node.",
            [](auto& s) -> auto& { return s.deadlines.dataSeconds; }, seconds()),
        key("deadlines.set_s", "The same for values that are set.",
            [](auto& s) -> auto& { return s.deadlines.setSeconds; }, seconds()),
        key("deadlines.module_s", "How long a module may take to start.",
            [](auto& s) -> auto& { return s.deadlines.moduleSeconds; }, seconds()),
        key("player.output", "Where the sound goes; null plays in real time to nowhere.",
            [](auto& s) -> auto& { return s.player.output; }, output),
        key("player.mpris", "Whether media keys and desktop panels may drive the player.",
            [](auto& s) -> auto& { return s.player.mpris; }, boolean()),
        key("modules.files", "The modules that are served, instead of all that are installed.",
            [](auto& s) -> auto& { return s.modules.files; }, fileNames()),
    };
}

std::vector<SettingsKey> serviceKeys()
{
    const auto size = matching("WIDTHxHEIGHT, such as 320x320", "[1-9][0-9]{0,4}x[1-9][0-9]{0,4}");
    const auto country = matching("a country as two capital letters", "[A-Z]{2}");
    const auto qualities = oneOf({"LOW", "HIGH", "LOSSLESS", "HI_RES"});
    const auto address = webAddress();
    // Request paths begin with a slash, picture paths without one.
    const auto withoutSlash = tidied(address, [](QString text) {
        while (text.endsWith('/'))
            text.chop(1);
        return text;
    });
    const auto withSlash =
        tidied(address, [](const QString& text) { return text.endsWith('/') ? text : text + '/'; });
    return {
        key("tidal.api_url", "The address of the service's web API.",
            [](auto& s) -> auto& { return s.tidal.apiUrl; }, withoutSlash),
        key("tidal.country_code", "The country whose catalogue is asked for.",
            [](auto& s) -> auto& { return s.tidal.countryCode; }, country),
        key("tidal.image_url", "The address that pictures are read from.",
            [](auto& s) -> auto& { return s.tidal.imageUrl; }, withSlash),
        key("tidal.image_size", "The size of album covers and of other pictures.",
            [](auto& s) -> auto& { return s.tidal.imageSize; }, size),
        key("tidal.image_size_artist", "The size of pictures of artists.",
            [](auto& s) -> auto& { return s.tidal.imageSizeArtist; }, size),
        key("tidal.image_size_playlist", "The size of pictures of playlists.",
            [](auto& s) -> auto& { return s.tidal.imageSizePlaylist; }, size),
        key("tidal.image_size_genre", "The size of pictures of genres.",
            [](auto& s) -> auto& { return s.tidal.imageSizeGenre; }, size),
        key("tidal.image_size_mood", "The size of pictures of moods.",
            [](auto& s) -> auto& { return s.tidal.imageSizeMood; }, size),
        key("tidal.max_idle_time_ms", "How long a pause keeps the track's address.",
            [](auto& s) -> auto& { return s.tidal.maxIdleTimeMs; }, milliseconds()),
        key("tidal.sound_quality", "The quality that is asked for; the service may deliver less.",
            [](auto& s) -> auto& { return s.tidal.soundQuality; }, qualities),
        key("tidal.use_post_paywall", "Whole tracks, as subscribers have; false: previews.",
            [](auto& s) -> auto& { return s.tidal.usePostPaywall; }, boolean()),
        key("tidal.oauth2.device_code_url", "Where a login asks for its code.",
            [](auto& s) -> auto& { return s.tidal.oauth2.deviceCodeUrl; }, address),
        key("tidal.oauth2.authorization_url", "The page where a person confirms a login.",
            [](auto& s) -> auto& { return s.tidal.oauth2.authorizationUrl; }, address),
        key("tidal.oauth2.token_url", "Where tokens are fetched and refreshed.",
            [](auto& s) -> auto& { return s.tidal.oauth2.tokenUrl; }, address),
        key("tidal.oauth2.client_id", "Your client id at the service; none is built in.",
            [](auto& s) -> auto& { return s.tidal.oauth2.clientId; }, anyText()),
        key("tidal.oauth2.client_secret", "The secret of your client id. It may also come from a "
            "file or from a credential of the service manager.",
            [](auto& s) -> auto& { return s.tidal.oauth2.clientSecret; }, secret()),
        key("tidal.oauth2.client_secret_file", "A file that holds the client secret.",
            [](auto& s) -> auto& { return s.tidal.oauth2.clientSecretFile; }, anyText()),
        key("tidal.oauth2.scope", "What a login asks permission for.",
            [](auto& s) -> auto& { return s.tidal.oauth2.scope; }, anyText()),
    };
}
// clang-format on

} // namespace

const std::vector<SettingsKey>& settingsKeys()
{
    static const std::vector<SettingsKey> keys = [] {
        std::vector<SettingsKey> all = streamerKeys();
        const std::vector<SettingsKey> service = serviceKeys();
        all.insert(all.end(), service.begin(), service.end());
        return all;
    }();
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
