#include "TambaCore/Receipts/Receipts.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace tamba::ReceiptScanner {
namespace {

using Reader = ReceiptReader;

constexpr std::uint64_t maximumMailBytes = 200'000'000;
constexpr int maximumAttachmentsRead = 3;
/// Pictures below this size in an e-mail are logos and buttons.
constexpr std::size_t smallestPhoto = 20'000;

bool hasDoubt(const ReceiptGuess& guess, Doubt doubt) {
    return std::find(guess.doubts.begin(), guess.doubts.end(), doubt) != guess.doubts.end();
}

void dropDoubt(ReceiptGuess& guess, Doubt doubt) { std::erase(guess.doubts, doubt); }

bool hasKeywordTotal(const ReceiptGuess& guess) { return guess.total && !hasDoubt(guess, Doubt::totalWithoutKeyword); }

/// Takes from a second look what the first did not give.
void fill(ReceiptGuess& guess, const ReceiptGuess& other) {
    if (guess.vendor.empty()) guess.vendor = other.vendor;
    if (guess.gstin.empty()) guess.gstin = other.gstin;
    if (!guess.currency) guess.currency = other.currency;
    if (!guess.date && other.date) {
        guess.date = other.date;
        dropDoubt(guess, Doubt::noDate);
        for (const Doubt doubt : {Doubt::otherDateOrder, Doubt::unlikelyDate})
            if (hasDoubt(other, doubt)) guess.doubts.push_back(doubt);
    }
    if (!hasKeywordTotal(guess) && (hasKeywordTotal(other) || !guess.total)) {
        guess.total = other.total;
        guess.tax = other.tax;
        guess.taxSplit = other.taxSplit;
        for (Doubt doubt : {Doubt::noTotal, Doubt::totalWithoutKeyword, Doubt::sumsDoNotClose}) {
            dropDoubt(guess, doubt);
            if (hasDoubt(other, doubt)) guess.doubts.push_back(doubt);
        }
    }
}

struct Scan {
    Reader& reader;
    DateOrder order;
    Day today;
    const std::atomic<bool>* cancel;

    [[nodiscard]] ReceiptGuess parse(const Reader::Lines& read) const {
        if (!read.recognised) return ReceiptParser::parse(read.lines, order, today);
        ReceiptGuess guess = ReceiptParser::parse(read.lines, order, today, ReceiptParser::Source::recognised);
        if (!guess.total || !hasDoubt(guess, Doubt::sumsDoNotClose)) return guess;
        // A ₹ that touches its figure is often read as a digit. Where the bill adds up without it, that is what it was.
        std::vector<std::string> lines = read.lines;
        for (std::string& line : lines) {
            const auto amounts = ReceiptParser::amounts(line);
            const std::size_t figure = line.find_last_of(' ') + 1;
            const bool isTotal = !amounts.empty() && amounts.back() == *guess.total;
            if (isTotal && std::string_view("237").find(line[figure]) != std::string::npos) line.erase(figure, 1);
        }
        ReceiptGuess mended = ReceiptParser::parse(lines, order, today, ReceiptParser::Source::recognised);
        return hasDoubt(mended, Doubt::sumsDoNotClose) ? guess : mended;
    }

    /// Looks at a picture again, slower, for a date or a total that the looks before did not give.
    [[nodiscard]] ReceiptGuess file(const std::filesystem::path& path) const {
        std::optional<ReceiptGuess> guess;
        for (const Reader::Pass pass : {Reader::Pass::block, Reader::Pass::sparse, Reader::Pass::faded}) try {
                const Reader::Lines read = reader.lines(path, cancel, pass);
                ReceiptGuess look = parse(read);
                if (guess)
                    fill(*guess, look);
                else
                    guess = std::move(look);
                if (!read.recognised || (guess->date && hasKeywordTotal(*guess))) break;
            } catch (const Reader::ReadError& error) {
                if (error.code() == Reader::ReadError::Code::unreadable) throw;
            }
        if (!guess) throw Reader::ReadError(Reader::ReadError::Code::empty);
        return *guess;
    }

    [[nodiscard]] std::optional<ReceiptGuess> readableFile(const std::filesystem::path& path) const {
        try {
            return file(path);
        } catch (const Reader::ReadError&) {
            return std::nullopt;
        }
    }

    [[nodiscard]] ReceiptGuess text(const EmailReceipt::Message& message) const {
        std::vector<std::string> lines{message.subject};
        // Without blank lines: a label's figure stands on the next line that is printed.
        for (std::string& line : Text::splitLines(message.bodyText))
            if (!Text::trim(line).empty()) lines.push_back(std::move(line));
        ReceiptGuess guess = ReceiptParser::parse(lines, order, today, ReceiptParser::Source::message);
        // Any line is better than an address that gives no name.
        if (guess.vendor.empty() && !hasName(message)) guess.vendor = ReceiptParser::vendor(lines);
        return guess;
    }

