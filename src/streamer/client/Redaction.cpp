#include "client/Redaction.h"

#include "client/JsonText.h"

#include <algorithm>
#include <QDirIterator>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUrl>

namespace cli {

namespace {

const char* const secretNames =
    "token|secret|passw|passphrase|\\bpwd\\b|signature|credential|(?:api|access|private)[_-]?key|"
    "session|cookie|authorization|(?:device|user)_?code|\\buser\\b|user[_-]?(?:name|id)";

/// The texts of a JSON value at names that tell of secrets.
void collect(const QJsonValue& value, bool isSecret, QStringList& found)
{
    static const QRegularExpression name(secretNames, QRegularExpression::CaseInsensitiveOption);
    if (value.isString() && isSecret)
        found.append(value.toString());
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        collect(it.value(), isSecret || name.match(it.key()).hasMatch(), found);
    for (const QJsonValue& one : value.toArray())
        collect(one, isSecret, found);
}

struct Rule
{
    QRegularExpression expression;
    QString replacement;
};

const QVector<Rule>& rules()
{
    const auto rule = [](const QString& pattern, const char* replacement) {
        return Rule{QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption),
                    replacement};
    };
    static const QVector<Rule> all{
        rule("((?:authorization|cookie)\"?\\s*[:=]).*", "\\1 ***"),
        rule("\\b(bearer|basic)\\s+[^\\s\"',]+", "\\1 ***"),
        rule("\\beyJ[\\w-]+\\.[\\w.-]+", "***"), // a JSON Web Token (RFC 7519)
        // A password may hold what ends it by the rules: up to the last @.
        rule("([a-z][a-z0-9+.-]*://)[^\\s\"'<>]*@", "\\1***@"),
        rule("(/users/)\\d+", "\\1***"),
        rule("([a-z][a-z0-9+.-]*://[^\\s\"'<>?#]*)[?#][^\\s\"'<>]*", "\\1?***"),
        rule(QStringLiteral(
                 "(\\b[\\w.-]*(?:%1)[\\w.-]*\\\\?[\"']?\\s*[:=]\\s*)"
                 "(?:[\\[{][^\\]}]*|\\\\?\"(?:[^\"\\\\]|\\\\.)*\"?|'[^']*'?|[^\\s,;&\"'}]+)")
                 .arg(secretNames),
             "\\1***"),
        rule("\\b(code=)[^\\s,;&\"'}]+", "\\1***"),
    };
    return all;
}

} // namespace

void Redaction::add(const QString& secret)
{
    constexpr int leastLetters = 4;
    if (secret.size() < leastLetters)
        return;
    const QByteArray quoted = json(secret);
    m_secrets << secret << QString::fromUtf8(quoted.mid(1, quoted.size() - 2))
              << QString::fromLatin1(QUrl::toPercentEncoding(secret));
    m_secrets.removeDuplicates();
    // What holds another secret goes first, else its rest would stay.
    std::sort(m_secrets.begin(), m_secrets.end(),
              [](const QString& a, const QString& b) { return a.size() > b.size(); });
}

void Redaction::addSecretsOf(const QJsonObject& values)
{
    QStringList found;
    collect(values, false, found);
    for (const QString& secret : found)
        add(secret);
}

void Redaction::addTokensBelow(const QString& folder)
{
    constexpr qint64 mostBytes = 1024 * 1024;
    QDirIterator files(folder, {"*.json*"}, QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonDocument document = QJsonDocument::fromJson(file.read(mostBytes));
        addSecretsOf(document.isArray() ? QJsonObject{{QString(), document.array()}}
                                        : document.object());
    }
}

QString Redaction::cleaned(QString text) const
{
    for (const QString& secret : m_secrets)
        text.replace(secret, "***", Qt::CaseInsensitive);
    for (const Rule& rule : rules())
        text.replace(rule.expression, rule.replacement);
    return text;
}

} // namespace cli
