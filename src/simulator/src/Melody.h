#pragma once

#include <cstdint>
#include <vector>

namespace kelosim {

constexpr int sampleRate = 44100;
constexpr int flacBlock = 4096; // samples per FLAC frame; a pattern is a whole number of these

// A seamless pattern of 32 beats in interleaved 16 bit stereo: four chords, a bass and a melody,
// different for every number.
std::vector<std::int32_t> composePattern(std::uint64_t number);

} // namespace kelosim
