#pragma once
#include <optional>
#include <string>

/// A text in the gzip format (RFC 1952), at a level of 1 (quick) to 9 (small); nothing when there
/// is no memory for it. Any thread.
std::optional<std::string> gzip(const std::string& text, int level);
