#pragma once
#include <QStringList>

/// A track's title without the artist that rows of tracks end in, for whoever shows the artist
/// beside it.
inline QString titleWithoutArtist(const QString& title, const QString& artist)
{
    const QString separator = QStringLiteral(" - ");
    for (const QString& name : QStringList{artist} + artist.split(QStringLiteral(", "))) {
        const QString end = separator + name;
        if (!name.isEmpty() && title.size() > end.size() && title.endsWith(end))
            return title.chopped(end.size());
    }
    return title;
}
