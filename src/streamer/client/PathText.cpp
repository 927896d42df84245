#include "client/PathText.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

namespace cli {

PathText PathText::parse(const QString& encoded)
{
    PathText result;
    const int mark = encoded.indexOf('?');
    result.base = mark < 0 ? encoded : encoded.left(mark);
    if (mark < 0)
        return result;
    for (const QString& pair : encoded.mid(mark + 1).split('&', Qt::SkipEmptyParts)) {
        const int equals = pair.indexOf('=');
        const QString key = equals < 0 ? pair : pair.left(equals);
        const QString value = equals < 0 ? QString() : pair.mid(equals + 1);
        result.parameters.insert(QUrl::fromPercentEncoding(key.toUtf8()),
                                 QUrl::fromPercentEncoding(value.toUtf8()));
    }
    return result;
}

QString PathText::encoded() const
{
    QStringList pairs;
    for (auto it = parameters.begin(); it != parameters.end(); ++it) {
        pairs.append(QString::fromLatin1(QUrl::toPercentEncoding(it.key()) + '=' +
                                         QUrl::toPercentEncoding(it.value())));
    }
    return pairs.isEmpty() ? base : base + '?' + pairs.join('&');
}

QString shellWord(const QString& text)
{
    static const QRegularExpression plain("^[A-Za-z0-9_/.,:@%+-]+$");
    if (plain.match(text).hasMatch())
        return text;
    QString quoted = text;
    quoted.replace('\'', "'\\''");
    return '\'' + quoted + '\'';
}

} // namespace cli
