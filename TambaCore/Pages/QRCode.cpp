#include "TambaCore/Pages/QRCode.h"

#include "TambaCore/Base/Text.h"

#define ZX_USE_UTF8 1
#include <ZXing/BitMatrix.h>
#include <ZXing/CharacterSet.h>
#include <ZXing/MultiFormatWriter.h>
#include <ZXing/ReadBarcode.h>

#include <algorithm>
#include <cmath>
#include <exception>

namespace tamba::QRCode {

namespace {

constexpr int levelM = 4;  // of the writer's scale from 0 to 8: 3 and 4 are M
constexpr int quietZone = 4;

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

bool Modules::at(int x, int y) const {
    return dark[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) + static_cast<std::size_t>(x)];
}

std::optional<Modules> modules(std::string_view text) {
    if (text.empty()) return std::nullopt;
    ZXing::MultiFormatWriter writer(ZXing::BarcodeFormat::QRCode);
    writer.setEccLevel(levelM).setMargin(0);
    // Naming the character set puts a mark in front of the text that some payment apps do not understand.
    if (!isASCII(text)) writer.setEncoding(ZXing::CharacterSet::UTF8);
    try {
        const ZXing::BitMatrix matrix = writer.encode(Text::repairedUTF8(text), 0, 0);
        Modules modules;
        modules.size = matrix.width();
        for (int y = 0; y < matrix.height(); ++y)
            for (int x = 0; x < matrix.width(); ++x) modules.dark.push_back(matrix.get(x, y));
        return modules;
    } catch (const std::exception&) {
        return std::nullopt;  // the writer's way to say that the text is too long
    }
}

std::optional<Image> image(std::string_view text, double scale) {
    const auto code = modules(text);
    if (!code) return std::nullopt;
    constexpr double most = 20'000;
    const int side = static_cast<int>(std::clamp(std::round(code->size * scale), 1.0, most));
    Image image = Image::blank(side, side);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (code->at(x * code->size / side, y * code->size / side)) std::fill_n(image.at(x, y), 3, std::uint8_t{0});
    return image;
}

bool draw(PDFCanvas& canvas, std::string_view text, double x, double y, double side) {
    const auto code = modules(text);
    if (!code) return false;
    const double module = side / (code->size + 2 * quietZone);
    std::vector<Rect> runs;
    for (int row = 0; row < code->size; ++row)
        for (int from = 0; from < code->size; ++from) {
            if (!code->at(from, row)) continue;
            int to = from;
            while (to < code->size && code->at(to, row)) ++to;
            runs.push_back(
                {x + (quietZone + from) * module, y + (quietZone + row) * module, (to - from) * module, module});
            from = to;
        }
    canvas.fill({x, y, side, side}, Color::gray(1));
    canvas.fill(runs, Color::gray(0));
    return true;
}

std::vector<std::string> read(const Image& image) {
    if (image.width < 1 || image.height < 1) return {};
    std::vector<std::uint8_t> grey;
    grey.reserve(image.pixels.size() / 4);
    for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        const std::uint8_t* pixel = &image.pixels[i];
        const int light = (306 * pixel[0] + 601 * pixel[1] + 117 * pixel[2]) / 1024;
        grey.push_back(static_cast<std::uint8_t>((light * pixel[3] + 255 * (255 - pixel[3])) / 255));
    }
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode).setTryHarder(true).setTryRotate(true);
    std::vector<std::string> texts;
    for (const ZXing::Result& result :
         ZXing::ReadBarcodes({grey.data(), image.width, image.height, ZXing::ImageFormat::Lum}, hints))
        if (result.isValid()) texts.push_back(result.text());
    return texts;
}

}  // namespace tamba::QRCode
