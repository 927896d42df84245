#pragma once
#include "KeloExport.h"
#include "KeloNames.h"
#include <QHash>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <type_traits>

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

/// How a value of a type stands in a hash: as it is, where nothing else is said.
template <class Type, class = void>
struct KeloField
{
    static Type read(const QVariant& value) { return value.value<Type>(); }
    static QVariant written(const Type& value) { return value; }
};

template <class Type>
struct KeloField<Type, std::enable_if_t<std::is_base_of_v<KeloHash, Type>>>
{
    static Type read(const QVariant& value) { return Type(KeloHash(value.toHash())); }
    static QVariant written(const Type& value) { return value.toVariant(); }
};

template <class Type>
struct KeloField<QList<Type>>
{
    static QList<Type> read(const QVariant& value)
    {
        QList<Type> result;
        const QVariantList list = value.toList();
        for (const QVariant& entry : list)
            result.append(KeloField<Type>::read(entry));
        return result;
    }
    static QVariant written(const QList<Type>& values)
    {
        QVariantList list;
        for (const Type& value : values)
            list.append(KeloField<Type>::written(value));
        return list;
    }
};

/// How a setter takes a value.
template <class Type>
using KeloArgument = std::conditional_t<std::is_arithmetic_v<Type>, Type, const Type&>;

/// Declares a field of a KeloHash: Field(), its name, as KELO_NAME does; field(), its value, empty
/// where there is none; setField().
#define KELO_FIELD(Type, field, Field)                                                             \
    KELO_NAME(Field, #field)                                                                       \
    KELO_ACCESS(Type, field, Field)

/// The same for a name that is declared already.
#define KELO_ACCESS(Type, field, Field)                                                            \
    Type field() const                                                                             \
    {                                                                                              \
        return KeloField<Type>::read(value(Field()));                                              \
    }                                                                                              \
    void set##Field(KeloArgument<Type> field)                                                      \
    {                                                                                              \
        insert(Field(), KeloField<Type>::written(field));                                          \
    }

Q_DECLARE_METATYPE(KeloHash)
