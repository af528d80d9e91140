#include "TambaCore/Receipts/Recogniser.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/RupeeSign.h"

#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>
#include <tesseract/resultiterator.h>

#include <algorithm>
#include <string_view>

// Of the runtime that the engine is linked with. Its header belongs to one compiler only.
extern "C" void omp_set_max_active_levels(int levels);

namespace tamba {
namespace {

/// A picture of noise can keep the engine busy for many minutes; a receipt takes a second.
constexpr int deadlineMilliseconds = 10'000;
/// Below this confidence (of 100) the first words of a page are a logo, handwriting or the edge of the table.
constexpr double readable = 50;
/// A gap between two words wider than this many heights parts two columns.
constexpr double columnGap = 1.6;

struct Word {
    TextBox box;
    std::string text;
};

/// Mean over the letters of some words.
struct Confidence {
    double sum = 0;
    std::size_t letters = 0;
    void add(double confidence, std::size_t count) {
        sum += confidence * double(count);
        letters += count;
    }
    [[nodiscard]] double mean() const { return sum / double(letters); }
};

TextBox boxAt(const tesseract::PageIterator& at, tesseract::PageIteratorLevel level) {
    int left = 0, top = 0, right = 0, bottom = 0;
    at.BoundingBox(level, &left, &top, &right, &bottom);
    return {double(left), double(top), double(right - left), double(bottom - top)};
}

std::string textAt(const tesseract::ResultIterator& at, tesseract::PageIteratorLevel level) {
    const std::unique_ptr<const char[]> text(at.GetUTF8Text(level));
    return text ? text.get() : "";
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// "2473.00" is ₹473.00 when the picture shows a rupee sign where the 2 was read.
void mendRupeeSign(Word& word, const tesseract::ResultIterator& at, const Raster& grey) {
    if (word.text.size() < 2 || std::string_view("237%XZT").find(word.text[0]) == std::string::npos ||
        !isDigit(word.text[1]))
        return;
    if (RupeeSign::isAt(grey, boxAt(at, tesseract::RIL_SYMBOL))) word.text.replace(0, 1, "₹");
}

TextBox united(const TextBox& a, const TextBox& b) {
    const double x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.width, b.x + b.width) - x, std::max(a.y + a.height, b.y + b.height) - y};
}

bool hasContent(std::string_view word) {
    if (word == "&") return true;
    const auto characters = Text::characters(word);
    return std::any_of(characters.begin(), characters.end(), Text::isLetterOrDigit);
}

/// Reads a language model and strikes its list of English words, by which the engine would "correct" names and codes;
/// no setting keeps this kind of model from using it. The file begins with the number of its components and where each
/// begins (little-endian, 4 and 8 bytes); -1 stands for one that is not there.
bool readModelWithoutWords(const char* file, std::vector<char>* model) {
    constexpr std::size_t wordList = 19;
    try {
        const std::string bytes = Files::read(file);
        model->assign(bytes.begin(), bytes.end());
    } catch (const FileError&) {
        return false;
    }
    const std::size_t at = 4 + 8 * wordList;
    if (model->size() > 4 && static_cast<std::uint8_t>(model->front()) > wordList && model->size() >= at + 8)
        std::fill_n(model->begin() + at, 8, '\xFF');
    return true;
}

}  // namespace

struct Recogniser::Engine {
    tesseract::TessBaseAPI api;
    bool ready = false;
};

Recogniser::Recogniser() : engine_(std::make_unique<Engine>()) {
    const std::vector<std::string> names{"debug_file"}, values{"/dev/null"};
    engine_->ready = engine_->api.Init(nullptr, 0, "eng", tesseract::OEM_LSTM_ONLY, nullptr, 0, &names, &values, false,
                                       readModelWithoutWords) == 0;
}

Recogniser::~Recogniser() = default;

