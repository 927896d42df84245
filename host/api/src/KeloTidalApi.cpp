#include "KeloTidalApi.h"
#include <algorithm>

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

KeloTidalApiErrorResponse::KeloTidalApiErrorResponse(const KeloJson& json)
    : KeloHash(json.isObject() ? json.toVariant().toHash() : QVariantHash())
{
}

std::vector<KeloJson> KeloTidalApiPage::entries() const
{
    std::vector<KeloJson> result;
    const KeloJson items = json().value("items");
    result.reserve(std::size_t(items.size()));
    items.forEach([&](const KeloJson& element) { result.push_back(element); });
    const auto first = std::find_if(result.cbegin(), result.cend(),
                                    [](const KeloJson& element) { return element.isObject(); });
    if (first != result.cend() && first->contains("item")) {
        for (KeloJson& entry : result)
            entry = entry.value("item");
    }
    return result;
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
