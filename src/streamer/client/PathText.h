#pragma once

#include <QMap>
#include <QString>

/// A node's path in its encoded text form, `base?k=v&k=v` with sorted keys, taken apart and put
/// together. A plain value. It knows the form alone, no particular path.
namespace cli {

struct PathText
{
    QString base;
    QMap<QString, QString> parameters; ///< decoded

    static PathText parse(const QString& encoded);
    QString encoded() const;
};

/// \p text as one word of a POSIX shell: bare where that is safe, else in single quotes.
QString shellWord(const QString& text);

} // namespace cli
