#include "WebAssets.h"

#include "texts/TextCatalogue.h"

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

/// Outside of every namespace, as the macro declares a function.
static void loadBuiltIn()
{
    Q_INIT_RESOURCE(web);
}

namespace {

constexpr qint64 largestFile = 4 * 1024 * 1024;
constexpr size_t longestName = 128;
constexpr char startPage[] = "index.html";
constexpr char builtIn[] = ":/web";
constexpr char apiDescription[] = "openapi.yaml";
constexpr char manifestType[] = "application/manifest+json";

/// Of "WORD.EXTENSION" and "WORD/WORD.EXTENSION" the content type; empty for any other name.
std::string typeOfName(const std::string& name)
{
    static const QHash<QString, const char*> types{
        {QStringLiteral("html"), "text/html; charset=utf-8"},
        {QStringLiteral("css"), "text/css; charset=utf-8"},
        {QStringLiteral("js"), "text/javascript; charset=utf-8"},
        {QStringLiteral("mjs"), "text/javascript; charset=utf-8"},
        {QStringLiteral("json"), "application/json"},
        {QStringLiteral("webmanifest"), manifestType},
        {QStringLiteral("svg"), "image/svg+xml"},
        {QStringLiteral("png"), "image/png"},
        {QStringLiteral("ico"), "image/x-icon"},
        {QStringLiteral("yaml"), "application/yaml"},
        {QStringLiteral("woff2"), "font/woff2"}};
    static const QRegularExpression form(
        QStringLiteral("\\A(?:[a-z0-9_-]+/)?[a-z0-9_-]+\\.([a-z0-9]+)\\z"));
    if (name.size() > longestName)
        return {};
    return types.value(form.match(QString::fromLatin1(name.data(), int(name.size()))).captured(1),
                       "");
}

/// A manifest with the names of its shortcuts translated; as it is where it is none.
QByteArray translated(const QByteArray& manifest, const TextCatalogue& texts)
{
    QJsonObject json = QJsonDocument::fromJson(manifest).object();
    QJsonArray shortcuts = json.value(QStringLiteral("shortcuts")).toArray();
    if (shortcuts.isEmpty())
        return manifest;
    for (int i = 0; i < shortcuts.size(); ++i) {
        QJsonObject shortcut = shortcuts.at(i).toObject();
        const QString name = shortcut.value(QStringLiteral("name")).toString();
        shortcut.insert(QStringLiteral("name"), texts.pageTexts().value(name, name));
        shortcuts.replace(i, shortcut);
    }
    json.insert(QStringLiteral("shortcuts"), shortcuts);
    json.insert(QStringLiteral("lang"), texts.language());
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

} // namespace

WebAssets::WebAssets(const QString& directory) : m_directory(directory)
{
    loadBuiltIn();
    if (!m_directory.isEmpty())
        return;
    m_directory = QLatin1String(builtIn);
    m_isBuiltIn = true;
}

std::optional<HttpReply> WebAssets::find(const std::string& path, const std::string& ifNoneMatch,
                                         const TextCatalogue& texts) const
{
    if (path.empty() || path.front() != '/')
        return std::nullopt;
    const std::string name = path == "/" ? startPage : path.substr(1);
    const std::string type = typeOfName(name);
    if (type.empty())
        return std::nullopt;
    // It belongs to the program, whatever page is served.
    const QString folder = name == apiDescription ? QString(QLatin1String(builtIn)) : m_directory;
    QFile file(folder + '/' + QString::fromStdString(name));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return std::nullopt;
    QByteArray body = file.read(largestFile);
    const bool isManifest = type == manifestType;
    if (isManifest)
        body = translated(body, texts);
    HttpReply reply{200, type, body.toStdString()};
    reply.headers.emplace_back("Vary",
                               isManifest ? "Accept-Encoding, Accept-Language" : "Accept-Encoding");
    if (m_isBuiltIn && !isManifest && name != startPage && name != apiDescription)
        reply.headers.emplace_back("Cache-Control", "public, max-age=31536000, immutable");
    else
        reply.setTag(HttpReply::tagOf(body), ifNoneMatch);
    return reply;
}
