#pragma once
#include "CMAbstractWorker.h"
#include <QVariantHash>

/// A worker of one service: has a prefix in the host tree and settings.
class KELO_EXPORT CMWorker : public CMAbstractWorker
{
    Q_OBJECT
public:
    /// The prefix is the setting "prefix", or "/" and the service id.
    CMWorker(const QVariantHash& settings, const QString& serviceId, QObject* parent = nullptr);

    const QVariantHash& settings() const { return m_settings; }
    const QString& serviceId() const { return m_serviceId; }
    QStringList prefixes() const override { return {m_prefix}; }

    /// The path of a subpath under this worker's prefix, joined with exactly one "/"; an empty
    /// subpath gives the prefix itself.
    CMPath addPrefix(const QString& subpath) const;

    /// Any thread. Answered with true by the worker's own event loop: shows that it turns.
    CMReply<QVariant> ping();
    /// Writes a TRACE line to the service's log.
    void trace(const QString& text) const;

private:
    QVariantHash m_settings;
    QString m_serviceId;
    QString m_prefix;
};
