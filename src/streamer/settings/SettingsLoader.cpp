#include "settings/SettingsLoader.h"

#include "settings/SettingsKeys.h"

#include <optional>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <sstream>
#include <string_view>
#include <toml++/toml.h>

namespace {

const QString moduleSections = "module";

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// How a refused value is shown: clipped, and never with what may hold a password.
QString described(const QVariant& value, bool isSecret)
{
    if (value.type() == QVariant::StringList)
        return QStringLiteral("[%1]").arg(value.toStringList().join(", ").left(60));
    if (value.type() != QVariant::String)
        return value.toString();
    if (isSecret)
        return "a text";
    const QString text = value.toString();
    if (text.contains('@'))
        return "a text with an \"@\"";
    return '"' + (text.size() > 60 ? text.left(60) + "..." : text) + '"';
}

QString unknownKey(const QString& name)
{
    const QString section = name.left(qMax(0, name.lastIndexOf('.')));
    QStringList words;
    for (const SettingsKey& key : settingsKeys()) {
        if (key.section() == section)
            words.append(key.word());
    }
    if (words.isEmpty())
        return QStringLiteral("%1: no such key; wanted a key of the sections %2")
            .arg(name, settingsSections().join(", "));
    return QStringLiteral("%1: no such key; wanted one of %2").arg(name, words.join(", "));
}

QString notWanted(const SettingsKey& key, const QString& got)
{
    return QStringLiteral("%1: wanted %2, got %3").arg(key.name, key.wanted, got);
}

/// The texts of a list; nothing when it holds anything else.
std::optional<QStringList> texts(const toml::array& list)
{
    QStringList result;
    for (const toml::node& item : list) {
        const auto* text = item.as_string();
        if (!text)
            return std::nullopt;
        result.append(fromUtf8(text->get()));
    }
    return result;
}

/// What a module gets of its section: texts, numbers, truths, lists and tables of them.
QVariant moduleValue(const toml::node& node)
{
    if (const auto* text = node.as_string())
        return fromUtf8(text->get());
    if (const auto* number = node.as_integer())
        return static_cast<qlonglong>(number->get());
    if (const auto* fraction = node.as_floating_point())
        return fraction->get();
    if (const auto* truth = node.as_boolean())
        return truth->get();
    if (const auto* list = node.as_array()) {
        QVariantList values;
        for (const toml::node& item : *list)
            values.append(moduleValue(item));
        return values;
    }
    if (const auto* table = node.as_table()) {
        QVariantHash values;
        for (const auto& [word, item] : *table)
            values.insert(fromUtf8(word.str()), moduleValue(item));
        return values;
    }
    return QVariant(); // dates
}

/// Gathers the values of one load. Lives on the stack of loadSettings().
class Reading
{
public:
    explicit Reading(LoadedSettings& result) : m_result(result) {}

    void readFile(const QString& file);
    void apply(const SettingsOverride& given);
    void findClientSecret();
    /// Those that the settings file names stand beside it.
    void findModules();

private:
    void readModules(const toml::node& node, const QString& where);
    void storeOfModule(const QString& module, const QString& key, const QVariant& value,
                       const QString& origin);
    bool isOfFile(const QString& origin) const
    {
        return !m_result.file.isEmpty() && origin.startsWith(m_result.file + ':');
    }
    void walk(const toml::table& table, const QString& section);
    void readNode(const toml::node& node, const QString& name, const QString& where);
    void store(const SettingsKey& key, const QVariant& value, const QString& origin);
    void readSecretFile(const QString& file, const QString& origin);
    void problem(const QString& where, const QString& what)
    {
        m_result.problems.append(where + ": " + what);
    }

