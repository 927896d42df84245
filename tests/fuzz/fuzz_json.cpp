#include <cstdint>
#include <cstdlib>
#include <kelo/KeloJson.h>

namespace {
/// Visits everything below a value with every reader; returns the number of values.
int walk(const KeloJson& json)
{
    int count = 1;
    if (json.toString().isNull() && json.isString() && !json.toUtf8().empty())
        std::abort();
    (void)json.toInt64();
    (void)json.toDouble();
    (void)json.toBool();
    int elements = 0;
    json.forEach([&](const KeloJson& element) {
        ++elements;
        count += walk(element);
    });
    json.forEachField([&](std::string_view key, const KeloJson& value) {
        ++elements;
        if (!json.contains(key))
            std::abort();
        count += walk(value);
    });
    if (elements != json.size())
        std::abort();
    return count;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), int(size));
    KeloError error;
    const KeloJson json = KeloJson::parse(text, &error);
    if (error.isSet())
        return json.isNull() ? 0 : (std::abort(), 0);
    walk(json);
    (void)json.toVariant();
    return 0;
}
