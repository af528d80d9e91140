#include "TambaCore/Reports/TDS.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace tamba::TDS {
namespace {

bool isInside(const FinancialYear& year, const Payment& payment) {
    return payment.tds != 0 && year.contains(payment.date);
}

std::string taxIDOf(const Library& library, const Document& invoice) {
    if (invoice.billTo) return GSTIN::clean(invoice.billTo->taxID);
    const Client* client = invoice.clientID ? library.client(*invoice.clientID) : nullptr;
    return client ? GSTIN::clean(client->taxID) : "";
}

std::optional<Deduction> deduction(const Library& library, const Document& invoice, const DocTotals& sums,
                                   const Payment& payment) {
    const auto home = [&](std::int64_t amount) { return Books::inHomeCurrency(library, invoice, amount); };
    const std::int64_t share = sums.total < 1 ? 0 : MoneyMath::mulDiv(payment.settles(), sums.taxable, sums.total);
    const auto taxable = home(share), received = home(payment.amount), tds = home(payment.tds);
    if (!taxable || !received || !tds) return {};
    Deduction result;
    result.invoiceID = invoice.id;
    result.paymentID = payment.id;
    result.date = payment.date;
    result.quarter = (payment.date.m + 8) % 12 / 3 + 1;
    result.client = clientNameOf(library, invoice);
    result.gstin = taxIDOf(library, invoice);
    result.pan = GSTIN::isValid(result.gstin) ? GSTIN::pan(result.gstin).value_or("") : "";
    result.number = invoice.displayNumber();
    result.invoiceDate = invoice.issueDate;
    result.taxable = *taxable;
    result.received = *received;
    result.tds = *tds;
    // At most 10,000 %, which a slip of the pen gives; the quotient of any two amounts need not fit.
    if (*taxable > 0) result.rateBP = *tds / 100 >= *taxable ? 1'000'000 : MoneyMath::mulDiv(*tds, 10'000, *taxable);
    return result;
}

}  // namespace

Year year(const Library& library, int startYear) {
    Year result;
    result.year = {startYear, 4};
    for (const Document& invoice : library.documents) {
        const auto& payments = invoice.payments;
        const auto counts = [&](const Payment& payment) { return isInside(result.year, payment); };
        if (invoice.kind != DocKind::invoice || invoice.state != DocState::issued) continue;
        if (std::none_of(payments.begin(), payments.end(), counts)) continue;
        bool isWhole = DocMath::isBelievable(invoice);
        const DocTotals sums = isWhole ? DocMath::sums(invoice) : DocTotals();
        for (const Payment& payment : payments) {
            if (!isWhole || !counts(payment)) continue;
            auto one = deduction(library, invoice, sums, payment);
            isWhole = one.has_value();
            if (one) result.deductions.push_back(std::move(*one));
        }
        if (!isWhole) result.leftOut.push_back(invoice.id);
    }
    std::stable_sort(result.deductions.begin(), result.deductions.end(), [](const Deduction& a, const Deduction& b) {
        return std::tie(a.date, a.number) < std::tie(b.date, b.number);
    });

    struct Group {
        ClientRow row;
        std::array<Sum, 4> quarters;
        Sum total;
    };
    std::map<std::string, Group> groups;
    std::array<Sum, 4> quarters;
    Sum total;
    for (const Deduction& one : result.deductions) {
        // Clients deduct under a PAN; a business with several registrations has one certificate.
        Group& group = groups[one.pan.empty() ? "name " + one.client : "pan " + one.pan];
        if (group.row.name.empty()) group.row.name = one.client, group.row.gstin = one.gstin, group.row.pan = one.pan;
        const auto quarter = static_cast<std::size_t>(one.quarter - 1);
        for (Sum* sum : {&group.quarters[quarter], &group.total, &quarters[quarter], &total}) sum->add(one.tds);
        auto& ids = group.row.invoiceIDs;
        if (std::find(ids.begin(), ids.end(), one.invoiceID) == ids.end()) ids.push_back(one.invoiceID);
    }
    for (auto& [key, group] : groups) {
        for (std::size_t i = 0; i < 4; ++i) group.row.quarters[i] = group.quarters[i].value();
        group.row.total = group.total.value();
        result.clients.push_back(std::move(group.row));
    }
    std::stable_sort(result.clients.begin(), result.clients.end(),
                     [](const ClientRow& a, const ClientRow& b) { return Text::compareForPeople(a.name, b.name) < 0; });
    for (std::size_t i = 0; i < 4; ++i) result.quarters[i] = quarters[i].value();
    result.total = total.value();
    return result;
}

}  // namespace tamba::TDS
