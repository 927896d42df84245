#include "ApiDocument.h"

#include <cmath>
#include <QJsonArray>
#include <QJsonObject>

namespace {

bool isOfType(const std::string& type, const QJsonValue& value)
{
    if (type == "string")
        return value.isString();
    if (type == "boolean")
        return value.isBool();
    if (type == "object")
        return value.isObject();
    if (type == "array")
        return value.isArray();
    if (type == "integer")
        return value.isDouble() && std::floor(value.toDouble()) == value.toDouble();
    return type == "number" && value.isDouble();
}

bool isOneOf(const YAML::Node& words, const QJsonValue& value)
{
    for (const YAML::Node& word : words) {
        if (value.toVariant().toString().toStdString() == word.as<std::string>())
            return true;
    }
    return false;
}

} // namespace

YAML::Node ApiDocument::resolved(YAML::Node node) const
{
    while (node["$ref"]) {
        const std::string path = node["$ref"].as<std::string>().substr(2); // behind "#/"
        YAML::Node target = YAML::Clone(m_root);
        for (size_t begin = 0; begin < path.size();) {
            const size_t end = std::min(path.find('/', begin), path.size());
            target.reset(target[path.substr(begin, end - begin)]);
            begin = end + 1;
        }
        node.reset(target);
    }
    return node;
}

YAML::Node ApiDocument::schemaOf(const YAML::Node& operation) const
{
    return resolved(operation["responses"]["200"])["content"]["application/json"]["schema"];
}

std::vector<std::string> ApiDocument::jsonCalls() const
{
    std::vector<std::string> calls;
    for (const auto& path : m_root["paths"]) {
        for (const auto& operation : path.second) {
            std::string method = operation.first.as<std::string>();
            std::transform(method.begin(), method.end(), method.begin(), ::toupper);
            if (schemaOf(operation.second).IsDefined())
                calls.push_back(method + ' ' + path.first.as<std::string>());
        }
    }
    return calls;
}

std::string ApiDocument::faultOf(const std::string& call, const QJsonValue& answer) const
{
    std::string method = call.substr(0, call.find(' '));
    std::transform(method.begin(), method.end(), method.begin(), ::tolower);
    return fault(schemaOf(m_root["paths"][call.substr(call.find(' ') + 1)][method]), answer, call);
}

std::string ApiDocument::faultOfSchema(const std::string& name, const QJsonValue& value) const
{
    return fault(m_root["components"]["schemas"][name], value, name);
}

std::string ApiDocument::fault(const YAML::Node& given, const QJsonValue& value,
                               const std::string& where) const
{
    const YAML::Node schema = resolved(given);
    if (schema["oneOf"]) {
        std::string faults;
        for (const YAML::Node& one : schema["oneOf"]) {
            const std::string found = fault(one, value, where);
            if (found.empty())
                return {};
            faults += found;
        }
        return faults;
    }
    if (schema["type"] && !isOfType(schema["type"].as<std::string>(), value))
        return where + ": is no " + schema["type"].as<std::string>() + "\n";
    if (schema["enum"] && !isOneOf(schema["enum"], value))
        return where + ": is none of the words\n";
    std::string faults;
    if (value.isArray() && schema["items"]) {
        const QJsonArray items = value.toArray();
        for (int i = 0; i < items.size(); ++i)
            faults += fault(schema["items"], items.at(i), where + '/' + std::to_string(i));
    }
    return value.isObject() ? faultOfObject(schema, value, where) : faults;
}

std::string ApiDocument::faultOfObject(const YAML::Node& schema, const QJsonValue& value,
                                       const std::string& where) const
{
    std::string faults;
    const QJsonObject object = value.toObject();
    for (const YAML::Node& name : schema["required"]) {
        if (!object.contains(QString::fromStdString(name.as<std::string>())))
            faults += where + ": lacks " + name.as<std::string>() + "\n";
    }
    const YAML::Node others = schema["additionalProperties"];
    for (auto field = object.begin(); field != object.end(); ++field) {
        const std::string name = field.key().toStdString();
        const YAML::Node known = schema["properties"] ? schema["properties"][name] : YAML::Node();
        if (known.IsDefined() && !known.IsNull())
            faults += fault(known, field.value(), where + '/' + name);
        else if (others.IsDefined() && others.IsMap())
            faults += fault(others, field.value(), where + '/' + name);
        else if (schema["properties"] && !others.IsDefined())
            faults += where + ": " + name + " is not described\n";
    }
    return faults;
}
