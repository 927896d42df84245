#pragma once
#include <algorithm>
#include <string>
#include <strings.h>
#include <utility>
#include <vector>

/// A request as it was received. A plain value.
struct HttpRequest
{
    std::string method;
    std::string target; ///< as it was sent: path and query
    std::string path;   ///< of the target, percent-decoded
    std::vector<std::pair<std::string, std::string>> fields;
    std::string body;
    bool isFromThisMachine = false; ///< over loopback

    /// The first header field of that name, in any case; empty when missing.
    std::string field(const char* name) const
    {
        for (const auto& [key, value] : fields) {
            if (::strcasecmp(key.c_str(), name) == 0)
                return value;
        }
        return {};
    }
    int fieldCount(const char* name) const
    {
        return int(std::count_if(fields.begin(), fields.end(), [name](const auto& field) {
            return ::strcasecmp(field.first.c_str(), name) == 0;
        }));
    }
};
