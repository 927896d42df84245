#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Text helpers of the simulator: URL and form decoding, case folding, dates, numbers.
namespace kelosim {

using Pairs = std::vector<std::pair<std::string, std::string>>;

std::string percentDecode(std::string_view text);
// "a=1&b=2" in its order; used for queries and for form bodies alike.
Pairs parsePairs(std::string_view text);
const std::string* findValue(const Pairs& pairs, std::string_view key);
// The value, or what is given for pairs without one.
std::string textKey(const Pairs& pairs, std::string_view key, const std::string& otherwise = {});
std::int64_t numberKey(const Pairs& pairs, std::string_view key, std::int64_t otherwise);

std::vector<std::string> split(std::string_view text, char separator); // empty parts kept
bool startsWith(std::string_view text, std::string_view prefix);
std::string lowerAscii(std::string_view text);
std::string upperAscii(std::string_view text);
// In lower case; what search and ordering compare.
std::string fold(std::string_view text);
// The whole text as a decimal number, nothing else accepted.
std::optional<std::int64_t> toNumber(std::string_view text);

// "2019-03-15T00:00:00.000+0000" and "2019-03-15" of milliseconds since 1970.
std::string dateTime(std::int64_t epochMs);
std::string dateOnly(std::int64_t epochMs);
// "Fri, 15 Mar 2019 00:00:00 GMT".
std::string httpDate(std::int64_t epochMs);
std::int64_t nowMs();

std::string base64(std::string_view bytes);
std::string base64Decode(std::string_view text);
std::string escapeHtml(std::string_view text);

// A well-mixed number of up to four others; the same inputs always give the same output.
std::uint64_t mix(std::uint64_t a, std::uint64_t b = 0, std::uint64_t c = 0, std::uint64_t d = 0);
std::uint64_t mixText(std::string_view text); // of its characters, one after the other
std::string hex(std::uint64_t value, int digits);

} // namespace kelosim
