#include "TidalEncodedPath.h"
#include <array>

namespace {
std::array<bool, 256> unreservedTable()
{
    std::array<bool, 256> table{};
    for (int c = 0; c < 256; ++c) {
        table[std::size_t(c)] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                                (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' ||
                                c == '~';
    }
    return table;
}

/// RFC 3986 2.1 and 2.3.
void appendEncoded(std::string& to, std::string_view text)
{
    static const std::array<bool, 256> isUnreserved = unreservedTable();
    static const char digits[] = "0123456789ABCDEF";
    const std::size_t start = to.size();
    to.resize(start + text.size() * 3);
    char* out = &to[start];
    for (const char byte : text) {
        const auto c = static_cast<unsigned char>(byte);
        if (isUnreserved[c]) {
            *out++ = byte;
        } else {
            *out++ = '%';
            *out++ = digits[c >> 4];
            *out++ = digits[c & 15];
        }
    }
    to.resize(std::size_t(out - to.data()));
}
} // namespace

TidalEncodedPath::TidalEncodedPath(const CMPath& path, const QStringList& keys)
{
    CMPath whole = path;
    for (const QString& key : keys)
        whole.addParam(key, QString());
    m_tail = CMPath(whole.base()).toEncoded().toStdString();
    char separator = '?';
    const CMPath::Params& params = whole.params();
    for (auto param = params.constBegin(); param != params.constEnd(); ++param) {
        m_tail += separator;
        separator = '&';
        m_tail += CMPath::encodeParam(param.key()).toStdString() + '=';
        const int value = keys.indexOf(param.key());
        if (value < 0) {
            m_tail += CMPath::encodeParam(param.value()).toStdString();
            continue;
        }
        m_gaps.push_back({m_tail, std::size_t(value)});
        m_tail.clear();
    }
}

QString TidalEncodedPath::text(std::initializer_list<std::string_view> values)
{
    m_scratch.clear();
    for (const Gap& gap : m_gaps) {
        m_scratch += gap.before;
        appendEncoded(m_scratch, values.begin()[gap.value]);
    }
    m_scratch += m_tail;
    return QString::fromLatin1(m_scratch.data(), int(m_scratch.size()));
}
