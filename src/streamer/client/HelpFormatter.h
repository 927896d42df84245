#pragma once

#include "client/Terminal.h"

#include <CLI/CLI.hpp>

namespace cli {

/// Help texts with the examples first: what a command does, how it looks in use, and only then its
/// options, wrapped to the reader's width. Owned by the parser. The examples are the command's
/// footer, one per line.
class HelpFormatter : public CLI::Formatter
{
public:
    /// Very wide terminals get lines that can still be read, pipes 80 columns.
    explicit HelpFormatter(const Terminal& terminal);

    std::string make_help(const CLI::App* app, std::string name,
                          CLI::AppFormatMode mode) const override;

private:
    int m_width;
};

} // namespace cli