    [[nodiscard]] static bool hasName(const EmailReceipt::Message& message) {
        const std::string sender = EmailReceipt::senderName(message.from);
        return !sender.empty() && sender.find('@') == std::string::npos;
    }
};

/// Attachments written to files of their own. Those that are not kept go again, also when reading is cancelled.
class Attachments {
public:
    Attachments() = default;
    Attachments(const Attachments&) = delete;
    Attachments& operator=(const Attachments&) = delete;
    ~Attachments() {
        for (const auto& file : files_) try {
                Files::remove(file);
            } catch (const FileError&) {
                // It lies in the folder for temporary files, which the system empties.
            }
    }

    [[nodiscard]] std::filesystem::path write(const EmailReceipt::Part& part) {
        return files_.emplace_back(Files::writeTemporary(part.data, part.name));
    }
    void keep(const std::filesystem::path& file, Result& result) {
        std::erase(files_, file);
        result.files.push_back(file);
        result.temporary.push_back(file);
    }

private:
    std::vector<std::filesystem::path> files_;
};

bool isPDF(const EmailReceipt::Part& part) {
    return part.mime == "application/pdf" || Text::lower(part.name).ends_with(".pdf") || part.data.starts_with("%PDF-");
}

bool isPhoto(const EmailReceipt::Part& part) {
    return part.mime.starts_with("image/") && part.data.size() >= smallestPhoto;
}

std::vector<const EmailReceipt::Part*> chosen(const EmailReceipt::Message& message,
                                              bool (*wanted)(const EmailReceipt::Part&)) {
    std::vector<const EmailReceipt::Part*> parts;
    for (const EmailReceipt::Part& part : message.attachments)
        if (parts.size() < maximumAttachmentsRead && wanted(part)) parts.push_back(&part);
    return parts;
}

/// A PDF speaks for the message: the first with a total, else the first that can be read. One that cannot (a password)
/// is attached all the same while the text of the message is read; where that has no total, a photo of a bill may.
Result mail(const Scan& scan, const std::filesystem::path& file, const EmailReceipt::Message& message) {
    Result result{{}, {file}, {}};
    Attachments attachments;
    std::optional<std::filesystem::path> attached;
    std::optional<ReceiptGuess> guess;
    for (const EmailReceipt::Part* part : chosen(message, isPDF)) {
        const std::filesystem::path path = attachments.write(*part);
        std::optional<ReceiptGuess> read = scan.readableFile(path);
        const bool better = read && (!guess || (!guess->total && read->total));
        if (!attached || better) attached = path;
        if (better) guess = std::move(read);
        if (guess && guess->total) break;
    }
    if (!guess) guess = scan.text(message);
    if (!attached && !hasKeywordTotal(*guess))
        for (const EmailReceipt::Part* part : chosen(message, isPhoto)) {
            const std::filesystem::path path = attachments.write(*part);
            std::optional<ReceiptGuess> read = scan.readableFile(path);
            if (!read || !hasKeywordTotal(*read)) continue;
            attached = path;
            guess = std::move(read);
            break;
        }
    if (attached) attachments.keep(*attached, result);
    result.guess = std::move(*guess);
    if (result.guess.vendor.empty()) result.guess.vendor = EmailReceipt::senderName(message.from);
    // The doubt stays: the day a bill was sent is not always the bill's own.
    if (!result.guess.date) result.guess.date = message.date;
    return result;
}

}  // namespace

Result scan(ReceiptReader& reader, const std::filesystem::path& file, DateOrder order, Day today,
            const std::atomic<bool>* cancel) {
    const Scan scan{reader, order, today, cancel};
    const std::string extension = Text::lower(file.extension().string());
    if (extension != ".eml" && extension != ".emlx") return {scan.file(file), {file}, {}};
    std::string bytes;
    try {
        if (Files::size(file).value_or(maximumMailBytes) < maximumMailBytes) bytes = Files::read(file);
    } catch (const FileError&) {
    }
    if (bytes.empty()) throw Reader::ReadError(Reader::ReadError::Code::unreadable);
    const EmailReceipt::Message message = EmailReceipt::parse(bytes);
    if (message.attachments.empty() && Text::trim(message.subject + message.bodyText).empty())
        throw Reader::ReadError(Reader::ReadError::Code::empty);
    return mail(scan, file, message);
}

}  // namespace tamba::ReceiptScanner
