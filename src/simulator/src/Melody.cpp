#include "Melody.h"

#include "Text.h"

#include <cmath>

namespace kelosim {

namespace {

constexpr int beats = 32;
constexpr std::size_t tableSize = 2048;

// One period of a soft tone: the sine and a few quiet overtones.
std::vector<float> makeTable(std::uint64_t number)
{
    std::vector<float> table(tableSize);
    for (std::size_t i = 0; i < tableSize; ++i) {
        const double phase = 2.0 * 3.14159265358979 * double(i) / tableSize;
        double value = std::sin(phase);
        for (int overtone = 2; overtone <= 4; ++overtone) {
            const auto part = double(mix(number, std::uint64_t(overtone)) % 100);
            value += part / 100.0 / (overtone * overtone) * std::sin(overtone * phase);
        }
        table[i] = float(value);
    }
    return table;
}

struct Note
{
    double pitch;      // semitones above A = 220 Hz
    std::size_t begin; // samples
    std::size_t length;
    float volume;
    float pan; // 0 left, 1 right
};

// Adds the note; what rings past the end of the pattern goes on at its beginning.
void play(const std::vector<float>& table, const Note& note, std::vector<float>& mixdown)
{
    const std::size_t total = mixdown.size() / 2;
    const double step = 220.0 * std::pow(2.0, note.pitch / 12.0) / sampleRate * tableSize;
    const float decay = std::pow(0.02f, 1.0f / float(note.length));
    constexpr std::size_t attack = 600;
    float level = note.volume;
    double phase = 0;
    std::size_t at = note.begin % total;
    for (std::size_t i = 0; i < note.length; ++i) {
        const float rise = i < attack ? float(i) / attack : 1.0f;
        const float left = float(note.length - i) / attack;
        const float value =
            table[std::size_t(phase) % tableSize] * level * rise * (left < 1.0f ? left : 1.0f);
        mixdown[2 * at] += value * (1.0f - note.pan);
        mixdown[2 * at + 1] += value * note.pan;
        level *= decay;
        phase += step;
        if (phase >= tableSize)
            phase -= tableSize;
        if (++at == total)
            at = 0;
    }
}

} // namespace

std::vector<std::int32_t> composePattern(std::uint64_t number)
{
    // Chords as degrees of the scale, so that everything fits together.
    static const int progressions[][4] = {{0, 4, 5, 3}, {0, 5, 3, 4}, {5, 3, 0, 4},
                                          {0, 3, 5, 4}, {0, 2, 3, 4}, {0, 5, 1, 4}};
    static const int scales[][7] = {
        {0, 2, 4, 5, 7, 9, 11}, {0, 2, 3, 5, 7, 8, 10}, {0, 2, 3, 5, 7, 9, 10}};
    const std::uint64_t hash = mix(number, 3);
    const int* progression = progressions[hash % 6];
    const int* scale = scales[hash / 6 % 3];
    const double root = -5.0 + double(hash / 18 % 12);
    const std::size_t beat = flacBlock * (4 + hash / 216 % 4) + (hash / 864 % 2) * flacBlock / 2;
    const std::vector<float> table = makeTable(number);
    std::vector<float> mixdown(2 * beat * beats, 0.0f);
    const auto pitch = [&](int degree) { return root + 12.0 * (degree / 7) + scale[degree % 7]; };
    for (int bar = 0; bar < beats / 4; ++bar) {
        const int chord = progression[bar / 2];
        const std::size_t begin = std::size_t(bar) * 4 * beat;
        play(table, {pitch(chord) - 12.0, begin, 2 * beat, 0.16f, 0.5f}, mixdown);
        play(table, {pitch(chord) - 12.0, begin + 2 * beat, 2 * beat, 0.13f, 0.5f}, mixdown);
        for (int voice = 0; voice < 3; ++voice)
            play(table, {pitch(chord + 2 * voice), begin, 4 * beat, 0.06f, 0.3f + 0.2f * voice},
                 mixdown);
        for (int step = 0; step < 8; ++step) {
            const std::uint64_t turn = mix(number, std::uint64_t(bar % 4), step, 9);
            if (turn % 4 == 0 && step != 0)
                continue; // a rest
            const int degree =
                chord + 7 + (step % 2 == 0 ? 2 * int(turn / 4 % 3) : int(turn / 4 % 6));
            play(table,
                 {pitch(degree), begin + std::size_t(step) * beat / 2, beat, 0.12f,
                  0.65f - 0.3f * float(bar % 2)},
                 mixdown);
        }
    }
    std::vector<std::int32_t> samples(mixdown.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const float value = mixdown[i] * 32767.0f;
        samples[i] = std::int32_t(value > 32767.0f    ? 32767.0f
                                  : value < -32768.0f ? -32768.0f
                                                      : value);
    }
    return samples;
}

} // namespace kelosim
