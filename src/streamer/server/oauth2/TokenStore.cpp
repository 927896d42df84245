#include "TokenStore.h"

#include <kelo/KeloLog.h>
#include <QFile>
#include <QJsonDocument>
#include <sys/stat.h>

namespace {
constexpr int version = 1;
} // namespace

StateFile& TokenStore::fileOf(const KeloOAuth2ServiceInfo& info)
{
    const QString name = fileName(info);
    const auto known = m_files.find(name);
    if (known != m_files.end())
        return known->second;
    const QString loss =
        QStringLiteral("the login to %1 does not outlast a restart").arg(info.displayName());
    return m_files.emplace(name, StateFile(name, loss, version)).first->second;
}

QString TokenStore::fileName(const KeloOAuth2ServiceInfo& info) const
{
    return m_folder + '/' + info.serviceName() + QStringLiteral(".json");
}

TokenSet TokenStore::load(const KeloOAuth2ServiceInfo& info)
{
    TokenSet tokens;
    QJsonObject json;
    StateFile& file = fileOf(info);
    if (file.read(&json) != StateFile::Found::Content)
        return tokens;
    if (json.value("tokenUrl").toString() != info.tokenUrl() ||
        json.value("clientId").toString() != info.clientId()) {
        KELO_LOG("OAuth2", INFO) << file.name() << " belongs to another service or client";
        return tokens;
    }
    tokens.access = Secret(json.value("accessToken").toString());
    tokens.refresh = Secret(json.value("refreshToken").toString());
    tokens.obtainedAtMs = json.value("obtainedAtMs").toVariant().toLongLong();
    tokens.lifetimeMs = json.value("lifetimeMs").toVariant().toLongLong();
    tokens.user = json.value("user").toString();
    if (tokens.isEmpty())
        KELO_LOG("OAuth2", WARN) << file.name() << " holds no token; a new login is needed";
    return tokens;
}

void TokenStore::save(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens)
{
    const QJsonObject json{{StateFile::versionKey(), version},
                           {QStringLiteral("tokenUrl"), info.tokenUrl()},
                           {QStringLiteral("clientId"), info.clientId()},
                           {QStringLiteral("accessToken"), tokens.access.reveal()},
                           {QStringLiteral("refreshToken"), tokens.refresh.reveal()},
                           {QStringLiteral("obtainedAtMs"), tokens.obtainedAtMs},
                           {QStringLiteral("lifetimeMs"), tokens.lifetimeMs},
                            {QStringLiteral("user"), tokens.user}};
    ::chmod(QFile::encodeName(m_folder).constData(), S_IRWXU);
    // A failure is in the log; the login stands all the same.
    (void)fileOf(info).write(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

void TokenStore::remove(const KeloOAuth2ServiceInfo& info)
{
    fileOf(info).remove();
}
