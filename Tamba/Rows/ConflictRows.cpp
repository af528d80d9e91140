#include "Tamba/Rows/ConflictRows.h"

#include "Tamba/Rows/ExpenseRows.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Conflicts.h"
#include "TambaCore/Model/Fields.h"

#include <array>

namespace tamba {
namespace {

const std::string separator = " · ";

std::string identity(const auto& record) {
    if constexpr (requires { record.id; })
        return record.id.text();
    else
        return record.currency;
}

template <class T>
const T* inList(const List<T>& list, const std::string& id) {
    for (const T& record : list)
        if (identity(record) == id) return &record;
    return nullptr;
}

std::string joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty()) text += (text.empty() ? "" : separator) + part;
    return text;
}

std::string dayText(Day day) { return day.formatted("d MMM yyyy"); }

/// How a record is called in a list of several kinds.
struct RecordTitle {
    const Library& library;
    std::string operator()(const Expense& e) const { return joined({"Expense", e.vendor, dayText(e.date)}); }
    std::string operator()(const Document& d) const {
        const Client* client = d.clientID ? library.client(*d.clientID) : nullptr;
        return joined({std::string(Books::title(d.kind)), d.displayNumber(), client ? client->name : ""});
    }
    std::string operator()(const RecurringExpense& r) const {
        return joined({"Recurring expense", r.template_.vendor});
    }
    std::string operator()(const BankTransaction& t) const { return joined({"Bank line", t.text, dayText(t.date)}); }
    std::string operator()(const CategoryRule& r) const { return joined({"Rule", r.contains}); }
    std::string operator()(const FXRate& r) const { return joined({"Exchange rate", r.currency}); }
    std::string operator()(const Client& c) const { return joined({"Client", c.name}); }
    std::string operator()(const CatalogItem& i) const { return joined({"Item", i.name}); }
    std::string operator()(const Category& c) const { return joined({"Category", c.name}); }
    std::string operator()(const Project& p) const { return joined({"Project", p.name}); }
    std::string operator()(const NumberSeries& s) const { return joined({"Number series", s.name}); }
    std::string operator()(const BankAccount& a) const { return joined({"Bank account", a.name}); }
};

std::string nameOf(const Library& library, const UUID& id) {
    const std::string text = id.text();
    const auto name = [&](const auto& list) {
        const auto* record = inList(list, text);
        return record ? record->name : std::string();
    };
    for (const std::string& found : {name(library.clients), name(library.categories), name(library.projects),
                                     name(library.accounts), name(library.series)})
        if (!found.empty()) return found;
    return "Another record";
}

/// One value in words. The key tells what a number means.
template <class M>
std::string valueText(const Library& library, const Currency& currency, std::string_view key, const M& value) {
    if constexpr (requires { value.has_value(); }) {
        return value ? valueText(library, currency, key, *value) : std::string("Nothing");
    } else if constexpr (std::is_same_v<M, std::string>) {
        return Text::trim(value).empty() ? "Nothing" : value;
    } else if constexpr (std::is_same_v<M, bool>) {
        return value ? "Yes" : "No";
    } else if constexpr (std::is_same_v<M, Day>) {
        return dayText(value);
    } else if constexpr (std::is_same_v<M, UUID>) {
        return nameOf(library, value);
    } else if constexpr (std::is_same_v<M, PaymentMethod> || std::is_same_v<M, TaxRegime> ||
                         std::is_same_v<M, SupplyType>) {
        return std::string(title(value));
    } else if constexpr (std::is_enum_v<M>) {
        return fieldTitle(word(value));
    } else if constexpr (std::is_integral_v<M>) {
        if (key.ends_with("BP")) return MoneyFormat::rate(static_cast<int>(value));
        if (key.ends_with("Milli")) return MoneyFormat::quantity(value);
        if (key.ends_with("Micros")) return MoneyFormat::fxRate(value);
        if (key.ends_with("Minor") || key == "amount" || key == "tax") return MoneyFormat::string(value, currency);
        return std::to_string(value);
    } else if constexpr (std::is_same_v<M, std::vector<Line>>) {
        Document document;
        document.lines = value;
        const std::string count = std::to_string(value.size()) + (value.size() == 1 ? " line" : " lines");
        if (!DocMath::isBelievable(document)) return count;
        return joined({count, MoneyFormat::string(DocMath::totals(document).total, currency)});
    } else if constexpr (requires { value.begin(); }) {
        return std::to_string(std::size(value));
    } else if constexpr (IsRecord<M>) {
        std::string text;
        const auto add = [&](const auto& field) {
            const std::string part = valueText(library, currency, field.key, value.*field.member);
            if (part != "Nothing") text += (text.empty() ? "" : separator) + part;
        };
        std::apply([&](const auto&... field) { (..., add(field)); }, Fields<M>);
        return text.empty() ? "Nothing" : text;
    } else {
        return "Another value";
    }
}

