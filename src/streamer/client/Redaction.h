#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace cli {

/// Takes secrets out of texts that go to somebody else: those that it is told, whatever stands at a
/// name such as "token", headers that log in, user and query of web addresses. It rather takes too
/// much. A value, used on one thread.
class Redaction
{
public:
    /// A text that must not be seen, in whatever form; one of less than four letters is no secret.
    void add(const QString& secret);
    /// The texts that stand at names such as "token".
    void addSecretsOf(const QJsonObject& values);
    /// The tokens that are kept in the files below \p folder.
    void addTokensBelow(const QString& folder);

    QString cleaned(QString text) const;

private:
    QStringList m_secrets; ///< also as they stand in JSON and in addresses
};

} // namespace cli
