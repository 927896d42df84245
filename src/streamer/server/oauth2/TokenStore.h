#pragma once
#include "TokenSet.h"

#include <kelo/KeloOAuth2.h>

/// Keeps the tokens of the services over a restart: one file each, readable by the owner alone, in
/// a folder that only the owner can enter. A file belongs to one token service and one client;
/// tokens that were made for others are not read. Owned by the OAuth2 worker, used on its thread.
class TokenStore
{
public:
    /// The folder is made when something is saved.
    explicit TokenStore(const QString& folder) : m_folder(folder) {}

    /// The tokens of a service; empty when there are none. A file that cannot be read counts as
    /// none and is reported. For the start: a draft that an end in the middle of save() left goes.
    TokenSet load(const KeloOAuth2ServiceInfo& info) const;
    /// On disk when it returns true; else the old file still stands, and the log says why.
    [[nodiscard]] bool save(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens) const;
    void remove(const KeloOAuth2ServiceInfo& info) const;

    QString fileName(const KeloOAuth2ServiceInfo& info) const;

private:
    bool makeFolder() const;

    const QString m_folder;
};
