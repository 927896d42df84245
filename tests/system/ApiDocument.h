#pragma once
#include <QJsonValue>
#include <string>
#include <vector>
#include <yaml-cpp/yaml.h>

/// The document of the HTTP API, which says whether an answer is as described.
class ApiDocument
{
public:
    explicit ApiDocument(const std::string& file) : m_root(YAML::LoadFile(file)) {}

    /// The calls whose answer is described as JSON: "GET /api/v1/rows".
    std::vector<std::string> jsonCalls() const;
    /// What is wrong with the answer 200 of a call; empty when nothing is.
    std::string faultOf(const std::string& call, const QJsonValue& answer) const;
    /// What is wrong with a value that is to match a schema of this name.
    std::string faultOfSchema(const std::string& name, const QJsonValue& value) const;

private:
    YAML::Node resolved(YAML::Node node) const;
    YAML::Node schemaOf(const YAML::Node& operation) const;
    std::string fault(const YAML::Node& schema, const QJsonValue& value,
                      const std::string& where) const;
    std::string faultOfObject(const YAML::Node& schema, const QJsonValue& value,
                              const std::string& where) const;

    YAML::Node m_root;
};
