#include "KeloTidalApi.h"

namespace {
/// Views of the objects in an array; elements of another type are left out.
template <class View>
std::vector<View> objects(const KeloJson& array)
{
    std::vector<View> result;
    if (!array.isArray())
        return result;
    result.reserve(std::size_t(array.size()));
    array.forEach([&](const KeloJson& element) {
        if (element.isObject())
            result.emplace_back(element);
    });
    return result;
}
} // namespace

bool KeloTidalApiObject::contains(const QString& key) const
{
    const QByteArray utf8 = key.toUtf8();
    return !m_json.value({utf8.constData(), std::size_t(utf8.size())}).isNull();
}

QString KeloTidalApiObject::idText() const
{
    const KeloJson id = m_json.value("id");
    return id.isInteger() ? QString::number(id.toInt64()) : QString();
}

KeloHash KeloTidalApiObject::toHash() const
{
    return KeloHash(m_json.toVariant().toHash());
}

KeloTidalApiErrorResponse::KeloTidalApiErrorResponse(const KeloJson& json)
    : KeloHash(json.isObject() ? json.toVariant().toHash() : QVariantHash())
{
}

KeloTidalApiArtist KeloTidalApiAlbumResponse::artist() const
{
    return KeloTidalApiArtist(json().value("artist"));
}

std::vector<KeloTidalApiArtist> KeloTidalApiAlbumResponse::artists() const
{
    return objects<KeloTidalApiArtist>(json().value("artists"));
}

KeloTidalApiArtist KeloTidalApiTrackResponse::artist() const
{
    return KeloTidalApiArtist(json().value("artist"));
}

std::vector<KeloTidalApiArtist> KeloTidalApiTrackResponse::artists() const
{
    return objects<KeloTidalApiArtist>(json().value("artists"));
}

KeloTidalApiAlbum KeloTidalApiTrackResponse::album() const
{
    return KeloTidalApiAlbum(json().value("album"));
}

std::vector<KeloTidalApiArtist> KeloTidalApiPlaylistResponse::promotedArtists() const
{
    return objects<KeloTidalApiArtist>(json().value("promotedArtists"));
}

std::vector<KeloTidalApiContentRoots> KeloTidalApiContentRootsResponse::root() const
{
    return objects<KeloTidalApiContentRoots>(m_root);
}

QStringList KeloTidalApiManifest::urls() const
{
    QStringList result;
    json().value("urls").forEach([&](const KeloJson& url) {
        if (url.isString())
            result.append(url.toString());
    });
    return result;
}
