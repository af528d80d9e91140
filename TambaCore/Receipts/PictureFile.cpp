#include "TambaCore/Receipts/PictureFile.h"

#include <leptonica/allheaders.h>
#include <libexif/exif-data.h>
#include <libheif/heif.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tamba::PictureFile {
namespace {

constexpr std::uint64_t maximumPixels = 100'000'000;
/// JPEGs are decoded at a fraction of their size, so that the largest phone sensors can be read.
constexpr std::uint64_t maximumJPEGPixels = 200'000'000;
/// A progressive JPEG is built up in scans; each costs a walk over the whole picture and takes but a few bytes to ask
/// for.
constexpr std::size_t maximumScans = 100;

struct FreePix {
    void operator()(PIX* pix) const { pixDestroy(&pix); }
};
using Pix = std::unique_ptr<PIX, FreePix>;

struct FreeBoxa {
    void operator()(BOXA* boxes) const { boxaDestroy(&boxes); }
};

template <auto release>
struct Release {
    template <class T>
    void operator()(T* pointer) const {
        release(pointer);
    }
};

void silenceLibraries() {
    static const bool done = [] {
        setMsgSeverity(L_SEVERITY_NONE);
        leptSetStderrHandler([](const char*) {});
        return true;
    }();
    static_cast<void>(done);
}

const std::uint8_t* octets(std::string_view bytes) { return reinterpret_cast<const std::uint8_t*>(bytes.data()); }

std::uint32_t number(std::string_view bytes, std::size_t at, std::initializer_list<int> shifts) {
    std::uint32_t value = 0;
    for (int shift : shifts) value |= std::uint32_t{static_cast<std::uint8_t>(bytes[at++])} << shift;
    return value;
}
std::uint32_t big32(std::string_view bytes, std::size_t at) { return number(bytes, at, {24, 16, 8, 0}); }
std::uint32_t little32(std::string_view bytes, std::size_t at) { return number(bytes, at, {0, 8, 16, 24}); }
std::uint32_t little16(std::string_view bytes, std::size_t at) { return number(bytes, at, {0, 8}); }

/// Payload of the first chunk called `name` of a RIFF list (WebP) that begins at `at`.
std::string_view riffChunk(std::string_view bytes, std::size_t at, std::string_view name) {
    while (at + 8 <= bytes.size()) {
        const std::size_t size = little32(bytes, at + 4);
        if (bytes.substr(at, 4) == name) return bytes.substr(at + 8, size);
        at += 8 + size + size % 2;
    }
    return {};
}

std::string_view pngChunk(std::string_view bytes, std::string_view name) {
    for (std::size_t at = 8; at + 12 <= bytes.size();) {
        const std::size_t size = big32(bytes, at);
        if (bytes.substr(at + 4, 4) == name) return bytes.substr(at + 8, size);
        at += 12 + size;
    }
    return {};
}

/// The value 1–8 of the EXIF orientation: how the stored rows lie in the upright picture.
int orientation(std::string_view bytes, int format) {
    std::string exif;
    if (format == IFF_JFIF_JPEG)
        exif = bytes.substr(0, 1 << 20);  // EXIF stands among the first segments
    else if (format == IFF_PNG)
        exif = pngChunk(bytes, "eXIf");
    else if (format == IFF_WEBP)
        exif = riffChunk(bytes, 12, "EXIF");
    if (exif.empty()) return 1;
    using namespace std::string_literals;
    if (format != IFF_JFIF_JPEG && !exif.starts_with("Exif\0\0"s)) exif.insert(0, "Exif\0\0"s);
    const std::unique_ptr<ExifData, Release<exif_data_unref>> tags(
        exif_data_new_from_data(octets(exif), static_cast<unsigned>(exif.size())));
    if (!tags) return 1;
    const ExifEntry* entry = exif_content_get_entry(tags->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
    if (!entry || entry->format != EXIF_FORMAT_SHORT || entry->size < 2) return 1;
    const int value = exif_get_short(entry->data, exif_data_get_byte_order(tags.get()));
    return value >= 1 && value <= 8 ? value : 1;
}

Pix upright(Pix pix, int orientation) {
    static constexpr int quarterTurns[] = {0, 0, 2, 2, 1, 1, 3, 3};
    if (const int turns = quarterTurns[orientation - 1]) pix.reset(pixRotateOrth(pix.get(), turns));
    const bool mirrored = orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
    if (pix && mirrored) pix.reset(pixFlipLR(nullptr, pix.get()));
    return pix;
}

/// The file cut off behind its first frame (decoders read them all), when that frame is small enough.
std::string firstGIFFrame(std::string_view bytes) {
    const auto colourTable = [](std::uint8_t flags) { return flags & 0x80 ? 3U << ((flags & 7) + 1) : 0U; };
    if (bytes.size() < 13) return {};
    std::size_t at = 13 + colourTable(static_cast<std::uint8_t>(bytes[10]));
    const auto skipBlocks = [&] {
        while (at < bytes.size() && bytes[at] != 0) at += 1U + static_cast<std::uint8_t>(bytes[at]);
        ++at;
    };
    while (at + 10 <= bytes.size()) {
        if (bytes[at] == 0x21) {
            at += 2;
            skipBlocks();
        } else if (bytes[at] == 0x2C) {
            if (std::uint64_t{little16(bytes, at + 5)} * little16(bytes, at + 7) > maximumPixels) return {};
            at += 11 + colourTable(static_cast<std::uint8_t>(bytes[at + 9]));
            skipBlocks();
            return std::string(bytes.substr(0, at)) + ';';
        } else {
            break;
        }
    }
    return {};
}

/// An animation's first frame as a still picture, which is all the decoder takes; other files as they are.
std::string stillWebP(std::string_view bytes) {
    const std::string_view frame = riffChunk(bytes, 12, "ANMF");
    if (frame.size() < 16) return std::string(bytes);
    const std::uint32_t size = static_cast<std::uint32_t>(frame.size() - 16 + 4);
    std::string still = "RIFF";
    for (int shift : {0, 8, 16, 24}) still += static_cast<char>(size >> shift & 0xFF);
    return still.append("WEBP").append(frame.substr(16));
}

/// Half, quarter or eighth size, whatever leaves at least the width that is asked for.
Pix decodeJPEG(std::string_view bytes, Raster::Kind kind, int maximumWidth, bool sideways) {
    int width = 0, height = 0;
    if (readHeaderMemJpeg(octets(bytes), bytes.size(), &width, &height, nullptr, nullptr, nullptr) != 0) return {};
    std::size_t scans = 0;
    for (std::size_t at = 0; (at = bytes.find("\xFF\xDA", at)) != bytes.npos; at += 2) ++scans;
    const std::uint64_t pixels = std::uint64_t(width) * std::uint64_t(height);
    // With more scans than one and that of a preview, the whole picture is held in memory.
    if (scans > maximumScans || pixels > (scans > 2 ? maximumPixels : maximumJPEGPixels)) return {};
    int reduction = 8;
    while (reduction > 1 && (sideways ? height : width) / reduction < maximumWidth) reduction /= 2;
    while (pixels / std::uint64_t(reduction * reduction) > maximumPixels) reduction *= 2;
    const int hint = L_JPEG_CONTINUE_WITH_BAD_DATA | (kind == Raster::Kind::grey ? L_JPEG_READ_LUMINANCE : 0);
    int warnings = 0;
    return Pix(pixReadMemJpeg(octets(bytes), bytes.size(), 0, reduction, &warnings, hint));
}

Pix decodeHEIC(std::string_view bytes) {
    const std::unique_ptr<heif_context, Release<heif_context_free>> context(heif_context_alloc());
    if (heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr).code != 0)
        return {};
    heif_image_handle* rawHandle = nullptr;
    if (heif_context_get_primary_image_handle(context.get(), &rawHandle).code != 0) return {};
    const std::unique_ptr<heif_image_handle, Release<heif_image_handle_release>> handle(rawHandle);
    const int width = heif_image_handle_get_width(rawHandle), height = heif_image_handle_get_height(rawHandle);
    if (width < 1 || height < 1 || std::uint64_t(width) * std::uint64_t(height) > maximumPixels) return {};
    const std::unique_ptr<heif_decoding_options, Release<heif_decoding_options_free>> options(
        heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image* rawImage = nullptr;
    if (heif_decode_image(rawHandle, &rawImage, heif_colorspace_RGB, heif_chroma_interleaved_RGB, options.get()).code !=
        0)
        return {};
    const std::unique_ptr<heif_image, Release<heif_image_release>> image(rawImage);
    int stride = 0;
    const std::uint8_t* plane = heif_image_get_plane_readonly(rawImage, heif_channel_interleaved, &stride);
    const int shownWidth = heif_image_get_width(rawImage, heif_channel_interleaved);
    const int shownHeight = heif_image_get_height(rawImage, heif_channel_interleaved);
    if (!plane || shownWidth < 1 || shownHeight < 1) return {};
    Pix pix(pixCreateNoInit(shownWidth, shownHeight, 32));
    if (!pix) return {};
    for (int y = 0; y < shownHeight; ++y) {
        const std::uint8_t* source = plane + std::ptrdiff_t{y} * stride;
        l_uint32* target = pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get());
        for (int x = 0; x < shownWidth; ++x, source += 3)
            target[x] = std::uint32_t{source[0]} << 24 | std::uint32_t{source[1]} << 16 | std::uint32_t{source[2]} << 8;
    }
    return pix;
}

Pix decodeOther(std::string_view bytes) {
    int format = 0, width = 0, height = 0, bits = 0, samples = 0, palette = 0;
    if (pixReadHeaderMem(octets(bytes), bytes.size(), &format, &width, &height, &bits, &samples, &palette) != 0)
        return {};
    if (std::uint64_t(width) * std::uint64_t(height) > maximumPixels) return {};
    if (format == IFF_WEBP || format == IFF_PNG || format == IFF_BMP || format == IFF_GIF)
        return Pix(pixReadMem(octets(bytes), bytes.size()));
    return Pix(pixReadMemTiff(octets(bytes), bytes.size(), 0));
}

Pix shrunk(Pix pix, int maximumWidth, bool sideways) {
    const double width = pixGetWidth(pix.get()), height = pixGetHeight(pix.get());
    const double uprightWidth = sideways ? height : width;
    // The last two keep a strip of paper within what text recognition can hold.
    const double factor = std::min(
        {1.0, maximumWidth / uprightWidth, 30'000 / std::max(width, height), std::sqrt(40'000'000 / (width * height))});
    if (factor >= 1) return pix;
    const auto f = static_cast<l_float32>(factor);
    return Pix(pixScale(pix.get(), f, f));
}

std::optional<Raster> raster(Pix pix, Raster::Kind kind) {
    if (!pix) return std::nullopt;
    if (pixGetSpp(pix.get()) == 4) pix.reset(pixRemoveAlpha(pix.get()));
    const bool grey = kind == Raster::Kind::grey;
    if (pix) pix.reset(grey ? pixConvertTo8(pix.get(), 0) : pixConvertTo32(pix.get()));
    if (!pix) return std::nullopt;
    pixEndianByteSwap(pix.get());
    Raster result{kind, pixGetWidth(pix.get()), pixGetHeight(pix.get()), {}};
    const std::size_t rowBytes = std::size_t(result.width) * (grey ? 1 : 4);
    result.pixels.resize(rowBytes * std::size_t(result.height));
    for (int y = 0; y < result.height; ++y)
        std::memcpy(result.pixels.data() + std::size_t(y) * rowBytes,
                    pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get()), rowBytes);
    if (!grey)
        for (std::size_t i = 3; i < result.pixels.size(); i += 4) result.pixels[i] = 255;
    return result;
}

Pix greyPix(const Raster& grey) {
    Pix pix(pixCreateNoInit(grey.width, grey.height, 8));
    if (!pix) return pix;
    for (int y = 0; y < grey.height; ++y)
        std::memcpy(pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get()),
                    grey.pixels.data() + std::size_t(y) * std::size_t(grey.width), std::size_t(grey.width));
    pixEndianByteSwap(pix.get());
    return pix;
}

}  // namespace

