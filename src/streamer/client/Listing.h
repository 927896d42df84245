#pragma once

#include <optional>
#include <QJsonObject>
#include <QString>
#include <QVector>

namespace cli {

/// A row that was shown with a number, as far as a later command needs it.
struct ListedRow
{
    int number = -1;
    QString title = {};
    QString path = {};
    QString list = {}; ///< the list that it stood in, and where; empty for a path that was typed
    int index = -1;
    qint64 queueVersion = -1; ///< where the number is a position in the player's queue
};

/// The numbered rows that a terminal showed last. A plain value, kept by UserState.
struct Listing
{
    static constexpr int mostRows = 2000;

    QString server;           ///< the streamer that they are from
    qint64 queueVersion = -1; ///< of the player's queue, which was shown; else negative
    QVector<ListedRow> rows = {};

    /// Adds rows of a page, at most \p limit; the first gets the number \p first, or the one that
    /// it has in its list. More than mostRows are left out.
    void add(const QJsonObject& page, int limit = -1, int first = -1);
    /// The row with a number; null when there is none.
    const ListedRow* at(int number) const;
    /// The rows that \p text names: those with that title, else those whose titles begin with it;
    /// letters may be small or large. The same path counts once.
    QVector<ListedRow> called(const QString& text) const;

    QByteArray toJson() const;
    static Listing fromJson(const QByteArray& text);
};

} // namespace cli