template <class R>
std::string fieldValue(const Library& library, const R* record, const std::string& key) {
    if (!record) return "Removed";
    if (key.empty()) return "Changed";
    const Currency currency = [&] {
        if constexpr (requires { record->currency; })
            return Currency::of(record->currency);
        else
            return library.home();
    }();
    std::string text;
    const auto visit = [&](const auto& field) {
        if (field.key == key) text = valueText(library, currency, key, record->*field.member);
    };
    std::apply([&](const auto&... field) { (..., visit(field)); }, Fields<R>);
    return text;
}

ConflictRow rowOf(const MergeReport& report, const Conflict& conflict) {
    ConflictRow row;
    row.keptTheirs = conflict.keptTheirs;
    row.field = conflict.field.empty() ? "The whole record" : fieldTitle(conflict.field);
    row.open = Conflicts::isOpen(report.merged, conflict, conflict.keptTheirs ? report.ours : report.theirs);
    if (conflict.list == "business") {
        row.record = "Settings";
        row.ours = fieldValue(report.ours, &report.ours.business, conflict.field);
        row.theirs = fieldValue(report.theirs, &report.theirs.business, conflict.field);
        return row;
    }
    const auto visit = [&](const auto& field) {
        using Member = std::remove_cvref_t<decltype(report.merged.*field.member)>;
        if constexpr (requires(const Member& list) { list.sharesAllWith(list); }) {
            if (field.key != conflict.list) return;
            const auto* mine = inList(report.ours.*field.member, conflict.id);
            const auto* other = inList(report.theirs.*field.member, conflict.id);
            if (const auto* known = mine ? mine : other) row.record = RecordTitle{report.merged}(*known);
            row.ours = fieldValue(report.ours, mine, conflict.field);
            row.theirs = fieldValue(report.theirs, other, conflict.field);
        }
    };
    std::apply([&](const auto&... field) { (..., visit(field)); }, Fields<Library>);
    return row;
}

}  // namespace

std::vector<ConflictRow> conflictRows(const MergeReport& report) {
    std::vector<ConflictRow> rows;
    for (const Conflict& conflict : report.conflicts) rows.push_back(rowOf(report, conflict));
    return rows;
}

Library decided(Library now, const MergeReport& report, const std::vector<std::size_t>& otherWay) {
    for (const std::size_t index : otherWay) {
        const Conflict& conflict = report.conflicts[index];
        now = Conflicts::taking(std::move(now), conflict, conflict.keptTheirs ? report.ours : report.theirs);
    }
    return now;
}

std::string fieldTitle(std::string_view key) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 16> own{{
        {"accentHex", "Accent colour"},
        {"claimTax", "Input tax claimed"},
        {"claimsTax", "Input tax claimed"},
        {"colorHex", "Colour"},
        {"defaultTaxBP", "Tax on new lines"},
        {"fyStartMonth", "Year begins in"},
        {"hsn", "HSN or SAC"},
        {"logoFile", "Logo"},
        {"lut", "Under LUT"},
        {"lutReference", "LUT reference"},
        {"ocrText", "Text of the receipt"},
        {"pan", "PAN"},
        {"sez", "In a special economic zone"},
        {"taxID", "Tax number"},
        {"upiID", "UPI ID"},
        {"vendorTaxID", "Vendor’s GSTIN"},
    }};
    for (const auto& [known, words] : own)
        if (known == key) return std::string(words);
    for (const std::string_view ending : {"Minor", "BP", "Milli", "Micros", "ID"})
        if (key.size() > ending.size() && key.ends_with(ending)) key.remove_suffix(ending.size());
    // "dueDate": "Due date"
    std::string text;
    for (const char c : key) {
        const bool upper = c >= 'A' && c <= 'Z';
        if (upper && !text.empty()) text += ' ';
        text += upper ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z')
        text.front() = static_cast<char>(text.front() - 32);
    return text;
}

}  // namespace tamba
