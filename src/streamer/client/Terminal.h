#pragma once

#include <iosfwd>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace cli {

/// Where a command prints: results to one stream, errors to the other, with the width and the
/// colours that the reader has. Made by main() (or a test), used on the main thread only. It does
/// not clean text: what comes from the service goes through shown() first.
class Terminal
{
public:
    enum class Style { Plain, Bold, Dim, Good, Warning, Bad, Accent };

    /// The width where nothing is to be cut: what reads a pipe has no columns.
    static constexpr int unlimited = 1 << 24;

    struct Properties
    {
        int width = 80;
        bool isInteractive = false; ///< a person looks, at a terminal that can draw over lines
        bool hasColours = false;
        int height = 0; ///< 0: unknown
        /// Brings width and height up to date, where they can change.
        void (*measure)(Properties&) = nullptr;
    };

    Terminal(std::ostream& out, std::ostream& err, Properties properties);

    /// What stdout is: the width that COLUMNS says, else the terminal's (80 when unknown), of a
    /// pipe unlimited; and colours unless NO_COLOR is set.
    static Properties ofStdout();

    int width() const { return m_properties.width; }
    bool hasWidth() const { return m_properties.width < unlimited; }
    bool isInteractive() const { return m_properties.isInteractive; }
    bool hasColours() const { return m_properties.hasColours; }

    /// Prints one line and flushes, so that a reader at the other end of a pipe follows.
    void line(const QString& text = QString());
    void lines(const QStringList& all);
    /// Prints what went wrong, "kelo: ...", broken between words where a person looks at it. Where
    /// JSON is wanted it is one document a line, {"error":TEXT} with \p more beside it.
    void error(const QString& text, const QJsonObject& more = {});
    /// Prints a message for people beside the results; it tells of no failure.
    void note(const QString& text);
    void wantJson() { m_isJson = true; }
    bool isJson() const { return m_isJson; }
    /// Draws \p lines over the block that the last call drew; just prints them when nobody looks.
    /// Lines that the height has no room for are left out, with a line that says so; \p last stays.
    void redraw(const QStringList& lines, const QString& last = QString());
    /// Leaves the drawn block as it is; the next redraw() starts a new one.
    void keep() { m_drawn.clear(); }

    /// \p text in \p style; unchanged without colours.
    QString styled(const QString& text, Style style) const;

private:
    /// Lines of the screen that \p text takes.
    int heightOf(const QString& text) const;

    std::ostream& m_out;
    std::ostream& m_err;
    Properties m_properties;
    bool m_isJson = false; ///< errors are JSON
    QStringList m_drawn;   ///< the lines above the cursor that redraw() may draw over
};

} // namespace cli
