#pragma once
#include <QByteArray>
#include <QString>

/// A text as the squares of a QR code. A plain value; knows nothing of how it is drawn.
class QrMatrix
{
public:
    /// Empty when the text is, or when it is too long for a code.
    static QrMatrix encode(const QString& text);

    bool isEmpty() const { return m_size == 0; }
    /// Squares on a side.
    int size() const { return m_size; }
    /// Every square around the code is light.
    bool isDark(int x, int y) const
    {
        const bool isInside = x >= 0 && y >= 0 && x < m_size && y < m_size;
        return isInside && (m_squares.at(y * m_size + x) & 1) != 0;
    }

private:
    int m_size = 0;
    QByteArray m_squares; ///< row by row; the lowest bit is set for a dark one
};
