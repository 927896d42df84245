#pragma once
#include <QJsonObject>
#include <QVariant>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>

class TextCatalogue;

/// Writes a JSON document from what the content tree answers with, its texts in a client's
/// language. One document per object, on one thread. Keys of hashes come out sorted, so equal
/// answers are equal texts.
class JsonText
{
public:
    /// Without a catalogue the texts are the built-in ones.
    explicit JsonText(const TextCatalogue* texts = nullptr);

    void beginObject() { m_writer.StartObject(); }
    void endObject() { m_writer.EndObject(); }
    void beginArray() { m_writer.StartArray(); }
    void endArray() { m_writer.EndArray(); }
    void key(const QString& name);
    /// Any value: paths as their text, hashes and lists in depth; what has no JSON form is null.
    void field(const char* name, const QVariant& value);
    /// A role's value: as a field's, types by their names.
    void role(const QString& role, const QVariant& value);
    /// The title of a heading, which is one of our own texts even where it stands as a plain one.
    void heading(const QVariant& title);
    /// A hash of roles as an object.
    void roles(const char* name, const QVariantHash& roles);

    std::string text() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

    static std::string fromObject(const QJsonObject& object);

private:
    void string(const QString& text);
    QVariant unwrapped(const QVariant& value) const;
    void write(const QVariant& value, int depth);
    bool writePlain(const QVariant& value);
    template <class Map>
    void writeMap(const Map& map, QStringList keys, int depth);

    const TextCatalogue* m_texts;
    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
};