    LoadedSettings& m_result;
};

void Reading::readFile(const QString& file)
{
    m_result.file = file;
    QFile input(file);
    if (QFileInfo(file).isDir() || !input.open(QIODevice::ReadOnly)) {
        problem(file, "cannot be read");
        return;
    }
    const QByteArray content = input.readAll();
    const std::string_view text(content.constData(), static_cast<size_t>(content.size()));
    try {
        walk(toml::parse(text, file.toStdString()), QString());
    } catch (const toml::parse_error& error) {
        const auto begin = error.source().begin;
        problem(QStringLiteral("%1:%2").arg(file).arg(begin.line),
                QStringLiteral("not TOML (column %1): %2")
                    .arg(begin.column)
                    .arg(fromUtf8(error.description())));
    }
}

void Reading::walk(const toml::table& table, const QString& section)
{
    for (const auto& [word, node] : table) {
        const QString key = fromUtf8(word.str());
        const QString name = section.isEmpty() ? key : section + '.' + key;
        const QString where =
            QStringLiteral("%1:%2").arg(m_result.file).arg(word.source().begin.line);
        readNode(node, name, where);
    }
}

void Reading::readNode(const toml::node& node, const QString& name, const QString& where)
{
    const SettingsKey* key = findSettingsKey(name);
    const bool isSection = settingsSections().contains(name);
    if (name == moduleSections)
        return readModules(node, where);
    if (isSection && node.is_table()) {
        walk(*node.as_table(), name);
    } else if (isSection) {
        problem(where, QStringLiteral("%1: wanted a section [%1]").arg(name));
    } else if (!key) {
        problem(where, unknownKey(name));
    } else if (const auto* text = node.as_string()) {
        store(*key, fromUtf8(text->get()), where);
    } else if (const auto* number = node.as_integer()) {
        store(*key, static_cast<qlonglong>(number->get()), where);
    } else if (const auto* fraction = node.as_floating_point()) {
        store(*key, fraction->get(), where);
    } else if (const auto* truth = node.as_boolean()) {
        store(*key, truth->get(), where);
    } else if (const auto list = node.is_array() ? texts(*node.as_array()) : std::nullopt) {
        store(*key, *list, where);
    } else {
        std::ostringstream type;
        type << node.type();
        problem(where, notWanted(*key, "a value of type " + QString::fromStdString(type.str())));
    }
}

/// A section for each module, whose keys are the module's own.
void Reading::readModules(const toml::node& node, const QString& where)
{
    const auto* table = node.as_table();
    if (!table)
        return problem(where, QStringLiteral("module: wanted sections [module.NAME]"));
    for (const auto& [word, section] : *table) {
        const QString name = fromUtf8(word.str());
        const auto* keys = section.as_table();
        if (!keys) {
            problem(where, QStringLiteral("module.%1: wanted a section [module.%1]").arg(name));
            continue;
        }
        m_result.settings.modules.sections[name];
        for (const auto& [key, value] : *keys) {
            const int line = key.source().begin.line;
            storeOfModule(name, fromUtf8(key.str()), moduleValue(value),
                          QStringLiteral("%1:%2").arg(m_result.file).arg(line));
        }
    }
}

void Reading::storeOfModule(const QString& module, const QString& key, const QVariant& value,
                            const QString& origin)
{
    if (key == "prefix" && !ModuleSettings::isPrefix(value.toString()))
        return problem(origin, QStringLiteral("module.%1.prefix: wanted a path of one segment, "
                                              "such as /%1, got %2")
                                   .arg(module, described(value, false)));
    m_result.settings.modules.sections[module].insert(key, value);
}

void Reading::findModules()
{
    const bool isBesideFile = isOfFile(m_result.origin("modules.files"));
    const QDir folder = QFileInfo(m_result.file).absoluteDir();
    for (QString& file : m_result.settings.modules.files)
        file = isBesideFile ? folder.absoluteFilePath(file) : file;
}

void Reading::store(const SettingsKey& key, const QVariant& value, const QString& origin)
{
    if (key.store(m_result.settings, value))
        m_result.origins.insert(key.name, origin);
    else
        problem(origin, notWanted(key, described(value, key.isSecret)));
}

void Reading::apply(const SettingsOverride& given)
{
    const QString module = given.key.section('.', 1, 1);
    const QString ofModule = given.key.section('.', 2);
    if (given.key.section('.', 0, 0) == moduleSections && !ofModule.isEmpty()) {
        storeOfModule(module, ofModule, given.value, given.origin);
        return;
    }
    const SettingsKey* key = findSettingsKey(given.key);
    if (!key) {
        problem(given.origin, unknownKey(given.key));
        return;
    }
    if (given.value.isNull()) {
        problem(given.origin, notWanted(*key, "no \"=\" and value"));
        return;
    }
    QVariant value(given.value);
    const bool isTruth = given.value == "true" || given.value == "false";
    if (key->kind == SettingsKey::Kind::TextList)
        value = given.value.split(',', Qt::SkipEmptyParts);
    else if (QVariant typed = value; (key->kind != SettingsKey::Kind::Boolean || isTruth) &&
                                     typed.convert(static_cast<int>(key->kind)))
        value = typed;
    store(*key, value, given.origin);
}

/// The first of: the setting itself, the file that the settings name, the service manager's
/// credential.
void Reading::findClientSecret()
{
    OAuth2Settings& oauth2 = m_result.settings.tidal.oauth2;
    if (!oauth2.clientSecret.isEmpty())
        return;
    const QString fileKey = "tidal.oauth2.client_secret_file";
    if (!oauth2.clientSecretFile.isEmpty()) {
        const QString origin = m_result.origin(fileKey);
        if (isOfFile(origin))
            oauth2.clientSecretFile =
                QFileInfo(m_result.file).absoluteDir().absoluteFilePath(oauth2.clientSecretFile);
        readSecretFile(oauth2.clientSecretFile, origin + ": " + fileKey);
        return;
    }
    const QString credentials = qEnvironmentVariable("CREDENTIALS_DIRECTORY");
    const QString credential = credentials + "/kelo.client_secret";
    if (!credentials.isEmpty() && QFileInfo::exists(credential))
        readSecretFile(credential, "CREDENTIALS_DIRECTORY");
}

void Reading::readSecretFile(const QString& file, const QString& origin)
{
    constexpr int longestSecret = 4096;
    QFile input(file);
    if (QFileInfo(file).isDir() || !input.open(QIODevice::ReadOnly)) {
        problem(origin, "wanted a file with the client secret, cannot read " + file);
        return;
    }
    const QString text = QString::fromUtf8(input.read(longestSecret)).trimmed();
    m_result.settings.tidal.oauth2.clientSecret = Secret(text);
    m_result.origins.insert("tidal.oauth2.client_secret", file);
}

/// The user's file, else the system's, else nothing.
QString defaultFile()
{
    QString folder = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (folder.isEmpty())
        folder = QDir::homePath() + "/.config";
    for (const QString& file : {folder + "/kelo/kelo.toml", QString("/etc/kelo/kelo.toml")}) {
        if (QFileInfo::exists(file))
            return file;
    }
    return {};
}

} // namespace

bool ModuleSettings::isPrefix(const QString& path)
{
    static const QRegularExpression form(QStringLiteral("\\A/[A-Za-z0-9_-]+\\z"));
    return form.match(path).hasMatch();
}

LoadedSettings loadSettings(const QString& file, const std::vector<SettingsOverride>& overrides)
{
    LoadedSettings result;
    Reading reading(result);
    const QString chosen = file.isEmpty() ? defaultFile() : file;
    if (!chosen.isEmpty())
        reading.readFile(chosen);
    for (const SettingsOverride& given : overrides)
        reading.apply(given);
    reading.findClientSecret();
    reading.findModules();
    return result;
}

SettingsOverride splitOverride(const QString& text)
{
    const int at = text.indexOf('=');
    if (at < 0)
        return {text, QString(), "-o"};
    const QString value = text.mid(at + 1);
    return {text.left(at).trimmed(), value.isNull() ? "" : value, "-o"};
}
