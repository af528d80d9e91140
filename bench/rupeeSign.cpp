// How many amounts with a ₹ that touches its figure are read right. Prints in every installed face of the usual text
// fonts that has the sign, as a 200 dpi scan would show it: 9 to 14 points, blurred, compressed as JPEG.
//
//     bench_rupeeSign [face…]    only faces whose name holds one of the words; with -v the bills that were read wrongly

#include "TambaCore/Receipts/PictureFile.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <fontconfig/fontconfig.h>
#include <leptonica/allheaders.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tamba;

constexpr int dotsPerInch = 200;
constexpr int jpegQuality = 60;

struct Sample {
    const char* label;
    const char* printed;
    std::int64_t minor;
};
constexpr Sample samples[] = {
    {"Masala Dosa", "₹473.00", 47300},  {"Filter Coffee", "₹60.00", 6000},   {"Paneer Tikka", "₹310.20", 31020},
    {"Delivery", "₹9.50", 950},         {"Subtotal", "₹21,237.00", 2123700}, {"CGST", "₹1,911.33", 191133},
    {"SGST", "₹1,911.33", 191133},      {"Laptop", "₹86,499.90", 8649990},   {"Advance", "₹5,75,000.00", 57500000},
    {"Rent", "₹1,23,456.78", 12345678}, {"Total", "₹7,015.75", 701575},      {"Grand Total", "₹2,640.00", 264000},
};

struct Face {
    std::string family, name;
    FcPattern* pattern;
};

std::string text(FcPattern* pattern, const char* key) {
    FcChar8* value = nullptr;
    return FcPatternGetString(pattern, key, 0, &value) == FcResultMatch ? reinterpret_cast<const char*>(value) : "";
}

std::vector<Face> faces(const std::vector<std::string>& wanted) {
    static constexpr const char* folders[] = {"/noto/", "/inter/", "/dejavu/", "/liberation", "/lohit-devanagari/"};
    FcPattern* query = FcPatternCreate();
    FcCharSet* signs = FcCharSetCreate();
    for (FcChar32 sign : {FcChar32{0x20B9}, FcChar32{'0'}, FcChar32{'9'}}) FcCharSetAddChar(signs, sign);
    FcPatternAddCharSet(query, FC_CHARSET, signs);
    FcObjectSet* keys =
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_FILE, FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_POSTSCRIPT_NAME, nullptr);
    FcFontSet* found = FcFontList(nullptr, query, keys);
    std::vector<Face> result;
    for (int i = 0; i < found->nfont; ++i) {
        FcPattern* pattern = found->fonts[i];
        const std::string file = text(pattern, FC_FILE), name = text(pattern, FC_POSTSCRIPT_NAME);
        const bool ofPackage = std::any_of(std::begin(folders), std::end(folders),
                                           [&](const char* folder) { return file.find(folder) != std::string::npos; });
        const bool asked = wanted.empty() || std::any_of(wanted.begin(), wanted.end(), [&](const std::string& word) {
                               return name.find(word) != std::string::npos;
                           });
        if (ofPackage && asked) result.push_back({text(pattern, FC_FAMILY), name, pattern});
    }
    std::sort(result.begin(), result.end(), [](const Face& a, const Face& b) { return a.name < b.name; });
    return result;
}

/// The bill as a grey picture.
Raster printed(const Face& face, int points) {
    const double pixels = points * dotsPerInch / 72.0;
    const int width = static_cast<int>(pixels * 24), row = static_cast<int>(pixels * 1.6);
    const int height = row * (static_cast<int>(std::size(samples)) + 2);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cairo = cairo_create(surface);
    cairo_set_source_rgb(cairo, 1, 1, 1);
    cairo_paint(cairo);
    cairo_set_source_rgb(cairo, 0.1, 0.1, 0.1);
    PangoLayout* layout = pango_cairo_create_layout(cairo);
    PangoFontDescription* description = pango_fc_font_description_from_pattern(face.pattern, FALSE);
    pango_font_description_set_absolute_size(description, pixels * PANGO_SCALE);
    pango_layout_set_font_description(layout, description);
    int y = row;
    for (const Sample& sample : samples) {
        int textWidth = 0;
        pango_layout_set_text(layout, sample.label, -1);
        cairo_move_to(cairo, pixels, y);
        pango_cairo_show_layout(cairo, layout);
        pango_layout_set_text(layout, sample.printed, -1);
        pango_layout_get_pixel_size(layout, &textWidth, nullptr);
        cairo_move_to(cairo, width - pixels - textWidth, y);
        pango_cairo_show_layout(cairo, layout);
        y += row;
    }
    cairo_surface_flush(surface);
    Raster result{Raster::Kind::grey, width, height, {}};
    for (int r = 0; r < height; ++r)
        for (int x = 0; x < width; ++x)
            result.pixels.push_back(
                cairo_image_surface_get_data(surface)[r * cairo_image_surface_get_stride(surface) + x * 4 + 1]);
    pango_font_description_free(description);
    g_object_unref(layout);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    return result;
}

