#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <kelo/KeloUrl.h>

namespace {
bool isPrintable(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c > 0x20 && c < 0x7f; });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    const QString text = QString::fromUtf8(bytes);
    KeloUrl url(text);
    if (!isPrintable(url.toEncoded()) || !isPrintable(KeloUrl::fromEncoded(bytes).toEncoded()))
        std::abort();
    if (!(KeloUrl(url.toString()) == url))
        std::abort();
    url.setQueryItems({{text, text}});
    url.addEncodedQueryItem("k", KeloUrl::toPercentEncoding(text));
    const QByteArray query = url.toEncoded().mid(url.toEncoded().indexOf('?') + 1);
    const QByteArray beforeFragment =
        query.left(query.indexOf('#') < 0 ? query.size() : query.indexOf('#'));
    if (!isPrintable(url.toEncoded()) || beforeFragment.count('&') != 1 ||
        beforeFragment.count('=') != 2)
        std::abort();
    return 0;
}
