#pragma once
#include "StateFile.h"
#include "TokenSet.h"

#include <kelo/KeloOAuth2.h>
#include <map>

/// Keeps the tokens of the services over a restart: one file each, readable by the owner alone, in
/// a folder that only the owner can enter. A file belongs to one token service and one client;
/// tokens that were made for others are not read. Owned by the OAuth2 worker, used on its thread.
class TokenStore
{
public:
    /// The folder is made when something is saved.
    explicit TokenStore(const QString& folder) : m_folder(folder) {}

    /// The tokens of a service; empty when there are none. For the start.
    TokenSet load(const KeloOAuth2ServiceInfo& info);
    /// Where they cannot be kept the log says so.
    void save(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens);
    void remove(const KeloOAuth2ServiceInfo& info);

    QString fileName(const KeloOAuth2ServiceInfo& info) const;

private:
    StateFile& fileOf(const KeloOAuth2ServiceInfo& info);

    const QString m_folder;
    std::map<QString, StateFile> m_files; ///< by name
};
