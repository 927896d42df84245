#pragma once

#include "client/Terminal.h"

#include <QJsonObject>

namespace cli {

/// The player's answer as text: a block of lines with a position bar, or one line. A value made for
/// one answer, used on the main thread.
class StatusView
{
public:
    StatusView(const Terminal& terminal, const QJsonObject& player);

    QStringList block() const;
    /// "40 %"; empty when it is not said.
    QString volume() const;
    QString oneLine(bool withPosition = true) const;
    /// What tells one answer from the next for somebody who follows: all but position and volume.
    QString fingerprint() const;

private:
    QString styledState() const;
    QString bar() const;
    QString times() const;
    QString quality() const;

    const Terminal& m_terminal;
    QString m_state, m_title, m_artist, m_album, m_path, m_asked, m_delivered, m_note;
    qint64 m_position = 0;
    qint64 m_duration = 0;
    int m_volume = -1; ///< negative when it is not said
};

} // namespace cli
