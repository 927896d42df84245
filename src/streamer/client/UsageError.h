#pragma once

#include <QString>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

namespace cli {

/// What to say of arguments that \p program has refused with \p error: what is wrong, what may have
/// been meant, and which help to look at. As it came from the person: not yet fit for a terminal.
QString usageMessage(const CLI::App& program, const CLI::ParseError& error);

} // namespace cli
