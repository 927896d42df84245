#pragma once
#include <QString>

/// Declares a static function that returns a name: of a role, a key, a path. The text is static
/// data, made once.
#define KELO_NAME(function, text)                                                                  \
    static const QString& function()                                                               \
    {                                                                                              \
        static const QString name = QStringLiteral(text);                                          \
        return name;                                                                               \
    }

/// The same for a name that belongs to no class.
#define KELO_WORD(function, text)                                                                  \
    inline const QString& function()                                                               \
    {                                                                                              \
        static const QString word = QStringLiteral(text);                                          \
        return word;                                                                               \
    }