Recogniser::Observations Recogniser::observations(const Raster& grey, Layout layout, const std::atomic<bool>* cancel) {
    if (!engine_->ready || grey.width < 8 || grey.height < 8) return {};
    // Four threads, which the engine asks for, take three times as long as one.
    omp_set_max_active_levels(0);
    tesseract::TessBaseAPI& api = engine_->api;
    api.SetPageSegMode(layout == Layout::sparse ? tesseract::PSM_SPARSE_TEXT : tesseract::PSM_SINGLE_BLOCK);
    api.SetVariable("thresholding_method", layout == Layout::uneven ? "1" : "0");  // adaptive Otsu, Otsu
    api.SetImage(grey.pixels.data(), grey.width, grey.height, 1, grey.width);
    api.SetSourceResolution(300);

    tesseract::ETEXT_DESC monitor;
    monitor.set_deadline_msecs(deadlineMilliseconds);
    monitor.cancel_this = const_cast<std::atomic<bool>*>(cancel);
    if (cancel) monitor.cancel = [](void* flag, int) { return static_cast<const std::atomic<bool>*>(flag)->load(); };
    api.Recognize(&monitor);  // false past the deadline; what was read until then counts

    Observations result;
    const std::unique_ptr<tesseract::ResultIterator> at(api.GetIterator());
    bool lineBegins = true;
    double lastHeight = 0;
    std::vector<Confidence> confidences;
    while (at) {
        lineBegins = lineBegins || at->IsAtBeginningOf(tesseract::RIL_TEXTLINE);
        Word word{boxAt(*at, tesseract::RIL_WORD), textAt(*at, tesseract::RIL_WORD)};
        mendRupeeSign(word, *at, grey);
        if (hasContent(word.text)) {
            const double height = std::max(word.box.height, lastHeight);
            const bool follows =
                !lineBegins && word.box.x - (result.back().first.x + result.back().first.width) <= columnGap * height;
            if (follows) {
                result.back().first = united(result.back().first, word.box);
                result.back().second += ' ' + word.text;
            } else {
                result.emplace_back(word.box, word.text);
                confidences.emplace_back();
            }
            confidences.back().add(at->Confidence(tesseract::RIL_WORD), word.text.size());
            lineBegins = false;
            lastHeight = word.box.height;
        }
        if (!at->Next(tesseract::RIL_WORD)) break;
    }
    api.Clear();
    if (cancel && *cancel) throw ReceiptReader::Cancelled{};
    const auto firstReadable = std::find_if(confidences.begin(), confidences.end(),
                                            [](const Confidence& confidence) { return confidence.mean() >= readable; });
    if (firstReadable != confidences.end())
        result.erase(result.begin(), result.begin() + (firstReadable - confidences.begin()));
    for (auto& [box, text] : result) text = repairedDigits(text);
    mendGroups(result);
    return result;
}

void Recogniser::mendGroups(Observations& observations) {
    static const Text::Pattern indian(R"((?<![\d,])\d{1,2}(?:,\d{2})+,\d{3}(?![\d,]))");
    static const Text::Pattern threeDigits(R"((?<![\d.,₹])[237](?=\d{2},\d{3}(?:\.\d{2})?(?![\d,])))");
    const bool isIndian = std::any_of(observations.begin(), observations.end(),
                                      [](const auto& observation) { return indian.matches(observation.second); });
    if (!isIndian) return;
    for (auto& [box, text] : observations) text = threeDigits.replaceAll(text, "₹");
}

std::string Recogniser::repairedDigits(std::string_view text) {
    static const Text::Pattern apostrophe(R"((?<=\p{L})[‘’](?=\p{L}))");
    static const Text::Pattern strayMarks(R"([‘’“”„«»‹›|])");
    static const Text::Pattern letterO(R"((?<=\d[.,]?)[Oo](?=[.,]?\d))");
    static const Text::Pattern splitDecimals(R"((?<=\d)(?:\. | \.)(?=\d{2}(?![\d.,])))");
    static const Text::Pattern splitThousands(R"((?<=\d), (?=(?:\d{2},)?\d{3}\.\d{2}(?!\d)))");
    static const Text::Pattern decimalComma(R"((?<![\d.,])(\d+),(?=\d{2}(?![\d.,])))");
    // The model likes to see foreign money: a sign counts only before a price.
    static const Text::Pattern notPounds(R"(£(?!\s?\d[\d,]*\.\d{2}(?!\d)))");
    static const Text::Pattern notEuros(R"(€(?!\s?\d[\d,]*\.\d{2}(?!\d)))");
    static const Text::Pattern notDollars(R"(\$(?=\p{L}|\d{7}))");
    static const Text::Pattern notYen(R"(¥(?!\d))");
    // What is left of a ₹ before a price.
    static const Text::Pattern strayLetter(R"((?<![\p{L}\d.,])[XTF](?=\d[\d,]*\.\d{2}(?!\d)))");
    std::string result = apostrophe.replaceAll(text, "'");
    result = strayMarks.replaceAll(result, "");
    result = notPounds.replaceAll(result, "E");
    result = notEuros.replaceAll(result, "C");
    result = notDollars.replaceAll(result, "S");
    result = notYen.replaceAll(result, "Y");
    result = strayLetter.replaceAll(result, "");
    result = letterO.replaceAll(result, "0");
    result = splitDecimals.replaceAll(result, ".");
    result = splitThousands.replaceAll(result, ",");
    return decimalComma.replaceAll(result, "$1.");
}

}  // namespace tamba
