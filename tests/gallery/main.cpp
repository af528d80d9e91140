// Pictures of the pages of every gallery document, as scripts/shots keeps them in docs/gallery.
//     gallery FOLDER
#include "TambaCore/Fixtures/Documents.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Pages/PDFPages.h"

#include <cstdio>
#include <exception>
#include <filesystem>

using namespace tamba;

namespace {

constexpr int widthAt100Dots = 827;
constexpr std::size_t pagesShown = 2;

/// A mark in the accent of the sample business, as a logo.
Image logo() {
    auto canvas = PDFCanvas::bitmap({160, 48}, 4);
    canvas.fill({0, 0, 48, 48}, Color::hex("C98A1B"), 24);
    canvas.fill({24, 0, 24, 48}, Color::hex("1E4A66"));
    canvas.text("halad & ink", 58, 13, 100,
                {.font = PDFCanvas::font("Inter-SemiBold", 17), .color = Color::hex("1E4A66")});
    return *canvas.image();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: gallery FOLDER\n");
        return 2;
    }
    try {
        const std::filesystem::path folder = std::filesystem::absolute(argv[1]);
        std::filesystem::create_directories(folder);
        int count = 0;
        for (const Fixtures::Sample& sample : Fixtures::documents()) {
            const bool withLogo = ++count % 2 == 0;
            const auto pages =
                PDFPages::images(InvoicePDF::render(sample.library, *sample.library.document(sample.document),
                                                    withLogo ? std::optional(logo()) : std::nullopt),
                                 widthAt100Dots);
            for (std::size_t page = 0; page < std::min(pages.size(), pagesShown); ++page) {
                const std::string name = (count < 10 ? "0" : "") + std::to_string(count) + "-" + sample.name +
                                         (page == 0 ? "" : "-page-" + std::to_string(page + 1)) + ".png";
                ImageFile::writePNG(pages[page], folder / name);
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
