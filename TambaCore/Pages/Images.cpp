#include "TambaCore/Pages/Images.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Files.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace tamba {

namespace {

constexpr std::int64_t maximumPixels = 100'000'000;

struct PixDestroyer {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPointer = std::unique_ptr<Pix, PixDestroyer>;

/// The library would write its complaints about a damaged file to standard error.
void silence() { setMsgSeverity(L_SEVERITY_NONE); }

enum class Transparency { kept, onWhite };

PixPointer toPix(const Image& image, Transparency transparency) {
    PixPointer pix(pixCreate(image.width, image.height, 32));
    if (!pix) fatal("no memory for a picture");
    l_uint32* words = pixGetData(pix.get());
    const std::uint8_t* at = image.pixels.data();
    const std::size_t count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    bool opaque = true;
    for (std::size_t i = 0; i < count; ++i, at += 4) {
        const l_uint32 alpha = at[3];
        opaque = opaque && alpha == 255;
        l_uint32 channels[3] = {at[0], at[1], at[2]};
        if (transparency == Transparency::onWhite && alpha != 255)
            for (l_uint32& channel : channels) channel = (channel * alpha + 255 * (255 - alpha) + 127) / 255;
        words[i] = channels[0] << 24 | channels[1] << 16 | channels[2] << 8 | alpha;
    }
    if (!opaque && transparency == Transparency::kept) pixSetSpp(pix.get(), 4);
    return pix;
}

std::string taken(l_uint8* data, std::size_t size, bool failed) {
    std::unique_ptr<l_uint8, decltype(&std::free)> owner(data, &std::free);
    if (failed || !data) fatal("a picture could not be encoded");
    return std::string(reinterpret_cast<const char*>(data), size);
}

}  // namespace

Image Image::blank(int width, int height) {
    Image image;
    image.width = width;
    image.height = height;
    image.pixels.assign(4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 255);
    return image;
}

Image Image::scaledDown(int newWidth, int newHeight) const {
    newWidth = std::min(std::max(newWidth, 1), width);
    newHeight = std::min(std::max(newHeight, 1), height);
    if (newWidth == width && newHeight == height) return *this;
    Image result = blank(newWidth, newHeight);
    for (int y = 0; y < newHeight; ++y)
        for (int x = 0; x < newWidth; ++x) {
            const int top = static_cast<int>(std::int64_t{y} * height / newHeight);
            const int bottom = static_cast<int>((std::int64_t{y} + 1) * height / newHeight);
            const int left = static_cast<int>(std::int64_t{x} * width / newWidth);
            const int right = static_cast<int>((std::int64_t{x} + 1) * width / newWidth);
            std::uint64_t alpha = 0, sums[3] = {};
            for (int row = top; row < bottom; ++row)
                for (int column = left; column < right; ++column) {
                    const std::uint8_t* pixel = at(column, row);
                    alpha += pixel[3];
                    for (int channel = 0; channel < 3; ++channel)
                        sums[channel] += std::uint64_t{pixel[channel]} * pixel[3];
                }
            const auto count = static_cast<std::uint64_t>(bottom - top) * static_cast<std::uint64_t>(right - left);
            std::uint8_t* pixel = result.at(x, y);
            pixel[3] = static_cast<std::uint8_t>((alpha + count / 2) / count);
            for (int channel = 0; channel < 3; ++channel)
                if (alpha > 0) pixel[channel] = static_cast<std::uint8_t>((sums[channel] + alpha / 2) / alpha);
        }
    return result;
}

std::optional<Image> ImageFile::decode(std::string_view bytes) {
    silence();
    const auto* data = reinterpret_cast<const l_uint8*>(bytes.data());
    l_int32 format = 0, width = 0, height = 0, bits = 0, samples = 0, colourMap = 0;
    if (pixReadHeaderMem(data, bytes.size(), &format, &width, &height, &bits, &samples, &colourMap) != 0 || width < 1 ||
        height < 1 || std::int64_t{width} * height > maximumPixels)
        return std::nullopt;
    PixPointer read(pixReadMem(data, bytes.size()));
    if (!read) return std::nullopt;
    PixPointer full(pixConvertTo32(read.get()));
    if (!full) return std::nullopt;

    Image image;
    image.width = pixGetWidth(full.get());
    image.height = pixGetHeight(full.get());
    const bool hasAlpha = pixGetSpp(full.get()) == 4;
    const std::size_t count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    image.pixels.reserve(4 * count);
    const l_uint32* words = pixGetData(full.get());
    for (std::size_t i = 0; i < count; ++i) {
        for (int shift : {24, 16, 8}) image.pixels.push_back(static_cast<std::uint8_t>(words[i] >> shift));
        image.pixels.push_back(hasAlpha ? static_cast<std::uint8_t>(words[i]) : 255);
    }
    return image;
}

std::optional<Image> ImageFile::load(const std::filesystem::path& file) {
    try {
        return decode(Files::read(file));
    } catch (const FileError&) {
        return std::nullopt;
    }
}

std::string ImageFile::png(const Image& image) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    const bool failed = pixWriteMemPng(&data, &size, toPix(image, Transparency::kept).get(), 0) != 0;
    return taken(data, size, failed);
}

std::string ImageFile::jpeg(const Image& image, int quality) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    const PixPointer pix = toPix(image, Transparency::onWhite);
    const bool failed = pixWriteMemJpeg(&data, &size, pix.get(), std::clamp(quality, 1, 100), 0) != 0;
    return taken(data, size, failed);
}

void ImageFile::writePNG(const Image& image, const std::filesystem::path& file) {
    Files::writeAtomically(file, png(image));
}

void ImageFile::writeJPEG(const Image& image, const std::filesystem::path& file, int quality) {
    Files::writeAtomically(file, jpeg(image, quality));
}

}  // namespace tamba
