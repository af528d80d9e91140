#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

/// The books as JSON: UTF-8, pretty-printed, keys sorted, days yyyy-mm-dd, points in time ISO 8601 in UTC, ids in upper
/// case. The keys are those of `Model/Fields.h`.
namespace tamba::ModelsJSON {

/// Why a file cannot be read; `what()` names the culprit: "Bad day 2026-02-30 (documents[3].dueDate)".
class DecodeError : public std::exception {
public:
    explicit DecodeError(std::string message) : message_(std::move(message)) { compose(); }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }
    /// Puts a key in front of the path.
    void inKey(std::string_view key);
    /// Puts a list position in front of the path.
    void inList(std::size_t index);

private:
    void compose();
    std::string message_, path_, text_;
};

/// Takes a text piece by piece.
using Pieces = std::function<void(std::string_view)>;
/// The whole file, each piece as soon as it is there while others write the next. What `pieces` throws ends it.
void encode(const Library& library, const Pieces& pieces);
[[nodiscard]] std::string encode(const Library& library);
/// Strict: a missing key, a wrong type, an unknown word, a bad day or text that is no JSON throws `DecodeError`. Keys
/// that this version does not know are kept in `unknown`.
[[nodiscard]] Library decode(std::string bytes);

enum class Layout { pretty, line };
/// One record as JSON. For `Library`, its records, `TaxSplit`, `Currency` and `FinancialYear`.
template <class Record>
[[nodiscard]] std::string json(const Record& record, Layout layout = Layout::line);

/// A text as a JSON string, with its quotes.
[[nodiscard]] std::string quoted(std::string_view text);

}  // namespace tamba::ModelsJSON
