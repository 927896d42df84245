#include "ImageCache.h"

std::shared_ptr<const Image> ImageCache::find(const std::string& url)
{
    const auto place = m_places.find(url);
    if (place == m_places.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, place->second);
    return place->second->second;
}

void ImageCache::insert(const std::string& url, std::shared_ptr<const Image> image)
{
    if (image->body.size() > m_mostBytes || m_places.count(url) != 0)
        return;
    m_bytes += image->body.size();
    m_entries.emplace_front(url, std::move(image));
    m_places.emplace(url, m_entries.begin());
    while (m_bytes > m_mostBytes) {
        m_bytes -= m_entries.back().second->body.size();
        m_places.erase(m_entries.back().first);
        m_entries.pop_back();
    }
}
