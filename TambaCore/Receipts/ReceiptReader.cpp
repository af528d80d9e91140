#include "TambaCore/Receipts/ReceiptReader.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Receipts/PDFFile.h"
#include "TambaCore/Receipts/PictureFile.h"
#include "TambaCore/Receipts/Recogniser.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string_view>

namespace tamba {
namespace {

constexpr int maximumPages = 3;
/// More pixels cost time and bring nothing.
constexpr int recognisedWidth = 2000;
/// Height in pixels of the letters that the language model reads best.
constexpr double readableLetters = 24;
constexpr int maximumSide = 10'000;
constexpr std::uint64_t maximumPictureBytes = 200'000'000;

using Code = ReceiptReader::ReadError::Code;

/// The mark of a PDF stands somewhere in the first kilobyte (ISO 32000-1, annex H.3, note 13).
bool isPDF(const std::filesystem::path& file) {
    if (!Files::size(file)) return false;  // opening a pipe would wait for somebody to write into it
    std::array<char, 1024> head{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(head.data(), head.size());
    return std::string_view(head.data(), static_cast<std::size_t>(stream.gcount())).find("%PDF-") != std::string::npos;
}

PDFFile openPDF(const std::filesystem::path& file, const std::atomic<bool>* cancel = nullptr) {
    auto pdf = PDFFile::open(file, cancel);
    if (!pdf) throw ReceiptReader::ReadError(Code::unreadable);
    return std::move(*pdf);
}

Raster decodePicture(const std::filesystem::path& file, Raster::Kind kind, int maximumWidth) {
    try {
        if (Files::size(file).value_or(maximumPictureBytes + 1) <= maximumPictureBytes)
            if (auto picture = PictureFile::decode(Files::read(file), kind, maximumWidth)) return std::move(*picture);
    } catch (const FileError&) {
    }
    throw ReceiptReader::ReadError(Code::unreadable);
}

bool hasDigit(const std::vector<std::string>& lines) {
    return std::any_of(lines.begin(), lines.end(),
                       [](const std::string& line) { return line.find_first_of("0123456789") != std::string::npos; });
}

}  // namespace

const char* ReceiptReader::ReadError::what() const noexcept {
    return code_ == Code::unreadable ? "Tamba couldn’t open that file as an image or PDF."
                                     : "No text was found on that receipt.";
}

ReceiptReader::ReceiptReader() = default;
ReceiptReader::~ReceiptReader() = default;

ReceiptReader::Lines ReceiptReader::lines(const std::filesystem::path& file, const std::atomic<bool>* cancel,
                                          Pass pass) {
    const auto checkCancelled = [cancel] {
        if (cancel && *cancel) throw Cancelled{};
    };
    checkCancelled();
    Lines result;
    if (isPDF(file)) {
        const PDFFile pdf = openPDF(file, cancel);
        for (int page = 0; page < std::min(pdf.pages(), maximumPages); ++page) {
            checkCancelled();
            auto layer = pdf.text(page);
            checkCancelled();
            if (!layer) throw ReadError(Code::unreadable);
            std::vector<std::string> rows = std::move(*layer);
            // A scanner's stamp ("Scanned with …") is a text layer too, but not that of the receipt.
            if (!hasDigit(rows)) {
                std::vector<std::string> read;
                if (const auto picture = pdf.render(page, Raster::Kind::grey, recognisedWidth))
                    read = ocr(*picture, pass, cancel);
                if (rows.empty() || hasDigit(read)) {
                    rows = std::move(read);
                    result.recognised = true;
                }
            }
            result.lines.insert(result.lines.end(), rows.begin(), rows.end());
        }
    } else {
        result.recognised = true;
        result.lines = ocr(decodePicture(file, Raster::Kind::grey, recognisedWidth), pass, cancel);
    }
    if (result.lines.empty()) throw ReadError(Code::empty);
    return result;
}

std::vector<std::string> ReceiptReader::ocr(const Raster& grey, Pass pass, const std::atomic<bool>* cancel) {
    if (!recogniser_) recogniser_ = std::make_unique<Recogniser>();
    using Layout = Recogniser::Layout;
    if (pass != Pass::faded)
        return joinRows(recogniser_->observations(grey, pass == Pass::block ? Layout::block : Layout::sparse, cancel));
    const double letters = std::max(PictureFile::letterHeight(grey), 1.0);
    const double factor =
        std::min({readableLetters / letters, 3.0, double(maximumSide) / std::max(grey.width, grey.height)});
    return joinRows(recogniser_->observations(PictureFile::scaled(grey, factor), Layout::uneven, cancel));
}

Raster ReceiptReader::picture(const std::filesystem::path& file, int page, int maximumWidth) {
    if (!isPDF(file)) return decodePicture(file, Raster::Kind::rgba, maximumWidth);
    const PDFFile pdf = openPDF(file);
    auto rendered = page < pdf.pages() ? pdf.render(page, Raster::Kind::rgba, maximumWidth) : std::nullopt;
    if (!rendered) throw ReadError(Code::unreadable);
    return std::move(*rendered);
}

int ReceiptReader::pageCount(const std::filesystem::path& file) { return isPDF(file) ? openPDF(file).pages() : 1; }

std::vector<std::string> ReceiptReader::joinRows(std::vector<std::pair<TextBox, std::string>> observations) {
    const auto centre = [](const TextBox& box) { return box.y + box.height / 2; };
    std::stable_sort(observations.begin(), observations.end(),
                     [&](const auto& a, const auto& b) { return centre(a.first) < centre(b.first); });
    std::vector<std::string> rows;
    for (auto first = observations.begin(); first != observations.end();) {
        const auto end = std::find_if(first, observations.end(), [&](const auto& other) {
            return centre(other.first) - centre(first->first) >=
                   0.55 * std::max(first->first.height, other.first.height);
        });
        std::stable_sort(first, end, [](const auto& a, const auto& b) { return a.first.x < b.first.x; });
        std::string row;
        for (; first != end; ++first) row += (row.empty() ? "" : "  ") + first->second;
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace tamba
