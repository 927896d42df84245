#pragma once
#include "settings/Settings.h"

#include <kelo/CMListRowsNode.h>
#include <kelo/CMNodesWorker.h>
#include <kelo/CMValueNode.h>

/// Publishes the settings that modules read as values below /settings. Made by serve, lives on a
/// thread of its own and serves on the caller's. Sound quality and paywall may be written until the
/// next start; it writes no file.
class SettingsWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    explicit SettingsWorker(const Settings& settings, QObject* parent = nullptr);

private:
    void addTidal(const TidalSettings& tidal);
    void addOAuth2(const OAuth2Settings& oauth2);
    void addSoundQuality(const QString& name);
    void addUsePostPaywall(bool use);
    /// A read-only value, with a row in the list of settings.
    CMValueNode* addValue(const CMPath& path, const TrString& title, const KeloValue& value);
    void addNode(CMValueNode* node, const TrString& title, const KeloValue& value);

    CMListRowsNode* m_list; ///< of the node tree
};
