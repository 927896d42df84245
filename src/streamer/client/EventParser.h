#pragma once

#include <functional>
#include <QByteArray>

namespace cli {

/// One server-sent event.
struct ServerEvent
{
    QByteArray name;
    QByteArray data;
};

/// Cuts a stream of bytes into server-sent events (WHATWG HTML, section 9.2.6), whose lines end in
/// a line feed, with or without a carriage return. Owned by the reader of one stream and used on
/// its thread. It does not reconnect and keeps no event ids.
class EventParser
{
public:
    /// \p handle is called for each whole event and returns false to take no more.
    explicit EventParser(std::function<bool(const ServerEvent&)> handle);

    /// Takes the next bytes, in pieces of any size. False when the handler wants no more or when an
    /// event grew past the limit (4 MiB), after which the parser must not be fed again.
    [[nodiscard]] bool feed(const char* bytes, size_t size);

private:
    bool takeLine(QByteArray line);

    std::function<bool(const ServerEvent&)> m_handle;
    QByteArray m_rest; ///< the unfinished line
    ServerEvent m_event;
    bool m_hasData = false;
};

} // namespace cli
