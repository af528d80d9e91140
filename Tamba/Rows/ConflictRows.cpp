#include "Tamba/Rows/ConflictRows.h"

#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/RowText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Conflicts.h"
#include "TambaCore/Model/Fields.h"

#include <array>

namespace tamba {
namespace {

/// What `fieldTitle` makes of keys and words, listed for translation.
[[maybe_unused]] constexpr const char* madeTitles[] = {
    RowText::marked("Rows", "Account"),
    RowText::marked("Rows", "Address"),
    RowText::marked("Rows", "Amount"),
    RowText::marked("Rows", "Anchor day"),
    RowText::marked("Rows", "Archived"),
    RowText::marked("Rows", "Attachments"),
    RowText::marked("Rows", "Balance"),
    RowText::marked("Rows", "Bank"),
    RowText::marked("Rows", "Bill to"),
    RowText::marked("Rows", "Billable"),
    RowText::marked("Rows", "Category"),
    RowText::marked("Rows", "Category hint"),
    RowText::marked("Rows", "Check"),
    RowText::marked("Rows", "Client"),
    RowText::marked("Rows", "Contact"),
    RowText::marked("Rows", "Contains"),
    RowText::marked("Rows", "Counterparty"),
    RowText::marked("Rows", "Country"),
    RowText::marked("Rows", "Created at"),
    RowText::marked("Rows", "Currency"),
    RowText::marked("Rows", "Date"),
    RowText::marked("Rows", "Default due days"),
    RowText::marked("Rows", "Detail"),
    RowText::marked("Rows", "Distance"),
    RowText::marked("Rows", "Distance unit"),
    RowText::marked("Rows", "Due date"),
    RowText::marked("Rows", "Due days"),
    RowText::marked("Rows", "Email"),
    RowText::marked("Rows", "End date"),
    RowText::marked("Rows", "Expense"),
    RowText::marked("Rows", "Footer"),
    RowText::marked("Rows", "Frequency"),
    RowText::marked("Rows", "Home currency"),
    RowText::marked("Rows", "Ignored"),
    RowText::marked("Rows", "Invoice"),
    RowText::marked("Rows", "Issue date"),
    RowText::marked("Rows", "Kind"),
    RowText::marked("Rows", "Last reminder"),
    RowText::marked("Rows", "Lines"),
    RowText::marked("Rows", "Method"),
    RowText::marked("Rows", "Mileage rate"),
    RowText::marked("Rows", "Name"),
    RowText::marked("Rows", "Next"),
    RowText::marked("Rows", "Next date"),
    RowText::marked("Rows", "Notes"),
    RowText::marked("Rows", "Number"),
    RowText::marked("Rows", "Pattern"),
    RowText::marked("Rows", "Paused"),
    RowText::marked("Rows", "Payment"),
    RowText::marked("Rows", "Payments"),
    RowText::marked("Rows", "Phone"),
    RowText::marked("Rows", "Place of supply"),
    RowText::marked("Rows", "Price"),
    RowText::marked("Rows", "Project"),
    RowText::marked("Rows", "Rate"),
    RowText::marked("Rows", "Reason"),
    RowText::marked("Rows", "Rebilled invoice"),
    RowText::marked("Rows", "Receipt date order"),
    RowText::marked("Rows", "Recurring"),
    RowText::marked("Rows", "Reference"),
    RowText::marked("Rows", "Regime"),
    RowText::marked("Rows", "Reminders sent"),
    RowText::marked("Rows", "Round off"),
    RowText::marked("Rows", "Round totals"),
    RowText::marked("Rows", "Seller"),
    RowText::marked("Rows", "Sent on"),
    RowText::marked("Rows", "Series"),
    RowText::marked("Rows", "Signatory"),
    RowText::marked("Rows", "Source"),
    RowText::marked("Rows", "State"),
    RowText::marked("Rows", "State code"),
    RowText::marked("Rows", "Supply"),
    RowText::marked("Rows", "Symbol"),
    RowText::marked("Rows", "Tax"),
    RowText::marked("Rows", "Tax name"),
    RowText::marked("Rows", "Tax split"),
    RowText::marked("Rows", "Template"),
    RowText::marked("Rows", "Terms"),
    RowText::marked("Rows", "Text"),
    RowText::marked("Rows", "Unit"),
    RowText::marked("Rows", "Updated"),
    RowText::marked("Rows", "Vendor"),
    RowText::marked("Rows", "Website"),
    RowText::marked("Rows", "Weekly"),
    RowText::marked("Rows", "Monthly"),
    RowText::marked("Rows", "Quarterly"),
    RowText::marked("Rows", "Yearly"),
    RowText::marked("Rows", "Issued"),
    RowText::marked("Rows", "Regular"),
    RowText::marked("Rows", "Mileage"),
};

const std::string separator = " · ";

template <class T>
const T* inList(const List<T>& list, const std::string& id) {
    for (const T& record : list)
        if (identityText(record) == id) return &record;
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
    std::string operator()(const Expense& e) const {
        return joined({RowText::translate("Rows", "Expense"), e.vendor, dayText(e.date)});
    }
    std::string operator()(const Document& d) const {
        const Client* client = d.clientID ? library.client(*d.clientID) : nullptr;
        return joined(
            {RowText::translate("Rows", Books::title(d.kind)), RowText::number(d), client ? client->name : ""});
    }
    std::string operator()(const RecurringExpense& r) const {
        return joined({RowText::translate("Rows", "Recurring expense"), r.template_.vendor});
    }
    std::string operator()(const BankTransaction& t) const {
        return joined({RowText::translate("Rows", "Bank line"), t.text, dayText(t.date)});
    }
    std::string operator()(const CategoryRule& r) const {
        return joined({RowText::translate("Rows", "Rule"), r.contains});
    }
    std::string operator()(const FXRate& r) const {
        return joined({RowText::translate("Rows", "Exchange rate"), r.currency});
    }
    std::string operator()(const Client& c) const { return joined({RowText::translate("Rows", "Client"), c.name}); }
    std::string operator()(const CatalogItem& i) const { return joined({RowText::translate("Rows", "Item"), i.name}); }
    std::string operator()(const Category& c) const { return joined({RowText::translate("Rows", "Category"), c.name}); }
    std::string operator()(const Project& p) const { return joined({RowText::translate("Rows", "Project"), p.name}); }
    std::string operator()(const NumberSeries& s) const {
        return joined({RowText::translate("Rows", "Number series"), s.name});
    }
    std::string operator()(const BankAccount& a) const {
        return joined({RowText::translate("Rows", "Bank account"), a.name});
    }
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
    return RowText::translate("Rows", "Another record");
}

/// One value in words, empty where there is nothing. The key tells what a number means.
template <class M>
std::string valueText(const Library& library, const Currency& currency, std::string_view key, const M& value) {
    if constexpr (requires { value.has_value(); }) {
        return value ? valueText(library, currency, key, *value) : std::string();
    } else if constexpr (std::is_same_v<M, std::string>) {
        return Text::trim(value).empty() ? std::string() : value;
    } else if constexpr (std::is_same_v<M, bool>) {
        return value ? RowText::translate("Rows", "Yes") : RowText::translate("Rows", "No");
    } else if constexpr (std::is_same_v<M, Day>) {
        return dayText(value);
    } else if constexpr (std::is_same_v<M, UUID>) {
        return nameOf(library, value);
    } else if constexpr (std::is_same_v<M, PaymentMethod> || std::is_same_v<M, TaxRegime> ||
                         std::is_same_v<M, SupplyType>) {
        return RowText::translate("Rows", title(value));
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
        const std::string count =
            RowText::counted(value.size(), RowText::marked("Rows", "1 line"), RowText::marked("Rows", "%1 lines"));
        if (!DocMath::isBelievable(document)) return count;
        return joined({count, MoneyFormat::string(DocMath::totals(document).total, currency)});
    } else if constexpr (requires { value.begin(); }) {
        return std::to_string(std::size(value));
    } else if constexpr (IsRecord<M>) {
        std::string text;
        const auto add = [&](const auto& field) {
            const std::string part = valueText(library, currency, field.key, value.*field.member);
            if (!part.empty()) text += (text.empty() ? "" : separator) + part;
        };
        std::apply([&](const auto&... field) { (..., add(field)); }, Fields<M>);
        return text;
    } else {
        return RowText::translate("Rows", "Another value");
    }
}

template <class R>
std::string fieldValue(const Library& library, const R* record, const std::string& key) {
    if (!record) return RowText::translate("Rows", "Removed");
    if (key.empty()) return RowText::translate("Rows", "Changed");
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
    return text.empty() ? RowText::translate("Rows", "Nothing") : text;
}

ConflictRow rowOf(const MergeReport& report, const Conflict& conflict) {
    ConflictRow row;
    row.keptTheirs = conflict.keptTheirs;
    row.field = conflict.field.empty() ? RowText::translate("Rows", "The whole record") : fieldTitle(conflict.field);
    row.open = Conflicts::isOpen(report.merged, conflict, conflict.keptTheirs ? report.ours : report.theirs);
    if (conflict.list == "business") {
        row.record = RowText::translate("Rows", "Settings");
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
    static constexpr std::array<std::pair<std::string_view, const char*>, 20> own{{
        {"accentHex", RowText::marked("Rows", "Accent colour")},
        {"bankTxnID", RowText::marked("Rows", "Bank line")},
        {"claimsTax", RowText::marked("Rows", "Input tax claimed")},
        {"claimTax", RowText::marked("Rows", "Input tax claimed")},
        {"colorHex", RowText::marked("Rows", "Colour")},
        {"defaultTaxBP", RowText::marked("Rows", "Tax on new lines")},
        {"fyStartMonth", RowText::marked("Rows", "Year begins in")},
        {"hsn", RowText::marked("Rows", "HSN or SAC")},
        {"linkedID", RowText::marked("Rows", "Linked document")},
        {"logoFile", RowText::marked("Rows", "Logo")},
        {"lut", RowText::marked("Rows", "Under LUT")},
        {"lutReference", RowText::marked("Rows", "LUT reference")},
        {"ocrText", RowText::marked("Rows", "Text of the receipt")},
        {"pan", RowText::marked("Rows", "PAN")},
        {"sez", RowText::marked("Rows", "In a special economic zone")},
        {"showUPIQR", RowText::marked("Rows", "UPI code on invoices")},
        {"taxID", RowText::marked("Rows", "Tax number")},
        {"taxIDLabel", RowText::marked("Rows", "Name of the number")},
        {"upiID", RowText::marked("Rows", "UPI ID")},
        {"vendorTaxID", RowText::marked("Rows", "Vendor’s GSTIN")},
    }};
    for (const auto& [known, words] : own)
        if (known == key) return RowText::translate("Rows", words);
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
    return RowText::translate("Rows", text);
}

}  // namespace tamba
