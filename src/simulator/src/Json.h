#pragma once

#include <cstdint>
#include <optional>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <string_view>
#include <type_traits>

namespace kelosim {

// Minified JSON, written in order. A value on a stack; one thread at a time.
class JsonWriter
{
public:
    JsonWriter() : m_writer(m_buffer) {}

    JsonWriter& beginObject() { return m_writer.StartObject(), *this; }
    JsonWriter& endObject() { return m_writer.EndObject(), *this; }
    JsonWriter& beginArray() { return m_writer.StartArray(), *this; }
    JsonWriter& endArray() { return m_writer.EndArray(), *this; }
    JsonWriter& key(std::string_view name)
    {
        m_writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
        return *this;
    }

    JsonWriter& value(std::string_view text)
    {
        m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
        return *this;
    }
    JsonWriter& value(const char* text) { return value(std::string_view(text)); }
    JsonWriter& value(std::nullptr_t) { return m_writer.Null(), *this; }
    JsonWriter& value(double number) { return m_writer.Double(number), *this; }
    template <typename T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
    JsonWriter& value(T number)
    {
        if constexpr (std::is_same_v<T, bool>)
            m_writer.Bool(number);
        else
            m_writer.Int64(static_cast<std::int64_t>(number));
        return *this;
    }
    template <typename T>
    JsonWriter& value(const std::optional<T>& maybe) // null when there is none
    {
        return maybe ? value(*maybe) : value(nullptr);
    }

    template <typename T>
    JsonWriter& field(std::string_view name, const T& content)
    {
        return key(name).value(content);
    }
    // Null in place of an empty text.
    JsonWriter& textOrNull(std::string_view name, const std::string& text)
    {
        return text.empty() ? field(name, nullptr) : field(name, text);
    }

    std::string take() { return {m_buffer.GetString(), m_buffer.GetSize()}; }

private:
    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer;
};

} // namespace kelosim
