#include "JsonRows.h"

namespace {
/// A value as a document has it.
std::string encoded(const QString& role, const QVariant& value, const TextCatalogue* texts)
{
    JsonText json(texts);
    json.role(role, value);
    return json.text();
}

std::string encodedKey(const QString& name)
{
    JsonText json;
    json.key(name);
    return json.text();
}
} // namespace

JsonRows::JsonRows(const KeloRowBlock& block, const QStringList& roles, const TextCatalogue* texts)
    : m_block(block)
{
    const int count = qMin(roles.size(), int(block.columns().size()));
    for (int i = 0; i < count; ++i) {
        const KeloRowBlock::Value& value = block.columns()[size_t(i)];
        Part part{roles.at(i), encodedKey(roles.at(i)), {}, value.own, partsOf(value, texts)};
        if (part.own < 0 && part.parts.empty()) {
            if (!value.shared.isValid())
                continue;
            part.shared = encoded(part.name, value.shared, texts);
        }
        m_columns.push_back(std::move(part));
    }
}

std::vector<JsonRows::Part> JsonRows::partsOf(const KeloRowBlock::Value& hash,
                                              const TextCatalogue* texts)
{
    std::vector<Part> parts;
    std::string before; // shared fields
    for (const KeloRowBlock::Field& field : hash.hash) {
        const KeloRowBlock::Value& value = field.value;
        Part part{
            field.name, before + encodedKey(field.name), {}, value.own, partsOf(value, texts)};
        const bool isShared = part.own < 0 && part.parts.empty();
        if (isShared)
            part.shared = encoded(QString(), value.shared, texts);
        if (isShared && &field != &hash.hash.back()) {
            before = part.key + ':' + part.shared + ',';
            continue;
        }
        before.clear();
        parts.push_back(std::move(part));
    }
    return parts;
}

void JsonRows::write(JsonText& json) const
{
    for (int row = 0; row < m_block.size(); ++row) {
        const QVariant* const own = m_block.own(row);
        json.beginObject();
        for (const Part& part : m_columns) {
            if (part.own >= 0 && !own[part.own].isValid())
                continue;
            json.key(part.key);
            if (part.own >= 0)
                json.role(part.name, own[part.own]);
            else if (part.parts.empty())
                json.encodedValue(part.shared);
            else
                writeHash(json, part.parts, own);
        }
        json.endObject();
    }
}

void JsonRows::writeHash(JsonText& json, const std::vector<Part>& parts, const QVariant* own)
{
    json.beginObject();
    for (const Part& part : parts) {
        json.key(part.key);
        if (part.own >= 0)
            json.role(QString(), own[part.own]);
        else if (part.parts.empty())
            json.encodedValue(part.shared);
        else
            writeHash(json, part.parts, own);
    }
    json.endObject();
}
