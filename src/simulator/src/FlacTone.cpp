#include "FlacTone.h"

#include "Melody.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <FLAC/stream_encoder.h>

namespace kelosim {

namespace {

// Cyclic redundancy checks of FLAC frames (RFC 9639, 9.1.8 and 9.3): polynomials 0x07 and 0x8005,
// both start at 0.
std::uint8_t crc8(const std::string& bytes)
{
    unsigned crc = 0;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc << 1 ^ ((crc & 0x80u) ? 0x07u : 0u)) & 0xFFu;
    }
    return std::uint8_t(crc);
}

std::uint16_t crc16(const std::string& bytes)
{
    static const std::array<std::uint16_t, 256> table = [] {
        std::array<std::uint16_t, 256> made{};
        for (unsigned i = 0; i < 256; ++i) {
            unsigned crc = i << 8;
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc << 1 ^ ((crc & 0x8000u) ? 0x8005u : 0u)) & 0xFFFFu;
            made[i] = std::uint16_t(crc);
        }
        return made;
    }();
    unsigned crc = 0;
    for (const char c : bytes)
        crc = (crc << 8 ^ table[crc >> 8 ^ static_cast<unsigned char>(c)]) & 0xFFFFu;
    return std::uint16_t(crc);
}

// The frame number in the extended UTF-8 form of FLAC; three bytes reach far enough here.
std::string codedNumber(std::size_t number)
{
    const auto byte = [](std::size_t value) { return char(value); };
    if (number < 0x80)
        return {byte(number)};
    if (number < 0x800)
        return {byte(0xC0 | number >> 6), byte(0x80 | (number & 0x3F))};
    return {byte(0xE0 | (number >> 12 & 0x0F)), byte(0x80 | (number >> 6 & 0x3F)),
            byte(0x80 | (number & 0x3F))};
}

constexpr std::size_t maxFrames = 0x10000 - 1;
constexpr std::size_t headSize = 4; // sync code to channel assignment, before the frame number
constexpr std::size_t crcSizes = 1 + 2;

FLAC__StreamEncoderWriteStatus collect(const FLAC__StreamEncoder*, const FLAC__byte* bytes,
                                       std::size_t size, std::uint32_t samples, std::uint32_t,
                                       void* frames)
{
    if (samples == flacBlock) // 0 for the metadata in front
        static_cast<std::vector<std::string>*>(frames)->emplace_back(
            reinterpret_cast<const char*>(bytes), size);
    return FLAC__STREAM_ENCODER_WRITE_STATUS_OK;
}

} // namespace

FlacTone::FlacTone(std::uint64_t number, int seconds)
{
    const std::size_t wanted = std::size_t(std::max(1, seconds)) * sampleRate;
    m_frameCount = std::min(maxFrames, (wanted + flacBlock / 2) / flacBlock);
    std::vector<std::int32_t> samples = composePattern(number);
    const std::size_t needed = m_frameCount * flacBlock * 2;
    if (samples.size() > needed)
        samples.resize(needed);
    encode(samples);
    std::uint64_t offset = header().size();
    for (std::size_t i = 0; isValid() && i <= m_frameCount; ++i) {
        m_offsets.push_back(offset);
        offset +=
            headSize + codedNumber(i).size() + crcSizes + m_frames[i % m_frames.size()].size();
    }
}

void FlacTone::encode(const std::vector<std::int32_t>& samples)
{
    std::vector<std::string> frames;
    FLAC__StreamEncoder* encoder = FLAC__stream_encoder_new();
    if (!encoder)
        return;
    FLAC__stream_encoder_set_channels(encoder, 2);
    FLAC__stream_encoder_set_bits_per_sample(encoder, 16);
    FLAC__stream_encoder_set_sample_rate(encoder, sampleRate);
    FLAC__stream_encoder_set_compression_level(encoder, 1);
    FLAC__stream_encoder_set_blocksize(encoder, flacBlock);
    const bool begun =
        FLAC__stream_encoder_init_stream(encoder, collect, nullptr, nullptr, nullptr, &frames) ==
        FLAC__STREAM_ENCODER_INIT_STATUS_OK;
    const auto count = std::uint32_t(samples.size() / 2);
    if (begun && FLAC__stream_encoder_process_interleaved(encoder, samples.data(), count))
        FLAC__stream_encoder_finish(encoder);
    FLAC__stream_encoder_delete(encoder);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const std::size_t front = headSize + codedNumber(i).size() + 1;
        m_heads.push_back(frames[i].substr(0, headSize));
        m_frames.push_back(frames[i].substr(front, frames[i].size() - front - 2));
    }
}

// "fLaC" and a STREAMINFO block (RFC 9639, 8.2) whose check sum of the audio is left unknown.
std::string FlacTone::header() const
{
    std::string out("fLaC\x80\x00\x00\x22", 8);
    const auto put = [&](std::uint64_t value, int bytes) {
        for (int i = bytes - 1; i >= 0; --i)
            out += char(value >> (8 * i) & 0xFF);
    };
    put(flacBlock, 2);
    put(flacBlock, 2);
    put(0, 6); // smallest and largest frame: unknown
    constexpr std::uint64_t channels = 2;
    constexpr std::uint64_t bits = 16;
    const std::uint64_t samples = m_frameCount * flacBlock;
    put(std::uint64_t(sampleRate) << 44 | (channels - 1) << 41 | (bits - 1) << 36 | samples, 8);
    put(0, 8);
    put(0, 8);
    return out;
}

std::string FlacTone::frame(std::size_t position) const
{
    const std::size_t source = position % m_frames.size();
    std::string out = m_heads[source] + codedNumber(position);
    out += char(crc8(out));
    out += m_frames[source];
    const unsigned crc = crc16(out);
    out += char(crc >> 8);
    out += char(crc & 0xFF);
    return out;
}

std::size_t FlacTone::read(std::uint64_t offset, char* out, std::size_t size) const
{
    std::size_t done = 0;
    while (done < size && offset < this->size()) {
        const auto next = std::upper_bound(m_offsets.begin(), m_offsets.end(), offset);
        const bool inHeader = next == m_offsets.begin();
        const std::string part =
            inHeader ? header() : frame(std::size_t(next - m_offsets.begin()) - 1);
        const std::uint64_t begin = inHeader ? 0 : *(next - 1);
        const auto skip = std::size_t(offset - begin);
        const std::size_t count = std::min(part.size() - skip, size - done);
        std::memcpy(out + done, part.data() + skip, count);
        done += count;
        offset += count;
    }
    return done;
}

} // namespace kelosim
