#pragma once
#include <functional>
#include <kelo/CMValueNode.h>

/// A setting that clients may write: a value node that reads what they send, so that a plain text
/// or number serves as well as the setting's own type, and refuses everything else. Owned by its
/// tree; serves on the caller's thread. It does not keep a written value over a restart.
class SettingNode : public CMValueNode
{
    Q_OBJECT
public:
    /// Brings a value into the setting's own type; empty when it is not wanted.
    using Reader = std::function<KeloValue(const KeloValue&)>;

    /// `wanted` says what the setting takes, to follow the word "wanted".
    SettingNode(const CMPath& path, Reader reader, const QString& wanted);

    bool setDataRequest(const CMSetDataRequest& request) override;

private:
    const Reader m_reader;
    const QString m_wanted;
};
