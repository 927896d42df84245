#include "Images.h"

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio> // jpeglib.h needs FILE
#include <cstdlib>
#include <jpeglib.h>

namespace kelosim {

namespace {

struct Size
{
    int width;
    int height;
};

const std::vector<Size>& sizesOf(PictureKind kind)
{
    static const std::vector<Size> sizes[] = {
        {{80, 80}, {160, 160}, {320, 320}, {640, 640}, {1280, 1280}},
        {{160, 160}, {320, 320}, {480, 480}, {750, 750}, {160, 107}, {320, 214}, {1080, 720}},
        {{160, 107}, {320, 214}, {480, 320}, {750, 500}, {1080, 720}},
        {{160, 160}, {320, 320}, {480, 480}, {640, 640}, {750, 750}, {1080, 1080}},
        {{460, 306}},
        {{342, 342}},
        {{160, 107}, {480, 320}, {750, 500}, {1080, 720}}};
    return sizes[int(kind)];
}

// "320x320.jpg" or "origin.jpg" as a size of the kind; width 0 for none.
Size sizeNamed(const std::string& name, PictureKind kind)
{
    if (name == "origin.jpg")
        return sizesOf(kind).back();
    for (const Size& size : sizesOf(kind)) {
        if (name == std::to_string(size.width) + "x" + std::to_string(size.height) + ".jpg")
            return size;
    }
    return {0, 0};
}

// Red, green and blue of a hue (degrees) at a brightness of 0 to 1.
void colour(double hue, double value, JSAMPLE* out)
{
    for (int channel = 0; channel < 3; ++channel) {
        const double at = std::fmod(hue / 60.0 + (channel == 0 ? 5 : channel == 1 ? 3 : 1), 6.0);
        const double part = std::max(0.0, std::min({at, 4.0 - at, 1.0}));
        out[channel] = JSAMPLE(255.0 * (value - value * 0.65 * part));
    }
}

// A gradient in the item's hue with three rings that differ from item to item.
void drawRow(const Catalogue::Picture& picture, Size size, int y, std::vector<JSAMPLE>& row)
{
    const double v = double(y) / size.height;
    const double ratio = double(size.width) / size.height;
    for (int x = 0; x < size.width; ++x) {
        const double u = double(x) / size.width;
        double hue = picture.hue + 50.0 * u;
        double value = 0.85 - 0.45 * v;
        for (int ring = 0; ring < 3; ++ring) {
            const std::uint64_t place = picture.pattern >> (ring * 12);
            const double dx = (u - double(place % 64) / 64.0) * ratio;
            const double dy = v - double(place / 64 % 64) / 64.0;
            const double distance = dx * dx + dy * dy;
            const double radius = 0.03 + 0.05 * ring;
            if (distance < radius) {
                hue += 40.0;
                value += distance < radius * 0.6 ? 0.12 : 0.05;
            }
        }
        colour(hue, std::min(1.0, value), &row[std::size_t(x) * 3]);
    }
}

struct Failure
{
    jpeg_error_mgr base; // first, so that the library's pointer is one to this
    std::jmp_buf jump;
};

// The library's own handler would end the process.
void fail(j_common_ptr state)
{
    std::longjmp(reinterpret_cast<Failure*>(state->err)->jump, 1);
}

std::string encode(const Catalogue::Picture& picture, Size size)
{
    std::vector<JSAMPLE> row(std::size_t(size.width) * 3);
    unsigned char* volatile buffer = nullptr;
    unsigned char* target = nullptr;
    unsigned long bytes = 0;
    jpeg_compress_struct state{};
    Failure failure{};
    state.err = jpeg_std_error(&failure.base);
    failure.base.error_exit = fail;
    if (setjmp(failure.jump) != 0) {
        jpeg_destroy_compress(&state);
        std::free(buffer);
        return {};
    }
    jpeg_create_compress(&state);
    jpeg_mem_dest(&state, &target, &bytes);
    state.image_width = JDIMENSION(size.width);
    state.image_height = JDIMENSION(size.height);
    state.input_components = 3;
    state.in_color_space = JCS_RGB;
    jpeg_set_defaults(&state);
    jpeg_set_quality(&state, 80, TRUE);
    jpeg_start_compress(&state, TRUE);
    for (int y = 0; y < size.height; ++y) {
        drawRow(picture, size, y, row);
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&state, rows, 1);
    }
    jpeg_finish_compress(&state);
    jpeg_destroy_compress(&state);
    buffer = target;
    std::string result(reinterpret_cast<char*>(target), bytes);
    std::free(buffer);
    return result;
}

HttpResponse denied()
{
    return {403, "application/xml",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<Error><Code>AccessDenied</Code></Error>"};
}

} // namespace

HttpResponse Images::serve(const HttpRequest& request)
{
    const std::vector<std::string>& segments = request.segments; // "images", five groups, size
    if (segments.size() != 7 || !request.isGet())
        return denied();
    std::string id = segments[1];
    for (std::size_t i = 2; i < 6; ++i)
        id += "-" + segments[i];
    const auto picture = m_catalogue.picture(id);
    if (!picture)
        return denied();
    const Size size = sizeNamed(segments[6], picture->kind);
    if (size.width == 0)
        return denied();
    HttpResponse response{200, "image/jpeg", encode(*picture, size)};
    response.transport.compress = false;
    response.headers.emplace_back("Cache-Control", "max-age=86400");
    return response.body.empty() ? HttpResponse::html(500, "No encoder") : response;
}

} // namespace kelosim
