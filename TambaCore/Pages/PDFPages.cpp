#include "TambaCore/Pages/PDFPages.h"

#include <poppler/cpp/poppler-document.h>
#include <poppler/cpp/poppler-global.h>
#include <poppler/cpp/poppler-page-renderer.h>
#include <poppler/cpp/poppler-page.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace tamba::PDFPages {

namespace {

constexpr double maximumPixels = 100'000'000;  // of one page

Image rendered(const poppler::page_renderer& renderer, const poppler::page& page, int pixelWidth) {
    // The box lies on the unturned sheet.
    const poppler::rectf box = page.page_rect();
    const auto turned = page.orientation();
    const bool sideways = turned == poppler::page::landscape || turned == poppler::page::seascape;
    const double width = sideways ? box.height() : box.width();
    const double height = sideways ? box.width() : box.height();
    if (!(width > 0 && height > 0)) return Image::blank(pixelWidth, 1);
    const double scale = pixelWidth / width;
    const double rows = std::clamp(std::round(height * scale), 1.0, maximumPixels / pixelWidth);
    const poppler::image picture =
        renderer.render_page(&page, 72 * scale, 72 * scale, 0, 0, pixelWidth, static_cast<int>(rows));
    Image image = Image::blank(pixelWidth, static_cast<int>(rows));
    for (int y = 0; y < std::min(image.height, picture.height()); ++y) {
        // Native words: blue, green, red, alpha in memory.
        const char* row = picture.const_data() + std::ptrdiff_t{y} * picture.bytes_per_row();
        for (int x = 0; x < std::min(image.width, picture.width()); ++x)
            for (int channel = 0; channel < 3; ++channel)
                image.at(x, y)[channel] = static_cast<std::uint8_t>(row[4 * x + 2 - channel]);
    }
    return image;
}

}  // namespace

void eachImage(std::string_view pdf, int pixelWidth, const std::function<void(const Image& page)>& take) {
    if (pdf.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()) || pixelWidth < 1) return;
    poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
    const std::unique_ptr<poppler::document> document(
        poppler::document::load_from_raw_data(pdf.data(), static_cast<int>(pdf.size())));
    // Asking a locked document for its pages crashes Poppler 22.12.
    if (!document || document->is_locked()) return;
    poppler::page_renderer renderer;
    renderer.set_image_format(poppler::image::format_argb32);
    renderer.set_render_hint(poppler::page_renderer::antialiasing);
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    for (int i = 0; i < document->pages(); ++i)
        if (const std::unique_ptr<poppler::page> page(document->create_page(i)); page)
            take(rendered(renderer, *page, pixelWidth));
}

std::vector<Image> images(std::string_view pdf, int pixelWidth) {
    std::vector<Image> images;
    eachImage(pdf, pixelWidth, [&](const Image& page) { images.push_back(page); });
    return images;
}

}  // namespace tamba::PDFPages
