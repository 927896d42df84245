#include "CMPath.h"

#include <algorithm>
#include <QByteArray>

class CMPath::Data : public KeloSharedData
{
public:
    QString base;
    Params params;
};

namespace {
const QString emptyText;
const CMPath::Params emptyParams;

/// RFC 3986 2.3.
bool isUnreserved(uchar c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

/// What stays as it is in an encoded base.
bool isPlainInBase(uchar c)
{
    return c > 0x20 && c < 0x7f && c != '%' && c != '?' && c != '#';
}

template <class IsPlain>
void appendEncoded(QString& to, const QString& text, IsPlain isPlain)
{
    bool isAllPlain = true;
    for (const QChar c : text) {
        if (c.unicode() > 0x7f || !isPlain(uchar(c.unicode()))) {
            isAllPlain = false;
            break;
        }
    }
    if (isAllPlain) {
        to += text;
        return;
    }
    static const char digits[] = "0123456789ABCDEF";
    const QByteArray utf8 = text.toUtf8();
    for (const char byte : utf8) {
        const uchar c = uchar(byte);
        if (isPlain(c)) {
            to += QLatin1Char(byte);
        } else {
            to += QLatin1Char('%');
            to += QLatin1Char(digits[c >> 4]);
            to += QLatin1Char(digits[c & 15]);
        }
    }
}

int hexValue(QChar c)
{
    const ushort u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

/// Decodes %XX; text that is not UTF-8 afterwards, or a broken escape, clears `ok`.
QString decoded(const QStringRef& text, bool& ok)
{
    if (!text.contains(QLatin1Char('%')))
        return text.toString();
    QByteArray bytes;
    bytes.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('%')) {
            bytes += QStringRef(text.string(), text.position() + i, 1).toUtf8();
            continue;
        }
        const int high = i + 2 < text.size() ? hexValue(text.at(i + 1)) : -1;
        const int low = i + 2 < text.size() ? hexValue(text.at(i + 2)) : -1;
        if (high < 0 || low < 0) {
            ok = false;
            return QString();
        }
        bytes += char(high * 16 + low);
        i += 2;
    }
    // With the size said, so that a zero byte does not end the text.
    const QString result = QString::fromUtf8(bytes.constData(), std::max(0, bytes.size()));
    if (result.toUtf8() != bytes)
        ok = false;
    return result;
}

/// `text` begins with the segments of `start`; `end` receives where the remainder begins.
bool startsWithSegments(const QString& text, const QString& start, int& end)
{
    QStringRef head(&start);
    while (head.endsWith(QLatin1Char('/')))
        head.chop(1);
    if (!text.startsWith(head))
        return false;
    end = head.size();
    return end == text.size() || text.at(end) == QLatin1Char('/');
}
} // namespace

CMPath::CMPath() = default;

CMPath::CMPath(const QString& base)
{
    if (!base.isEmpty())
        writable()->base = base;
}

CMPath::CMPath(const QString& base, const Params& params) : CMPath(base)
{
    if (!params.isEmpty())
        writable()->params = params;
}

CMPath::Data* CMPath::writable()
{
    if (!m_data)
        m_data = KeloShared<Data>(new Data);
    else if (!m_data.isUnique())
        m_data = KeloShared<Data>(new Data(*m_data));
    return m_data.get();
}

const CMPath::Data* CMPath::data() const
{
    return m_data.get();
}

const QString& CMPath::base() const
{
    return m_data ? data()->base : emptyText;
}

void CMPath::setBase(const QString& base)
{
    writable()->base = base;
}

bool CMPath::isEmpty() const
{
    return base().isEmpty() && params().isEmpty();
}

const CMPath::Params& CMPath::params() const
{
    return m_data ? data()->params : emptyParams;
}

QString CMPath::param(const QString& name) const
{
    return params().value(name);
}

bool CMPath::hasParam(const QString& name) const
{
    return params().contains(name);
}

void CMPath::addParam(const QString& name, const QString& value)
{
    writable()->params.insert(name, value);
}

