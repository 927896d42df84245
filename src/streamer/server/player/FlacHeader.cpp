#include "FlacHeader.h"

namespace {
constexpr int streamInfoOffset = 8; // the marker "fLaC" and the metadata block's header
constexpr int streamInfoSize = 34;
constexpr quint64 millisecondsPerSecond = 1000;
} // namespace

qint64 flacDurationMs(const QByteArray& head)
{
    if (!head.startsWith("fLaC") || head.size() < streamInfoOffset + streamInfoSize)
        return 0;
    const auto* info = reinterpret_cast<const uchar*>(head.constData()) + streamInfoOffset;
    if ((info[-4] & 0x7f) != 0) // the first block is STREAMINFO, block type 0
        return 0;
    // RFC 9639 section 8.2: 20 bits of sample rate at byte 10, 36 bits of total samples at byte 13.
    const quint64 rate = quint64(info[10]) << 12 | quint64(info[11]) << 4 | info[12] >> 4;
    quint64 samples = info[13] & 0x0f;
    for (int i = 14; i < 18; ++i)
        samples = samples << 8 | info[i];
    return rate == 0 ? 0 : qint64(samples * millisecondsPerSecond / rate);
}
