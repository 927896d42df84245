#include "WebWorld.h"

#include <gmock/gmock.h>
#include <yaml-cpp/yaml.h>

TEST(WebOpenApiTest, TheDocumentNamesTheCallsOfTheServerAndNoOthers)
{
    WebWorld world;
    std::vector<std::string> documented;
    for (const auto& path : YAML::LoadFile(KELO_OPENAPI)["paths"]) {
        for (const auto& operation : path.second) {
            std::string method = operation.first.as<std::string>();
            std::transform(method.begin(), method.end(), method.begin(), ::toupper);
            documented.push_back(method + ' ' + path.first.as<std::string>());
        }
    }
    std::vector<std::string> answered = world.server.routes();
    answered.insert(answered.end(), {"GET /", "GET /{file}", "GET /{folder}/{file}"});
    EXPECT_THAT(documented, testing::UnorderedElementsAreArray(answered));
}
