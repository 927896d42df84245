#include "client/HelpFormatter.h"

#include <sstream>

namespace cli {

std::string HelpFormatter::make_help(const CLI::App* app, std::string name,
                                     CLI::AppFormatMode mode) const
{
    std::ostringstream text;
    text << app->get_description() << "\n\nExamples:\n";
    std::istringstream examples(app->get_footer());
    for (std::string line; std::getline(examples, line);)
        text << "  " << line << '\n';
    text << '\n'
         << make_usage(app, std::move(name)) << make_positionals(app) << make_groups(app, mode)
         << make_subcommands(app, mode);
    return text.str();
}

} // namespace cli
