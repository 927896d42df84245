#pragma once

#include <CLI/CLI.hpp>

namespace cli {

/// Help texts with the examples first: what a command does, how it looks in use, and only then its
/// options. Owned by the parser. The examples are the command's footer, one per line.
class HelpFormatter : public CLI::Formatter
{
public:
    std::string make_help(const CLI::App* app, std::string name,
                          CLI::AppFormatMode mode) const override;
};

} // namespace cli
