#include "qr/QrMatrix.h"

#include <memory>
#include <qrencode.h>

QrMatrix QrMatrix::encode(const QString& text)
{
    QrMatrix matrix;
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        QRcode_encodeString8bit(text.toUtf8().constData(), 0, QR_ECLEVEL_L), QRcode_free);
    if (!code)
        return matrix;
    matrix.m_size = code->width;
    matrix.m_squares =
        QByteArray(reinterpret_cast<const char*>(code->data), code->width * code->width);
    return matrix;
}