/// Binomial 3 x 3 blur, a standard deviation of 0.7 pixels.
Raster blurred(const Raster& sharp) {
    Raster result = sharp;
    static constexpr int weights[] = {1, 2, 1};
    for (int y = 1; y + 1 < sharp.height; ++y)
        for (int x = 1; x + 1 < sharp.width; ++x) {
            int sum = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    sum += weights[dy + 1] * weights[dx + 1] * sharp.pixels[size_t((y + dy) * sharp.width + x + dx)];
            result.pixels[size_t(y * sharp.width + x)] = static_cast<std::uint8_t>(sum / 16);
        }
    return result;
}

std::string jpeg(const Raster& grey) {
    PIX* pix = pixCreate(grey.width, grey.height, 8);
    for (int y = 0; y < grey.height; ++y)
        for (int x = 0; x < grey.width; ++x) pixSetPixel(pix, x, y, grey.pixels[size_t(y * grey.width + x)]);
    l_uint8* bytes = nullptr;
    size_t size = 0;
    pixWriteMemJpeg(&bytes, &size, pix, jpegQuality, 0);
    std::string result(reinterpret_cast<const char*>(bytes), size);
    lept_free(bytes);
    pixDestroy(&pix);
    return result;
}

struct Score {
    int right = 0, all = 0;
    [[nodiscard]] double share() const { return 100.0 * right / std::max(all, 1); }
    void add(bool isRight) {
        right += isRight;
        ++all;
    }
};

bool isRead(const std::vector<std::string>& lines, std::int64_t minor) {
    return std::any_of(lines.begin(), lines.end(), [minor](const std::string& line) {
        const auto amounts = ReceiptParser::amounts(line);
        return !amounts.empty() && amounts.back() == minor;
    });
}

}  // namespace

int main(int count, char** arguments) {
    bool verbose = false;
    std::vector<std::string> wanted;
    for (int i = 1; i < count; ++i)
        if (std::string_view(arguments[i]) == "-v")
            verbose = true;
        else
            wanted.emplace_back(arguments[i]);

    ReceiptReader reader;
    std::map<std::string, Score> families;
    std::vector<std::pair<double, std::string>> worst;
    std::map<int, Score> sizes;
    Score total;
    for (const Face& face : faces(wanted)) {
        Score score;
        for (int points = 9; points <= 14; ++points) {
            const auto picture = PictureFile::decode(jpeg(blurred(printed(face, points))), Raster::Kind::grey, 2000);
            if (!picture) std::abort();
            const std::vector<std::string> lines = reader.ocr(*picture);
            bool allRight = true;
            for (const Sample& sample : samples) {
                const bool right = isRead(lines, sample.minor);
                for (Score* s : {&score, &families[face.family], &sizes[points], &total}) s->add(right);
                allRight = allRight && right;
            }
            if (allRight || !verbose) continue;
            std::printf("%s, %d pt:\n", face.name.c_str(), points);
            for (const std::string& line : lines) std::printf("    %s\n", line.c_str());
        }
        worst.emplace_back(score.share(), face.name);
    }
    std::sort(worst.begin(), worst.end());
    for (const auto& [family, score] : families)
        std::printf("%5.1f %%  of %5d  %s\n", score.share(), score.all, family.c_str());
    for (const auto& [points, score] : sizes) std::printf("%5.1f %%  at %d pt\n", score.share(), points);
    std::printf("worst faces:\n");
    for (std::size_t i = 0; i < std::min<std::size_t>(worst.size(), 8); ++i)
        std::printf("%5.1f %%  %s\n", worst[i].first, worst[i].second.c_str());
    std::printf("all: %.1f %% of %d amounts in %zu faces\n", total.share(), total.all, worst.size());
}
