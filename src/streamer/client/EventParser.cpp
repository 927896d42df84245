#include "client/EventParser.h"

#include <utility>

namespace cli {

EventParser::EventParser(std::function<bool(const ServerEvent&)> handle)
    : m_handle(std::move(handle))
{
}

bool EventParser::feed(const char* bytes, size_t size)
{
    constexpr int longestEvent = 4 * 1024 * 1024;
    for (size_t i = 0; i < size; ++i) {
        const char c = bytes[i];
        const bool isSecondHalf = c == '\n' && m_afterReturn;
        m_afterReturn = c == '\r';
        if (isSecondHalf)
            continue;
        if (c == '\n' || c == '\r') {
            if (!takeLine())
                return false;
        } else {
            m_line.append(c);
            if (m_line.size() + m_event.data.size() > longestEvent)
                return false;
        }
    }
    return true;
}

bool EventParser::takeLine()
{
    const QByteArray line = std::exchange(m_line, {});
    if (line.isEmpty()) {
        ServerEvent event = std::exchange(m_event, {});
        if (event.name.isEmpty())
            event.name = "message";
        return !std::exchange(m_hasData, false) || m_handle(event);
    }
    const int colon = line.indexOf(':');
    const QByteArray field = colon < 0 ? line : line.left(colon);
    QByteArray value = colon < 0 ? QByteArray() : line.mid(colon + 1);
    if (value.startsWith(' '))
        value.remove(0, 1);
    if (field == "event") {
        m_event.name = value;
    } else if (field == "data") {
        if (m_hasData)
            m_event.data.append('\n');
        m_event.data.append(value);
        m_hasData = true;
    }
    return true;
}

} // namespace cli
