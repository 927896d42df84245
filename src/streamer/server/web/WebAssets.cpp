#include "WebAssets.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QDirIterator>

/// Outside of every namespace, as the macro declares a function.
static void loadBuiltIn()
{
    Q_INIT_RESOURCE(web);
}

namespace {

constexpr qint64 largestFile = 4 * 1024 * 1024;
constexpr size_t longestName = 128;
constexpr char startPage[] = "index.html";

/// The content type of a file's extension; empty for one that is not served.
std::string contentTypeOf(const std::string& extension)
{
    static const std::map<std::string, std::string> types{
        {"html", "text/html; charset=utf-8"},
        {"css", "text/css; charset=utf-8"},
        {"js", "text/javascript; charset=utf-8"},
        {"mjs", "text/javascript; charset=utf-8"},
        {"json", "application/json"},
        {"webmanifest", "application/manifest+json"},
        {"svg", "image/svg+xml"},
        {"png", "image/png"},
        {"ico", "image/x-icon"},
        {"woff2", "font/woff2"}};
    const auto found = types.find(extension);
    return found == types.end() ? std::string() : found->second;
}

bool isWord(const std::string& text)
{
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlain);
}

/// Of "WORD.EXTENSION" and "WORD/WORD.EXTENSION" the content type; empty for any other name.
std::string typeOfName(const std::string& name)
{
    if (name.size() > longestName)
        return {};
    const size_t slash = name.find('/');
    if (slash != std::string::npos && !isWord(name.substr(0, slash)))
        return {};
    const std::string file = slash == std::string::npos ? name : name.substr(slash + 1);
    const size_t dot = file.find('.');
    if (dot == std::string::npos || !isWord(file.substr(0, dot)))
        return {};
    return contentTypeOf(file.substr(dot + 1));
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
    const QByteArray hash = QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex();
    return File{contentType, "W/\"" + hash.left(32).toStdString() + '"', body.toStdString()};
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
    HttpReply reply;
    reply.contentType = found->contentType;
    reply.headers = {
        {"Cache-Control", "no-cache"}, {"ETag", found->tag}, {"Vary", "Accept-Encoding"}};
    if (!ifNoneMatch.empty() && HttpReply::isKnown(ifNoneMatch, found->tag))
        reply.status = 304;
    else
        reply.body = std::move(found->body);
    return reply;
}
