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
