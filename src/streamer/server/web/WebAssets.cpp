#include "WebAssets.h"

#include <QDirIterator>
#include <QHash>
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

/// Of "WORD.EXTENSION" and "WORD/WORD.EXTENSION" the content type; empty for any other name.
std::string typeOfName(const std::string& name)
{
    static const QHash<QString, const char*> types{
        {QStringLiteral("html"), "text/html; charset=utf-8"},
        {QStringLiteral("css"), "text/css; charset=utf-8"},
        {QStringLiteral("js"), "text/javascript; charset=utf-8"},
        {QStringLiteral("mjs"), "text/javascript; charset=utf-8"},
        {QStringLiteral("json"), "application/json"},
        {QStringLiteral("webmanifest"), "application/manifest+json"},
        {QStringLiteral("svg"), "image/svg+xml"},
        {QStringLiteral("png"), "image/png"},
        {QStringLiteral("ico"), "image/x-icon"},
        {QStringLiteral("woff2"), "font/woff2"}};
    static const QRegularExpression form(
        QStringLiteral("\\A(?:[a-z0-9_-]+/)?[a-z0-9_-]+\\.([a-z0-9]+)\\z"));
    if (name.size() > longestName)
        return {};
    return types.value(form.match(QString::fromLatin1(name.data(), int(name.size()))).captured(1),
                       "");
}

} // namespace

WebAssets::WebAssets(const QString& directory) : m_directory(directory)
{
    if (!m_directory.isEmpty())
        return;
    loadBuiltIn();
    const QString root = QStringLiteral(":/web/");
    QDirIterator files(root, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const std::string name = file.mid(root.size()).toStdString();
        if (auto content = read(file, typeOfName(name)))
            m_files.emplace(name, std::move(*content));
    }
}

std::optional<WebAssets::File> WebAssets::read(const QString& file, const std::string& contentType)
{
    QFile input(file);
    if (!QFileInfo(file).isFile() || !input.open(QIODevice::ReadOnly) || input.size() > largestFile)
        return std::nullopt;
    const QByteArray body = input.read(largestFile);
    return File{contentType, HttpReply::tagOf(body), body.toStdString()};
}

std::optional<WebAssets::File> WebAssets::file(const std::string& name) const
{
    const std::string type = typeOfName(name);
    if (type.empty())
        return std::nullopt;
    if (!m_directory.isEmpty())
        return read(m_directory + '/' + QString::fromStdString(name), type);
    const auto found = m_files.find(name);
    return found == m_files.end() ? std::nullopt : std::optional<File>(found->second);
}

std::optional<HttpReply> WebAssets::find(const std::string& path,
                                         const std::string& ifNoneMatch) const
{
    if (path.empty() || path.front() != '/')
        return std::nullopt;
    auto found = file(path == "/" ? startPage : path.substr(1));
    if (!found)
        return std::nullopt;
    HttpReply reply{200, found->contentType, std::move(found->body)};
    reply.headers.emplace_back("Vary", "Accept-Encoding");
    reply.setTag(found->tag, ifNoneMatch);
    return reply;
}
