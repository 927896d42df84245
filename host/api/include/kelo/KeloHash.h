#pragma once
#include "KeloExport.h"
#include <QHash>
#include <QMetaType>
#include <QString>
#include <QVariant>

/// The hash behind every value, role map and error of the content tree: names to variants.
/// Deriving classes add named readers and setters and no members, so a KeloHash can be read as any
/// of them. A value type; copies are cheap.
class KELO_EXPORT KeloHash
{
public:
    KeloHash() = default;
    KeloHash(const QHash<QString, QVariant>& hash) : m_hash(hash) {}

    bool isEmpty() const { return m_hash.isEmpty(); }
    void clear() { m_hash.clear(); }
    bool contains(const QString& name) const { return m_hash.contains(name); }
    QVariant value(const QString& name) const { return m_hash.value(name); }
    void insert(const QString& name, const QVariant& value) { m_hash.insert(name, value); }
    void remove(const QString& name) { m_hash.remove(name); }
    void reserve(int size) { m_hash.reserve(size); }

    const QHash<QString, QVariant>& toHash() const { return m_hash; }
    QVariant toVariant() const { return QVariant(m_hash); }
    operator QVariant() const { return toVariant(); }

    bool operator==(const KeloHash& other) const { return m_hash == other.m_hash; }
    bool operator!=(const KeloHash& other) const { return m_hash != other.m_hash; }

private:
    QHash<QString, QVariant> m_hash;
};

Q_DECLARE_METATYPE(KeloHash)
