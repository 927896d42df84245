#pragma once
#include <initializer_list>
#include <kelo/CMPath.h>
#include <string_view>
#include <vector>

/// Encoded texts of paths that differ in the values of a few parameters: the rows of a page share
/// everything else, so that is encoded once. Gives what CMPath::toEncoded() would. A value type of
/// one thread.
class TidalEncodedPath
{
public:
    /// `keys`: the parameters that differ, in the order in which text() gets their values. They
    /// replace parameters of the same names in the path.
    TidalEncodedPath(const CMPath& path, const QStringList& keys);

    /// The text for these values, which are UTF-8.
    QString text(std::initializer_list<std::string_view> values);

private:
    struct Gap
    {
        QByteArray before; ///< text that leads the value
        std::size_t value; ///< index of the value
    };

    std::vector<Gap> m_gaps;
    QByteArray m_tail;
    std::size_t m_sharedSize = 0; ///< of what all texts share
    std::vector<char> m_scratch;  ///< kept for its memory
};
