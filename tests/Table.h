#pragma once
#include <tuple>
#include <vector>

/// The rows of a test that goes through a table; the loop names the columns.
template <class... Columns>
using Table = std::vector<std::tuple<Columns...>>;
