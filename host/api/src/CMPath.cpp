#include "CMPath.h"

#include "KeloPercent.h"

class CMPath::Data : public KeloSharedData
{
public:
    QString base;
    Params params;
};

namespace {
const QString emptyText;
const CMPath::Params emptyParams;

void appendEncoded(QString& to, const QString& text,
                   KeloPercent::Plain plain = KeloPercent::Unreserved)
{
    to += QLatin1String(KeloPercent::encoded(text.toUtf8(), plain));
}

/// What cannot be decoded clears `ok`.
QString decoded(const QStringRef& text, bool& ok)
{
    if (!text.contains(QLatin1Char('%')))
        return text.toString();
    const std::optional<QString> result = KeloPercent::decoded(text.toUtf8());
    ok = ok && result;
    return result.value_or(QString());
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

const QString& CMPath::base() const
{
    return m_data ? m_data->base : emptyText;
}

void CMPath::setBase(const QString& base)
{
    writable()->base = base;
}

const CMPath::Params& CMPath::params() const
{
    return m_data ? m_data->params : emptyParams;
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

QString CMPath::toEncoded() const
{
    QString text;
    const Params& own = params();
    text.reserve(base().size() + own.size() * 32);
    appendEncoded(text, base(), KeloPercent::Base);
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
    appendEncoded(text, name);
    text += QLatin1Char('=');
    appendEncoded(text, value);
}

uint qHash(const CMPath& path, uint seed)
{
    uint hash = qHash(path.base(), seed);
    const CMPath::Params& params = path.params();
    for (auto it = params.constBegin(); it != params.constEnd(); ++it)
        hash = hash * 31 + (qHash(it.key(), seed) ^ (qHash(it.value(), seed) * 17));
    return hash;
}
