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
    m_rest.append(bytes, static_cast<int>(size));
    int begin = 0;
    for (int end; (end = m_rest.indexOf('\n', begin)) >= 0; begin = end + 1) {
        if (!takeLine(m_rest.mid(begin, end - begin)))
            return false;
    }
    m_rest.remove(0, begin);
    return m_rest.size() + m_event.data.size() <= longestEvent;
}

bool EventParser::takeLine(QByteArray line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    if (line.isEmpty()) {
        const ServerEvent event = std::exchange(m_event, {});
        return !std::exchange(m_hasData, false) || m_handle(event);
    }
    const int colon = line.indexOf(':');
    const QByteArray field = line.left(colon);
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
