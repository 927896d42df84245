#pragma once
#include "CMUINode.h"
#include "KeloActionReply.h"
#include "KeloValue.h"

/// A shown node that holds a value, which clients may read, watch and, unless it is read-only,
/// write.
class KELO_EXPORT CMValueNode : public CMUINode
{
    Q_OBJECT
public:
    /// The value is guarded by the given mutex, not owned, or by the node's own.
    explicit CMValueNode(const CMPath& path, std::mutex* mutex = nullptr);
    static CMValueNode* create(CMNodes* nodes, const CMPath& path, std::mutex* mutex = nullptr);

    /// Any thread. Watchers are told, also when the new value equals the old one.
    void setValue(const KeloValue& value);
    KeloValue value() const;
    KeloValue nodeValue() const override { return value(); }
    void setEdit(const KeloEdit& edit) { store(m_state.edit, edit); }
    void setReadOnly(bool readOnly) { store(m_state.isReadOnly, readOnly); }
    /// Keeps the value out of the data roles, so that it is read inside the process alone.
    void setSecret(bool secret) { store(m_state.isSecret, secret); }

    /// Stores the value, as one of the type that the node holds already, and answers with an
    /// invalid variant; an error when read-only, or when what was sent is no value of that type.
    bool setDataRequest(const CMSetDataRequest& request) override;

protected:
    void addDataRoles(KeloRoles& roles, const CMPath::Params& params) const override;

private:
    std::mutex& valueMutex() const { return m_valueMutex ? *m_valueMutex : mutex(); }

    std::mutex* m_valueMutex;
    KeloValue m_value;
    struct State
    {
        KeloEdit edit;
        bool isReadOnly = false;
        bool isSecret = false;
    } m_state;
};
