#include "QrPicture.h"

#include "qr/QrMatrix.h"

namespace {

/// Light squares around the code (ISO/IEC 18004).
constexpr int quietZone = 4;

} // namespace

std::string qrPicture(const QrMatrix& code)
{
    const std::string side = std::to_string(code.size() + 2 * quietZone);
    std::string picture = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + side + ' ' +
                          side + "\" shape-rendering=\"crispEdges\"><rect width=\"" + side +
                          "\" height=\"" + side + "\" fill=\"#fff\"/><path fill=\"#000\" d=\"";
    for (int y = 0; y < code.size(); ++y) {
        for (int x = 0; x < code.size(); ++x) {
            const int begin = x;
            while (code.isDark(x, y))
                ++x;
            if (x == begin)
                continue;
            const std::string width = std::to_string(x - begin);
            picture += 'M';
            picture += std::to_string(begin + quietZone);
            picture += ' ';
            picture += std::to_string(y + quietZone);
            picture.append("h").append(width).append("v1h-").append(width).append("z");
        }
    }
    return picture + "\"/></svg>\n";
}
