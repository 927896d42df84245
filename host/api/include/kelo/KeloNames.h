#pragma once
#include <QString>
#include <type_traits>

/// Declares a static function that returns a name: of a role, a key, a path. The text is static
/// data, made once.
#define KELO_NAME(function, text)                                                                  \
    static const QString& function()                                                               \
    {                                                                                              \
        static const QString name = QStringLiteral(text);                                          \
        return name;                                                                               \
    }

/// How a setter takes a value.
template <class Type>
using KeloArgument = std::conditional_t<std::is_arithmetic_v<Type>, Type, const Type&>;

/// Declares a field of a KeloHash: Field(), its name, as KELO_NAME does; field(), its value, empty
/// where there is none; setField().
#define KELO_FIELD(Type, field, Field)                                                             \
    KELO_NAME(Field, #field)                                                                       \
    Type field() const                                                                             \
    {                                                                                              \
        return value(Field()).value<Type>();                                                       \
    }                                                                                              \
    void set##Field(KeloArgument<Type> field)                                                      \
    {                                                                                              \
        insert(Field(), field);                                                                    \
    }
