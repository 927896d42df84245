#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelosim {

// One piece of music as a FLAC file that is never held whole: a pattern of some seconds is composed
// and encoded once, and every read puts its frames together with the numbers and check sums of
// their place in the file. Immutable after construction; any thread may read.
class FlacTone
{
public:
    // The same number always gives the same music. The length is rounded to whole frames (93 ms).
    FlacTone(std::uint64_t number, int seconds);

    bool isValid() const { return !m_frames.empty(); }
    std::uint64_t size() const { return m_offsets.empty() ? 0 : m_offsets.back(); }
    // Copies up to `size` bytes from `offset` to `out`; 0 at the end.
    std::size_t read(std::uint64_t offset, char* out, std::size_t size) const;

private:
    void encode(const std::vector<std::int32_t>& samples);
    std::string header() const;
    std::string frame(std::size_t position) const;

    std::size_t m_frameCount = 0;         // of the whole file
    std::vector<std::string> m_frames;    // the pattern's, without frame header and footer
    std::vector<std::string> m_heads;     // the four fixed bytes of each
    std::vector<std::uint64_t> m_offsets; // where each frame of the file begins, and its end
};

} // namespace kelosim
