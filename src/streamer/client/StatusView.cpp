#include "client/StatusView.h"

#include "client/DisplayText.h"
#include "client/JsonText.h"
#include "client/PathText.h"
#include "TrackTitle.h"

namespace cli {

namespace {

QString joined(const QString& a, const QString& separator, const QString& b)
{
    return a.isEmpty() || b.isEmpty() ? a + b : a + separator + b;
}

} // namespace

StatusView::StatusView(const Terminal& terminal, const QJsonObject& player) : m_terminal(terminal)
{
    const auto number = [&player](const char* name) {
        return player.value(name).toVariant().toLongLong();
    };
    m_state = shown(textIn(player, "state"));
    m_artist = shown(textIn(player, "artist"));
    m_title = titleWithoutArtist(shown(textIn(player, "title")), m_artist);
    m_album = shown(textIn(player, "album"));
    m_path = shown(textIn(player, "path"));
    m_note = shown(textIn(player, "note"));
    const QJsonObject quality = objectIn(player, "quality");
    m_asked = shown(textIn(quality, "asked"));
    m_delivered = shown(textIn(quality, "delivered"));
    m_position = number("positionMs");
    m_duration = number("durationMs");
    m_volume = player.value("volume").toInt(-1);
    if (player.contains("shuffle"))
        m_modes.insert("shuffle", player.value("shuffle").toBool() ? "on" : "off");
    if (player.contains("repeat"))
        m_modes.insert("repeat", shown(textIn(player, "repeat")));
    m_list = shown(textIn(player, "listTitle"));
}

QString StatusView::styledState() const
{
    using Style = Terminal::Style;
    const Style style = m_state == "playing"   ? Style::Good
                        : m_state == "stopped" ? Style::Dim
                                               : Style::Warning;
    return m_terminal.styled(m_state, style);
}

QString StatusView::times() const
{
    if (m_duration <= 0)
        return m_position > 0 ? clockTime(m_position) : QString();
    return clockTime(m_position) + " / " + clockTime(m_duration);
}

QString StatusView::bar() const
{
    const int width = qBound(0, m_terminal.width() - columns(times()) - 4, 50);
    if (m_duration <= 0 || width < 8)
        return {};
    const int done =
        static_cast<int>(qBound<qint64>(0, m_position, m_duration) * width / m_duration);
    return m_terminal.styled(QString(done, QChar(0x2501)), Terminal::Style::Accent) +
           m_terminal.styled(QString(width - done, QChar(0x2500)), Terminal::Style::Dim);
}

QString StatusView::quality() const
{
    if (m_asked.isEmpty() || m_asked == m_delivered || m_delivered.isEmpty())
        return joined(m_delivered, QString(),
                      m_delivered.isEmpty() && !m_asked.isEmpty() ? m_asked + " asked" : QString());
    return QStringLiteral("%1 asked, %2 delivered").arg(m_asked, m_delivered);
}

QString StatusView::volume() const
{
    return m_volume < 0 ? QString() : QStringLiteral("%1 %").arg(m_volume);
}

QString StatusView::named(const QString& name) const
{
    const QString text = name == "volume" ? volume() : m_modes.value(name);
    return text.isEmpty() ? QString() : joined(name, m_terminal.hasWidth() ? "  " : "\t", text);
}

QStringList StatusView::block() const
{
    if (!m_terminal.hasWidth())
        return pairs();
    const int width = m_terminal.width();
    const int left = qMax(8, width - columns(m_state) - 2);
    QStringList lines{
        joined(styledState(), "  ", m_terminal.styled(cut(m_title, left), Terminal::Style::Bold))};
    const auto add = [&lines](const QString& line) {
        if (!line.isEmpty())
            lines.append("  " + line);
    };
    const auto addNamed = [&](const QString& name, const QString& text) {
        if (!text.isEmpty())
            add(m_terminal.styled(name.leftJustified(9), Terminal::Style::Dim) +
                cut(text, qMax(8, width - 11)));
    };
    add(cut(joined(m_artist, " · ", m_album), qMax(8, width - 2)));
    add(joined(bar(), "  ", times()));
    addNamed("from", m_list);
    addNamed("quality", quality());
    addNamed("volume", volume());
    for (auto it = m_modes.begin(); it != m_modes.end(); ++it)
        addNamed(it.key(), it.value() == "off" ? QString() : it.value());
    addNamed("note", m_note);
    if (!m_path.isEmpty()) // for pasting, so never cut
        add(m_terminal.styled("path     ", Terminal::Style::Dim) + shellWord(m_path));
    return lines;
}

QStringList StatusView::pairs() const
{
    QStringList lines;
    const auto add = [&lines](const QString& name, const QString& text) {
        if (!text.isEmpty())
            lines.append(name + '\t' + text);
    };
    add("state", m_state);
    add("title", m_title);
    add("artist", m_artist);
    add("album", m_album);
    add("position", m_path.isEmpty() ? QString() : clockTime(m_position));
    add("duration", m_duration > 0 ? clockTime(m_duration) : QString());
    add("from", m_list);
    add("quality", m_delivered);
    add("volume", m_volume < 0 ? QString() : QString::number(m_volume));
    for (auto it = m_modes.begin(); it != m_modes.end(); ++it)
        add(it.key(), it.value());
    add("note", m_note);
    add("path", m_path);
    return lines;
}

/// What names the item gives way to what stands behind it, which says nothing when it is cut.
QString StatusView::oneLine(bool withPosition) const
{
    const QString separator = "  ";
    const QString behind = joined(withPosition ? times() : QString(), separator, quality());
    QString line = joined(m_title, " - ", m_artist);
    if (!m_album.isEmpty())
        line += QStringLiteral(" (%1)").arg(m_album);
    const int left = qMax(8, m_terminal.width() - columns(m_state) - 2);
    if (!behind.isEmpty())
        line = joined(cut(line, qMax(8, left - columns(behind) - 2)), separator, behind);
    line = joined(line, separator, m_note);
    return joined(styledState(), separator, cut(line, left));
}

QString StatusView::fingerprint() const
{
    return QStringList{m_state,     m_title, m_artist,
                       m_album,     m_path,  m_asked,
                       m_delivered, m_note,  QString::number(m_duration)}
        .join('\n');
}

} // namespace cli
