#pragma once
#include <list>
#include <memory>
#include <QByteArray>
#include <string>
#include <unordered_map>

/// A fetched picture. Never changes, so that any number of answers share it.
struct Image
{
    std::string contentType;
    QByteArray body;
};

/// The pictures asked for last, up to a size in bytes; the one that was asked for longest ago goes
/// first. Owned by ImageLoader, whose lock guards it.
class ImageCache
{
public:
    explicit ImageCache(qint64 mostBytes) : m_mostBytes(mostBytes) {}

    /// Null when it is not here.
    std::shared_ptr<const Image> find(const std::string& url);
    void insert(const std::string& url, std::shared_ptr<const Image> image);

private:
    using Entry = std::pair<std::string, std::shared_ptr<const Image>>;

    const qint64 m_mostBytes;
    qint64 m_bytes = 0;
    std::list<Entry> m_entries; ///< the one asked for last comes first
    std::unordered_map<std::string, std::list<Entry>::iterator> m_places;
};
