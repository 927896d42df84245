#pragma once
#include <string>

class QrMatrix;

/// A QR code as an SVG picture, black on white, with the quiet zone that readers want.
std::string qrPicture(const QrMatrix& code);
