// How many amounts with a ₹ that touches its figure are read right. Prints in every installed face of the usual text
// fonts that has the sign, as a 200 dpi scan would show it: 9 to 14 points, blurred, compressed as JPEG.
//
//     bench_rupeeSign [face…]    only faces whose name holds one of the words; with -v the bills that were read wrongly

#include "TambaCore/Pages/PDFCanvas.h"
#include "TambaCore/Receipts/PictureFile.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdint>
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
    {"Masala Dosa", "₹473.00", 47300},
    {"Filter Coffee", "₹60.00", 6000},
    {"Paneer Tikka", "₹310.20", 31020},
    {"Delivery", "₹9.50", 950},
    {"Subtotal", "₹21,237.00", 2123700},
    {"CGST", "₹1,911.33", 191133},
    {"SGST", "₹1,911.33", 191133},
    {"Laptop", "₹86,499.90", 8649990},
    {"Advance", "₹5,75,000.00", 57500000},
    {"Rent", "₹1,23,456.78", 12345678},
    {"Total", "₹7,015.75", 701575},
    {"Grand Total", "₹2,640.00", 264000},
    // Without a sign: nothing may be taken off.
    {"Table", "2,473.00", 247300},
    {"Chair", "3,310.20", 331020},
    {"Lamp", "7,599.00", 759900},
};
bool hasSign(const Sample& sample) { return std::string_view(sample.printed).starts_with("₹"); }

struct Face {
    std::string family, name;
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
    FcObjectSet* keys = FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_POSTSCRIPT_NAME, nullptr);
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
        if (ofPackage && asked) result.push_back({text(pattern, FC_FAMILY), name});
    }
    std::sort(result.begin(), result.end(), [](const Face& a, const Face& b) { return a.name < b.name; });
    return result;
}

Image printed(const Face& face, int points) {
    constexpr double scale = dotsPerInch / 72.0;
    const double em = points, width = em * 24, row = em * 1.6;
    PDFCanvas canvas = PDFCanvas::bitmap({width, row * (double(std::size(samples)) + 2)}, scale);
    const PDFCanvas::Style style{.font = PDFCanvas::font(face.name, em), .color = Color::gray(0.1)};
    double y = row;
    for (const Sample& sample : samples) {
        canvas.text(sample.label, em, y, width / 2, style);
        canvas.text(sample.printed, width / 2, y, width / 2 - em, style.aligned(Align::right));
        y += row;
    }
    return *canvas.image();
}

/// Binomial 3 x 3 blur, a standard deviation of 0.7 pixels.
Image blurred(const Image& sharp) {
    Image result = sharp;
    static constexpr int weights[] = {1, 2, 1};
    for (int y = 1; y + 1 < sharp.height; ++y)
        for (int x = 1; x + 1 < sharp.width; ++x)
            for (int channel = 0; channel < 3; ++channel) {
                int sum = 0;
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx)
                        sum += weights[dy + 1] * weights[dx + 1] * sharp.at(x + dx, y + dy)[channel];
                result.at(x, y)[channel] = static_cast<std::uint8_t>(sum / 16);
            }
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
    Score total, plain;
    for (const Face& face : faces(wanted)) {
        Score score;
        for (int points = 9; points <= 14; ++points) {
            const std::string jpeg = ImageFile::jpeg(blurred(printed(face, points)), jpegQuality);
            const auto picture = PictureFile::decode(jpeg, Raster::Kind::grey, 2000);
            if (!picture) std::abort();
            const std::vector<std::string> lines = reader.ocr(*picture);
            bool allRight = true;
            for (const Sample& sample : samples) {
                const bool right = isRead(lines, sample.minor);
                if (!hasSign(sample)) {
                    plain.add(right);
                    continue;
                }
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
    std::printf("without a sign: %.1f %% of %d amounts\n", plain.share(), plain.all);
    std::printf("all: %.1f %% of %d amounts in %zu faces\n", total.share(), total.all, worst.size());
}
