#pragma once

#include <cstdint>
#include <string>

// Invented names in several languages and scripts. Pure functions: the same number always gives the
// same name.
namespace kelosim {

std::string artistName(std::uint64_t number);
std::string albumTitle(std::uint64_t number);
std::string trackTitle(std::uint64_t number);
std::string playlistTitle(std::uint64_t number);
// "Night Mix" and the like.
std::string versionText(std::uint64_t number);
// About `size` characters of one title after another.
std::string longTitle(std::uint64_t number, std::size_t size);
// One sentence of plain English about a band or a list.
std::string sentence(std::uint64_t number);

} // namespace kelosim
