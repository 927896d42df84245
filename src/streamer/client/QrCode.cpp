#include "client/QrCode.h"

#include <memory>
#include <qrencode.h>

namespace cli {

QStringList qrCode(const QString& text, bool lightBlocks, int margin)
{
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        QRcode_encodeString8bit(text.toUtf8().constData(), 0, QR_ECLEVEL_L), QRcode_free);
    if (!code)
        return {};
    const int size = code->width;
    const auto hasBlock = [&](int x, int y) {
        const bool isInside = x >= 0 && y >= 0 && x < size && y < size;
        const bool isDark = isInside && (code->data[y * size + x] & 1) != 0;
        return isDark != lightBlocks;
    };
    static const QChar cells[] = {' ', QChar(0x2584), QChar(0x2580), QChar(0x2588)};
    QStringList lines;
    for (int y = -margin; y < size + margin; y += 2) {
        QString line;
        for (int x = -margin; x < size + margin; ++x) {
            const bool hasLower = y + 1 < size + margin && hasBlock(x, y + 1);
            line += cells[(hasBlock(x, y) ? 2 : 0) + (hasLower ? 1 : 0)];
        }
        lines.append(line);
    }
    return lines;
}

} // namespace cli
