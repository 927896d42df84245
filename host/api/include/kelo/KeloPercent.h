#pragma once
#include "KeloExport.h"
#include <optional>
#include <QByteArray>
#include <QString>
#include <string_view>

/// Percent encoding (RFC 3986 2.1): bytes of UTF-8 as "%XX", in upper case.
class KELO_EXPORT KeloPercent
{
public:
    /// What stays as it is.
    enum Plain : quint8 {
        Unreserved = 1, ///< letters, digits, "-", ".", "_", "~" (RFC 3986 2.3)
        Url = 2,        ///< what may stand in an address, escapes too
        Base = 4        ///< printable ASCII but "%", "?" and "#": the base of a CMPath
    };

    /// Writes the encoded text, which takes at most three times the room, and returns its end.
    static char* write(char* out, std::string_view utf8, Plain plain = Unreserved);
    static QByteArray encoded(const QByteArray& utf8, Plain plain = Unreserved);
    /// Nothing for an escape that is not two hex digits, and for what is not UTF-8 then.
    static std::optional<QString> decoded(const QByteArray& text);
};
