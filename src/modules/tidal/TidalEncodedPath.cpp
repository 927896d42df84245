#include "TidalEncodedPath.h"
#include <algorithm>
#include <kelo/KeloPercent.h>

TidalEncodedPath::TidalEncodedPath(const CMPath& path, const QStringList& keys)
{
    CMPath whole = path;
    for (const QString& key : keys)
        whole.addParam(key, QString());
    m_tail = CMPath(whole.base()).toEncoded().toLatin1();
    char separator = '?';
    const CMPath::Params& params = whole.params();
    for (auto param = params.constBegin(); param != params.constEnd(); ++param) {
        m_tail += separator;
        separator = '&';
        m_tail += KeloPercent::encoded(param.key().toUtf8()) + '=';
        const int value = keys.indexOf(param.key());
        if (value < 0) {
            m_tail += KeloPercent::encoded(param.value().toUtf8());
            continue;
        }
        m_gaps.push_back({m_tail, std::size_t(value)});
        m_sharedSize += std::size_t(m_tail.size());
        m_tail.clear();
    }
    m_sharedSize += std::size_t(m_tail.size());
}

QString TidalEncodedPath::text(std::initializer_list<std::string_view> values)
{
    std::size_t room = m_sharedSize;
    for (const std::string_view value : values)
        room += value.size() * 3;
    if (m_scratch.size() < room)
        m_scratch.resize(room);
    char* out = m_scratch.data();
    for (const Gap& gap : m_gaps) {
        out = std::copy(gap.before.begin(), gap.before.end(), out);
        out = KeloPercent::write(out, values.begin()[gap.value]);
    }
    out = std::copy(m_tail.begin(), m_tail.end(), out);
    return QString::fromLatin1(m_scratch.data(), int(out - m_scratch.data()));
}
