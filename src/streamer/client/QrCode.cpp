#include "client/QrCode.h"

#include "qr/QrMatrix.h"

namespace cli {

QStringList qrCode(const QString& text, bool lightBlocks, int margin)
{
    const QrMatrix code = QrMatrix::encode(text);
    if (code.isEmpty())
        return {};
    const int end = code.size() + margin;
    const auto hasBlock = [&](int x, int y) { return code.isDark(x, y) != lightBlocks; };
    static const QChar cells[] = {' ', QChar(0x2584), QChar(0x2580), QChar(0x2588)};
    QStringList lines;
    for (int y = -margin; y < end; y += 2) {
        QString line;
        for (int x = -margin; x < end; ++x) {
            const bool hasLower = y + 1 < end && hasBlock(x, y + 1);
            line += cells[(hasBlock(x, y) ? 2 : 0) + (hasLower ? 1 : 0)];
        }
        lines.append(line);
    }
    return lines;
}

} // namespace cli