void CMPath::addParams(const Params& params)
{
    if (params.isEmpty())
        return;
    Params& own = writable()->params;
    for (auto it = params.constBegin(); it != params.constEnd(); ++it)
        own.insert(it.key(), it.value());
}

void CMPath::setParams(const Params& params)
{
    writable()->params = params;
}

void CMPath::removeParam(const QString& name)
{
    if (hasParam(name))
        writable()->params.remove(name);
}

void CMPath::clearParams()
{
    if (!params().isEmpty())
        writable()->params.clear();
}

void CMPath::appendSubpath(const QString& segment)
{
    QString& base = writable()->base;
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    if (!segment.startsWith(QLatin1Char('/')))
        base += QLatin1Char('/');
    base += segment;
}

CMPath CMPath::operator+(const QString& text) const
{
    CMPath result(*this);
    if (!text.isEmpty())
        result.writable()->base += text;
    return result;
}

bool CMPath::contains(const QString& text) const
{
    return base().contains(text, Qt::CaseSensitive);
}

bool CMPath::startsWith(const CMPath& other, QString* rest) const
{
    int end = 0;
    if (!startsWithSegments(base(), other.base(), end) || !includesParams(other))
        return false;
    if (rest)
        *rest = base().mid(end);
    return true;
}

bool CMPath::equals(const CMPath& other, Compare compare) const
{
    if (m_data == other.m_data)
        return true;
    return base() == other.base() && (compare == CompareBase || params() == other.params());
}

bool CMPath::includesParams(const CMPath& other) const
{
    const Params& own = params();
    const Params& wanted = other.params();
    for (auto it = wanted.constBegin(); it != wanted.constEnd(); ++it) {
        const auto found = own.constFind(it.key());
        if (found == own.constEnd() || found.value() != it.value())
            return false;
    }
    return true;
}

QStringList CMPath::splitBase() const
{
    return base().split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString CMPath::toEncoded() const
{
    QString text;
    const Params& own = params();
    text.reserve(base().size() + own.size() * 32);
    appendEncoded(text, base(), isPlainInBase);
    for (auto it = own.constBegin(); it != own.constEnd(); ++it) {
        text += it == own.constBegin() ? QLatin1Char('?') : QLatin1Char('&');
        appendEncodedParam(text, it.key(), it.value());
    }
    return text;
}

CMPath CMPath::fromEncoded(const QString& text, bool* ok)
{
    bool isGood = true;
    CMPath path;
    const int question = text.indexOf(QLatin1Char('?'));
    const QString base = decoded(text.leftRef(question), isGood);
    if (!base.isEmpty())
        path.setBase(base);
    if (question >= 0) {
        const auto items = text.midRef(question + 1).split(QLatin1Char('&'), Qt::SkipEmptyParts);
        for (const QStringRef& item : items) {
            const int equal = item.indexOf(QLatin1Char('='));
            const QString name = decoded(equal < 0 ? item : item.left(equal), isGood);
            const QString value = equal < 0 ? QString() : decoded(item.mid(equal + 1), isGood);
            if (name.isEmpty())
                isGood = false;
            else
                path.addParam(name, value);
        }
    }
    if (ok)
        *ok = isGood;
    return isGood ? path : CMPath();
}

void CMPath::appendEncodedParam(QString& text, const QString& name, const QString& value)
{
    appendEncoded(text, name, isUnreserved);
    text += QLatin1Char('=');
    appendEncoded(text, value, isUnreserved);
}

QString CMPath::encodeParam(const QString& text)
{
    QString result;
    appendEncoded(result, text, isUnreserved);
    return result;
}

uint qHash(const CMPath& path, uint seed)
{
    uint hash = qHash(path.base(), seed);
    const CMPath::Params& params = path.params();
    for (auto it = params.constBegin(); it != params.constEnd(); ++it)
        hash = hash * 31 + (qHash(it.key(), seed) ^ (qHash(it.value(), seed) * 17));
    return hash;
}
