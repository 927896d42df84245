#include <cstdint>
#include <cstdlib>
#include <kelo/CMPath.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    bool isGood = false;
    const CMPath read = CMPath::fromEncoded(text, &isGood);
    if (isGood) {
        const QString encoded = read.toEncoded();
        const CMPath again = CMPath::fromEncoded(encoded, &isGood);
        if (!isGood || again != read || again.toEncoded() != encoded)
            std::abort();
    }
    // Any text may stand in a path: as base, parameter name and value.
    CMPath made(text);
    if (!text.isEmpty())
        made.addParam(text, text);
    const CMPath back = CMPath::fromEncoded(made.toEncoded(), &isGood);
    if (!isGood || back != made)
        std::abort();
    (void)made.splitBase();
    return 0;
}
