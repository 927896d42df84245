#pragma once
#include <string>

/// 256 bits of the system's random source as 64 hexadecimal digits: a text that nobody guesses.
std::string randomToken();
