#include "TidalEncodedPath.h"
#include <kelo/KeloPercent.h>

namespace {
/// Memory that hardly any text outgrows; reserved, it is kept from one to the next.
constexpr int scratchSize = 1024;
} // namespace

TidalEncodedPath::TidalEncodedPath(const CMPath& path, const QStringList& keys)
{
    m_scratch.reserve(scratchSize);
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
        m_tail.clear();
    }
}

QString TidalEncodedPath::text(std::initializer_list<std::string_view> values)
{
    m_scratch.resize(0);
    for (const Gap& gap : m_gaps) {
        m_scratch += gap.before;
        KeloPercent::append(m_scratch, values.begin()[gap.value]);
    }
    m_scratch += m_tail;
    return QString::fromLatin1(m_scratch);
}
