#include "TokenStore.h"

#include "KeptFile.h"

#include <cerrno>
#include <cstring>
#include <kelo/KeloJson.h>
#include <kelo/KeloLog.h>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariantHash>
#include <sys/stat.h>

namespace {

constexpr qint64 longestFile = 64 * 1024;

void logFailure(const char* what, const QString& file)
{
    const int number = errno;
    KELO_LOG("OAuth2", ERROR) << what << " " << file << ": " << std::strerror(number);
}

} // namespace

QString TokenStore::fileName(const KeloOAuth2ServiceInfo& info) const
{
    return m_folder + '/' + info.serviceName() + QStringLiteral(".json");
}

TokenSet TokenStore::load(const KeloOAuth2ServiceInfo& info) const
{
    TokenSet tokens;
    KeptFile(fileName(info)).removeDraft();
    QFile file(fileName(info));
    if (!file.exists())
        return tokens;
    if (!file.open(QIODevice::ReadOnly)) {
        KELO_LOG("OAuth2", WARN) << "Cannot read " << file.fileName() << ": " << file.errorString();
        return tokens;
    }
    const KeloJson json = KeloJson::parse(file.read(longestFile));
    if (!json.isObject()) {
        KELO_LOG("OAuth2", WARN) << file.fileName() << " is damaged; a new login is needed";
        return tokens;
    }
    if (json.value("tokenUrl").toString() != info.tokenUrl() ||
        json.value("clientId").toString() != info.clientId()) {
        KELO_LOG("OAuth2", INFO) << file.fileName() << " belongs to another service or client";
        return tokens;
    }
    tokens.access = Secret(json.value("accessToken").toString());
    tokens.refresh = Secret(json.value("refreshToken").toString());
    tokens.obtainedAtMs = json.value("obtainedAtMs").toInt64();
    tokens.lifetimeMs = json.value("lifetimeMs").toInt64();
    tokens.user = json.value("user").toString();
    if (tokens.isEmpty())
        KELO_LOG("OAuth2", WARN) << file.fileName() << " holds no token; a new login is needed";
    return tokens;
}

bool TokenStore::makeFolder() const
{
    if (!QDir().mkpath(m_folder)) {
        logFailure("Cannot make", m_folder);
        return false;
    }
    if (::chmod(QFile::encodeName(m_folder).constData(), S_IRWXU) != 0) {
        logFailure("Cannot protect", m_folder);
        return false;
    }
    return true;
}

bool TokenStore::save(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens) const
{
    if (!makeFolder())
        return false;
    QVariantHash fields;
    fields.insert(QStringLiteral("tokenUrl"), info.tokenUrl());
    fields.insert(QStringLiteral("clientId"), info.clientId());
    fields.insert(QStringLiteral("accessToken"), tokens.access.reveal());
    fields.insert(QStringLiteral("refreshToken"), tokens.refresh.reveal());
    fields.insert(QStringLiteral("obtainedAtMs"), tokens.obtainedAtMs);
    fields.insert(QStringLiteral("lifetimeMs"), tokens.lifetimeMs);
    fields.insert(QStringLiteral("user"), tokens.user);

    const QByteArray text =
        QJsonDocument(QJsonObject::fromVariantHash(fields)).toJson(QJsonDocument::Compact);
    QString error;
    if (KeptFile(fileName(info)).write(text, &error))
        return true;
    KELO_LOG("OAuth2", ERROR) << "Cannot write " << fileName(info) << ": " << error;
    return false;
}

void TokenStore::remove(const KeloOAuth2ServiceInfo& info) const
{
    QString error;
    if (!KeptFile(fileName(info)).remove(&error))
        KELO_LOG("OAuth2", ERROR) << "Cannot remove " << fileName(info) << ": " << error;
}
