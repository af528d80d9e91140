#include "TambaCore/Receipts/PDFFile.h"

#include "TambaCore/Base/Text.h"

#include <poppler/cpp/poppler-document.h>
#include <poppler/cpp/poppler-global.h>
#include <poppler/cpp/poppler-page-renderer.h>
#include <poppler/cpp/poppler-page.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>

namespace tamba {
namespace {

constexpr double dotsPerInch = 200;
constexpr double maximumPixels = 16'000'000;

constexpr std::chrono::seconds timeForOneFile{20};

std::unique_ptr<poppler::document> load(const std::filesystem::path& file) {
    poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
    std::unique_ptr<poppler::document> pdf(poppler::document::load_from_file(file.string()));
    // Asking a locked document for its pages crashes Poppler 22.12.
    if (!pdf || pdf->is_locked()) return nullptr;
    return pdf;
}

std::unique_ptr<poppler::page> pageOf(poppler::document* pdf, int page) {
    return std::unique_ptr<poppler::page>(pdf ? pdf->create_page(page) : nullptr);
}

// A raster as bytes: width and height, then the pixels.
std::string packed(int width, int height, std::string pixels) {
    const std::int32_t sides[] = {width, height};
    pixels.insert(0, reinterpret_cast<const char*>(sides), sizeof sides);
    return pixels;
}

std::string rendered(const poppler::page* source, Raster::Kind kind, int maximumWidth) {
    if (!source) return {};
    const poppler::rectf box = source->page_rect();
    // The box lies on the unturned sheet.
    const auto turned = source->orientation();
    const bool sideways = turned == poppler::page::landscape || turned == poppler::page::seascape;
    const double width = (sideways ? box.height() : box.width()) / 72;
    const double height = (sideways ? box.width() : box.height()) / 72;
    if (!(width > 0 && height > 0)) return {};
    const double dpi =
        std::min({dotsPerInch, maximumWidth / width, std::sqrt(maximumPixels / width / height), 30'000 / height});

    poppler::page_renderer renderer;
    const bool grey = kind == Raster::Kind::grey;
    renderer.set_image_format(grey ? poppler::image::format_gray8 : poppler::image::format_argb32);
    renderer.set_render_hint(poppler::page_renderer::antialiasing);
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    const poppler::image image = renderer.render_page(source, dpi, dpi);
    if (!image.is_valid() || image.width() < 1 || image.height() < 1) return {};

    const std::size_t rowBytes = std::size_t(image.width()) * (grey ? 1 : 4);
    std::string pixels(rowBytes * std::size_t(image.height()), '\0');
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(pixels.data() + std::size_t(y) * rowBytes,
                    image.const_data() + std::ptrdiff_t{y} * image.bytes_per_row(), rowBytes);
    // Poppler's pixels are native words: blue, green, red, alpha in memory.
    for (std::size_t i = 0; !grey && i < pixels.size(); i += 4) {
        std::swap(pixels[i], pixels[i + 2]);
        pixels[i + 3] = '\xFF';
    }
    return packed(image.width(), image.height(), std::move(pixels));
}

}  // namespace

std::optional<PDFFile> PDFFile::open(const std::filesystem::path& file, const std::atomic<bool>* cancel) {
    PDFFile pdf;
    pdf.file_ = file;
    pdf.cancel_ = cancel;
    pdf.deadline_ = std::chrono::steady_clock::now() + timeForOneFile;
    const auto count = inOwnProcess(
        [&file] {
            const auto document = load(file);
            return document ? std::to_string(document->pages()) : std::string();
        },
        pdf.deadline_, cancel);
    if (!count) return std::nullopt;
    std::from_chars(count->data(), count->data() + count->size(), pdf.pages_);
    if (pdf.pages_ < 1) return std::nullopt;
    return pdf;
}

std::optional<std::vector<std::string>> PDFFile::text(int page) const {
    static const Text::Pattern gap(R"([\s\u00A0]{2,}|\t)");
    const auto bytes = inOwnProcess(
        [&] {
            const auto document = load(file_);
            const auto source = pageOf(document.get(), page);
            if (!source) return std::string();
            const poppler::byte_array text = source->text(poppler::rectf(), poppler::page::physical_layout).to_utf8();
            return std::string(text.data(), text.size());
        },
        deadline_, cancel_);
    if (!bytes) return std::nullopt;
    std::vector<std::string> rows;
    for (const std::string& line : Text::splitLines(Text::repairedUTF8(*bytes))) {
        const std::string_view row = Text::trim(line);
        if (!row.empty()) rows.push_back(gap.replaceAll(row, "  "));
    }
    return rows;
}

std::optional<Raster> PDFFile::render(int page, Raster::Kind kind, int maximumWidth) const {
    const auto bytes = inOwnProcess(
        [&] {
            const auto document = load(file_);
            return rendered(pageOf(document.get(), page).get(), kind, maximumWidth);
        },
        deadline_, cancel_);
    std::int32_t sides[2] = {};
    if (!bytes || bytes->size() <= sizeof sides) return std::nullopt;
    std::memcpy(sides, bytes->data(), sizeof sides);
    return Raster{kind, sides[0], sides[1], {bytes->begin() + sizeof sides, bytes->end()}};
}

}  // namespace tamba