std::optional<Raster> decode(std::string_view bytes, Raster::Kind kind, int maximumWidth) {
    silenceLibraries();
    if (bytes.size() < 16) return std::nullopt;
    int format = IFF_UNKNOWN;
    if (findFileFormatBuffer(octets(bytes), &format) != 0) format = IFF_UNKNOWN;
    const int turned = orientation(bytes, format);
    const bool sideways = turned >= 5;
    Pix pix;
    std::string still;
    switch (format) {
        case IFF_JFIF_JPEG:
            pix = decodeJPEG(bytes, kind, maximumWidth, sideways);
            break;
        case IFF_GIF:
            still = firstGIFFrame(bytes);
            if (!still.empty()) pix = decodeOther(still);
            break;
        case IFF_WEBP:
            pix = decodeOther(stillWebP(bytes));
            break;
        case IFF_PNG:
        case IFF_BMP:
        case IFF_TIFF:
        case IFF_TIFF_PACKBITS:
        case IFF_TIFF_RLE:
        case IFF_TIFF_G3:
        case IFF_TIFF_G4:
        case IFF_TIFF_LZW:
        case IFF_TIFF_ZIP:
        case IFF_TIFF_JPEG:
            pix = decodeOther(bytes);
            break;
        default:
            if (heif_check_filetype(octets(bytes), static_cast<int>(std::min<std::size_t>(bytes.size(), 64))) !=
                heif_filetype_no)
                pix = decodeHEIC(bytes);
    }
    if (!pix) return std::nullopt;
    if (pixGetSpp(pix.get()) == 4) pix.reset(pixRemoveAlpha(pix.get()));
    if (pix && pixGetColormap(pix.get())) pix.reset(pixRemoveColormap(pix.get(), REMOVE_CMAP_BASED_ON_SRC));
    if (pix && kind == Raster::Kind::grey) pix.reset(pixConvertTo8(pix.get(), 0));
    if (pix) pix = shrunk(std::move(pix), maximumWidth, sideways);
    if (pix) pix = upright(std::move(pix), turned);
    return raster(std::move(pix), kind);
}

Raster scaled(const Raster& grey, double factor) {
    const auto f = static_cast<l_float32>(factor);
    Pix pix = greyPix(grey);
    if (pix) pix.reset(pixScale(pix.get(), f, f));
    return raster(std::move(pix), Raster::Kind::grey).value_or(grey);
}

double letterHeight(const Raster& grey) {
    Pix pix = greyPix(grey);
    PIX* dark = nullptr;
    // One threshold for each 200 x 200 pixels: photographs have shadows.
    if (!pix || pixOtsuAdaptiveThreshold(pix.get(), 200, 200, 0, 0, 0.1F, nullptr, &dark) != 0) return 0;
    const Pix ink(dark);
    const std::unique_ptr<BOXA, FreeBoxa> boxes(pixConnCompBB(ink.get(), 8));
    std::vector<double> heights;
    for (int i = 0; boxes && i < boxaGetCount(boxes.get()); ++i) {
        int width = 0, height = 0;
        boxaGetBoxGeometry(boxes.get(), i, nullptr, nullptr, &width, &height);
        if (height >= 6 && height <= 120 && width >= height / 8 && width <= 3 * height) heights.push_back(height);
    }
    if (heights.empty()) return 0;
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return *middle;
}

}  // namespace tamba::PictureFile
