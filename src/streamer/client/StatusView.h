#pragma once

#include "client/Terminal.h"

#include <QJsonObject>
#include <QMap>

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
    /// "volume  40 %"; empty when \p name is nothing that is told in this way.
    QString named(const QString& name) const;
    QString oneLine(bool withPosition = true) const;
    /// What tells one answer from the next for somebody who follows: all but position and volume.
    QString fingerprint() const;

private:
    /// One name and its text a line, for what reads a pipe.
    QStringList pairs() const;
    QString styledState() const;
    QString bar() const;
    QString times() const;
    QString quality() const;

    const Terminal& m_terminal;
    QString m_state, m_title, m_artist, m_album, m_path, m_asked, m_delivered, m_note;
    qint64 m_position = 0;
    qint64 m_duration = 0;
    QString m_list;                 ///< what the list is called that it plays from
    QMap<QString, QString> m_modes; ///< shuffle, repeat
    int m_volume = -1;              ///< negative when it is not said
};

} // namespace cli
