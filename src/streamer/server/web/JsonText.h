#pragma once
#include <deque>
#include <QJsonObject>
#include <QStringList>
#include <QVariant>
#include <QVarLengthArray>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <vector>

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
    void key(const QString& name) { m_writer.text(name); }
    void key(const std::string& encodedName) { m_writer.raw(encodedName); }
    /// A value that another document has encoded.
    void encodedValue(const std::string& value) { m_writer.raw(value); }
    /// Names as a document has them, made once for many rows.
    static std::vector<std::string> encoded(const QStringList& names);
    /// Any value: paths as their text, hashes and lists in depth; what has no JSON form is null.
    void field(const char* name, const QVariant& value);
    /// A role's value: as a field's, types by their names.
    void role(const QString& role, const QVariant& value);
    /// The title of a heading, which is one of our own texts even where it stands as a plain one.
    void heading(const QVariant& title);
    /// A hash of roles as an object.
    void roles(const char* name, const QVariantHash& roles);
    /// The same where no name goes before it.
    void rowRoles(const QVariantHash& roles);

    std::string text() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

    /// Appends what was written since the last time to a text, and goes on behind it.
    void moveTo(std::string& text);

    static std::string fromObject(const QJsonObject& object);

private:
    void string(const QString& text) { m_writer.text(text); }
    /// The library's writer for texts in UTF-16, which it would have copied first.
    class Writer : public rapidjson::Writer<rapidjson::StringBuffer>
    {
    public:
        using rapidjson::Writer<rapidjson::StringBuffer>::Writer;
        bool text(const QString& text);
        /// A string as it is to stand in the document.
        void raw(const std::string& string);
    };
    using Fields = QVarLengthArray<const QVariant*, 32>;

    bool writeOwnType(const QVariant& value, int depth);
    bool writePlain(const QVariant& value);
    void write(const QVariant& value, int depth);
    void writeHash(const QVariantHash& hash, int depth);
    /// The names of a hash in order.
    struct Order
    {
        QStringList names;
        std::vector<std::string> encoded;
    };
    /// And its values in the same order.
    const Order& sorted(const QVariantHash& hash, Fields& values);

    const TextCatalogue* m_texts;
    rapidjson::StringBuffer m_buffer;
    Writer m_writer{m_buffer};
    std::deque<Order> m_orders; ///< of the hashes so far: most rows have the same names
};
