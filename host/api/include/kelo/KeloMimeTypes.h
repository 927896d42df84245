#pragma once
#include "KeloNames.h"

/// Media types (RFC 6838) by name.
namespace MimeTypes {
struct Audio
{
    KELO_NAME(unknown, "audio/unknown")
};
struct Text
{
    KELO_NAME(plain, "text/plain")
};
} // namespace MimeTypes
