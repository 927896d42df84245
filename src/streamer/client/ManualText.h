#pragma once

#include <QString>
#include <QStringList>

namespace cli {

/// Writes the text of a manual page in the `man` macros. A value, used by who makes one page. Every
/// text is escaped here: none can act as a macro.
class ManualText
{
public:
    /// \p date is the page's, "2030-01-31".
    ManualText(const QString& name, int section, const QString& date);

    void heading(const QString& text);
    void subheading(const QString& text);
    /// A paragraph; words between backquotes are set bold.
    void paragraph(const QString& text);
    /// An indented paragraph under \p tag, whose first \p boldWords words are bold.
    void tagged(const QString& tag, int boldWords, const QString& text);
    /// Lines as they are.
    void lines(const QStringList& lines);
    /// What follows is indented once more, until end().
    void begin() { m_text += ".RS\n"; }
    void end() { m_text += ".RE\n"; }

    const QString& text() const { return m_text; }

private:
    static QString escaped(const QString& text);
    /// \p text with its bold words, as short input lines.
    static QString filled(const QString& text);

    QString m_text;
    bool m_isAfterHeading = false; ///< where no paragraph is to be begun
};

} // namespace cli
