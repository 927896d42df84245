#pragma once

#include "client/Terminal.h"

#include <QJsonObject>

namespace cli {

/// A page of rows as an aligned table: row number, type mark, title, description or, of a setting,
/// its value, how long it lasts where that is told, path. A path is never cut, since it is what a
/// person copies into the next command; where it does not fit it takes a line of its own, or is
/// left out. A value made for one page, used on the main thread. It fetches nothing.
class RowsTable
{
public:
    struct Options
    {
        int limit = -1; ///< the highest number of rows shown
        int first = -1; ///< the number of the first one, where it is not that in its list
        /// Usual: a person at a terminal, where numbers do, gets them where all fit beside and
        /// nothing is cut for them.
        enum class Paths { Usual, Never, Always } paths = Paths::Usual;
    };

    /// \p page is the answer of `rows`.
    RowsTable(const Terminal& terminal, const QJsonObject& page, Options options);
    RowsTable(const Terminal& terminal, const QJsonObject& page)
        : RowsTable(terminal, page, Options())
    {
    }

    /// Where no person looks: number, type, title, description and path, with tabs between. Of
    /// rows \p from on, \p count of them or all.
    QStringList lines(int from = 0, int count = -1) const;

    /// The container's title, or its path where it has none; fit for a terminal.
    static QString heading(const QJsonObject& page);
    /// One column that tells the kind of a row.
    static QString mark(const QJsonObject& row);
    static QString title(const QJsonObject& row);
    static bool isDisabled(const QJsonObject& row);
    /// Whether a row is a setting or one of its choices, which have a value.
    static bool hasValue(const QJsonObject& row);

private:
    struct Row
    {
        QString number, type, mark, title, description, length, path;
        bool isHeader = false;
        bool isDisabled = false;
    };

    void measure();
    void share(int width);
    int usualTitleWidth() const;
    QStringList drawn(const Row& row) const;

    const Terminal& m_terminal;
    const bool m_arePathsExtra; ///< nothing is cut for them
    QList<Row> m_rows;
    int m_numberWidth = 1;
    int m_titleWidth = 0;
    int m_descriptionWidth = 0;
    int m_lengthWidth = 0;
    bool m_pathsBelow = false;
};

} // namespace cli
