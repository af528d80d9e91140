#include "TambaCore/Receipts/PDFFile.h"

#include "TambaCore/Base/Text.h"

#include <poppler/cpp/poppler-document.h>
#include <poppler/cpp/poppler-global.h>
#include <poppler/cpp/poppler-page-renderer.h>
#include <poppler/cpp/poppler-page.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace tamba {
namespace {

constexpr double dotsPerInch = 200;
constexpr double maximumPixels = 16'000'000;

}  // namespace

struct PDFFile::Document {
    std::unique_ptr<poppler::document> pdf;
};

PDFFile::PDFFile(std::unique_ptr<Document> document) : document_(std::move(document)) {}
PDFFile::PDFFile(PDFFile&&) noexcept = default;
PDFFile& PDFFile::operator=(PDFFile&&) noexcept = default;
PDFFile::~PDFFile() = default;

std::optional<PDFFile> PDFFile::open(const std::filesystem::path& file) {
    static const bool silent = [] {
        poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
        return true;
    }();
    static_cast<void>(silent);
    std::unique_ptr<poppler::document> pdf(poppler::document::load_from_file(file.string()));
    // Asking a locked document for its pages crashes Poppler 22.12.
    if (!pdf || pdf->is_locked() || pdf->pages() < 1) return std::nullopt;
    return PDFFile(std::make_unique<Document>(Document{std::move(pdf)}));
}

int PDFFile::pages() const { return document_->pdf->pages(); }

std::vector<std::string> PDFFile::text(int page) const {
    static const Text::Pattern gap(R"([\s\u00A0]{2,}|\t)");
    const std::unique_ptr<poppler::page> source(document_->pdf->create_page(page));
    if (!source) return {};
    const poppler::byte_array bytes = source->text(poppler::rectf(), poppler::page::physical_layout).to_utf8();
    std::vector<std::string> rows;
    for (const std::string& line : Text::splitLines(Text::repairedUTF8({bytes.data(), bytes.size()}))) {
        const std::string_view row = Text::trim(line);
        if (!row.empty()) rows.push_back(gap.replaceAll(row, "  "));
    }
    return rows;
}

std::optional<Raster> PDFFile::render(int page, Raster::Kind kind, int maximumWidth) const {
    const std::unique_ptr<poppler::page> source(document_->pdf->create_page(page));
    if (!source) return std::nullopt;
    const poppler::rectf box = source->page_rect();
    // The box lies on the unturned sheet.
    const auto turned = source->orientation();
    const bool sideways = turned == poppler::page::landscape || turned == poppler::page::seascape;
    const double width = (sideways ? box.height() : box.width()) / 72;
    const double height = (sideways ? box.width() : box.height()) / 72;
    if (!(width > 0 && height > 0)) return std::nullopt;
    const double dpi =
        std::min({dotsPerInch, maximumWidth / width, std::sqrt(maximumPixels / width / height), 30'000 / height});

    poppler::page_renderer renderer;
    const bool grey = kind == Raster::Kind::grey;
    renderer.set_image_format(grey ? poppler::image::format_gray8 : poppler::image::format_argb32);
    renderer.set_render_hint(poppler::page_renderer::antialiasing);
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    const poppler::image image = renderer.render_page(source.get(), dpi, dpi);
    if (!image.is_valid() || image.width() < 1 || image.height() < 1) return std::nullopt;

    Raster result{kind, image.width(), image.height(), {}};
    const std::size_t rowBytes = std::size_t(result.width) * (grey ? 1 : 4);
    result.pixels.resize(rowBytes * std::size_t(result.height));
    for (int y = 0; y < result.height; ++y)
        std::memcpy(result.pixels.data() + std::size_t(y) * rowBytes,
                    image.const_data() + std::ptrdiff_t{y} * image.bytes_per_row(), rowBytes);
    // Poppler's pixels are native words: blue, green, red, alpha in memory.
    for (std::size_t i = 0; !grey && i < result.pixels.size(); i += 4) {
        std::swap(result.pixels[i], result.pixels[i + 2]);
        result.pixels[i + 3] = 255;
    }
    return result;
}

}  // namespace tamba
