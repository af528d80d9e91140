#pragma once

#include "TambaCore/Model/FieldTable.h"
#include "TambaCore/Model/Models.h"

#include <array>
#include <string_view>
#include <tuple>

/// Each record's keys and members, listed once, in the file's order (sorted by key). Reading, writing, comparing,
/// merging and explaining a change all walk these tables. Optional members may be missing in the file; all others must
/// be there. A `static_assert` breaks the build when a member is forgotten or a key is out of order.
namespace tamba {

template <>
inline constexpr std::array<std::string_view, 3> enumWords<DateOrder>{"dmy", "mdy", "ymd"};
template <>
inline constexpr std::array<std::string_view, 4> enumWords<TaxRegime>{"gstIndia", "gstComposition", "simple", "none"};
template <>
inline constexpr std::array<std::string_view, 8> enumWords<SupplyType>{
    "intraState", "interState", "exportLUT", "exportWithIGST", "sezLUT", "sezWithIGST", "simple", "noTax"};
template <>
inline constexpr std::array<std::string_view, 8> enumWords<PaymentMethod>{"upi",       "card",   "bank",   "cash",
                                                                          "pettyCash", "cheque", "wallet", "other"};
template <>
inline constexpr std::array<std::string_view, 2> enumWords<ExpenseKind>{"regular", "mileage"};
template <>
inline constexpr std::array<std::string_view, 4> enumWords<Frequency>{"weekly", "monthly", "quarterly", "yearly"};
template <>
inline constexpr std::array<std::string_view, 3> enumWords<DocKind>{"invoice", "estimate", "creditNote"};
template <>
inline constexpr std::array<std::string_view, 5> enumWords<DocState>{"draft", "issued", "void", "accepted", "declined"};

template <>
inline constexpr auto Fields<Currency> = std::tuple{
    Field{"code", &Currency::code}, Field{"exponent", &Currency::exponent}, Field{"localeID", &Currency::localeID},
    Field{"name", &Currency::name}, Field{"symbol", &Currency::symbol}};
static_assert(listsEveryField<Currency>);

template <>
inline constexpr auto Fields<FinancialYear> =
    std::tuple{Field{"startMonth", &FinancialYear::startMonth}, Field{"startYear", &FinancialYear::startYear}};
static_assert(listsEveryField<FinancialYear>);

template <>
inline constexpr auto Fields<TaxSplit> = std::tuple{Field{"cgst", &TaxSplit::cgst}, Field{"igst", &TaxSplit::igst},
                                                    Field{"other", &TaxSplit::other}, Field{"sgst", &TaxSplit::sgst}};
static_assert(listsEveryField<TaxSplit>);

template <>
inline constexpr auto Fields<BankDetails> = std::tuple{Field{"accountName", &BankDetails::accountName},
                                                       Field{"accountNumber", &BankDetails::accountNumber},
                                                       Field{"bankName", &BankDetails::bankName},
                                                       Field{"iban", &BankDetails::iban},
                                                       Field{"ifsc", &BankDetails::ifsc},
                                                       Field{"swift", &BankDetails::swift}};
static_assert(listsEveryField<BankDetails>);

template <>
inline constexpr auto Fields<Business> = std::tuple{Field{"accentHex", &Business::accentHex},
                                                    Field{"address", &Business::address},
                                                    Field{"bank", &Business::bank},
                                                    Field{"country", &Business::country},
                                                    Field{"defaultDueDays", &Business::defaultDueDays},
                                                    Field{"defaultTaxBP", &Business::defaultTaxBP},
                                                    Field{"distanceUnit", &Business::distanceUnit},
                                                    Field{"email", &Business::email},
                                                    Field{"footer", &Business::footer},
                                                    Field{"fyStartMonth", &Business::fyStartMonth},
                                                    Field{"homeCurrency", &Business::homeCurrency},
                                                    Field{"logoFile", &Business::logoFile},
                                                    Field{"lutReference", &Business::lutReference},
                                                    Field{"mileageRateMinor", &Business::mileageRateMinor},
                                                    Field{"name", &Business::name},
                                                    Field{"pan", &Business::pan},
                                                    Field{"phone", &Business::phone},
                                                    Field{"receiptDateOrder", &Business::receiptDateOrder},
                                                    Field{"regime", &Business::regime},
                                                    Field{"roundTotals", &Business::roundTotals},
                                                    Field{"showUPIQR", &Business::showUPIQR},
                                                    Field{"signatory", &Business::signatory},
                                                    Field{"stateCode", &Business::stateCode},
                                                    Field{"taxID", &Business::taxID},
                                                    Field{"taxIDLabel", &Business::taxIDLabel},
                                                    Field{"taxName", &Business::taxName},
                                                    Field{"terms", &Business::terms},
                                                    Field{"upiID", &Business::upiID},
                                                    Field{"website", &Business::website}};
static_assert(listsEveryField<Business>);

template <>
inline constexpr auto Fields<Client> =
    std::tuple{Field{"address", &Client::address},     Field{"archived", &Client::archived},
               Field{"contact", &Client::contact},     Field{"country", &Client::country},
               Field{"currency", &Client::currency},   Field{"dueDays", &Client::dueDays},
               Field{"email", &Client::email},         Field{"id", &Client::id},
               Field{"name", &Client::name},           Field{"notes", &Client::notes},
               Field{"phone", &Client::phone},         Field{"sez", &Client::sez},
               Field{"stateCode", &Client::stateCode}, Field{"taxID", &Client::taxID}};
static_assert(listsEveryField<Client>);

template <>
inline constexpr auto Fields<PartySnapshot> =
    std::tuple{Field{"address", &PartySnapshot::address},     Field{"country", &PartySnapshot::country},
               Field{"email", &PartySnapshot::email},         Field{"name", &PartySnapshot::name},
               Field{"stateCode", &PartySnapshot::stateCode}, Field{"taxID", &PartySnapshot::taxID}};
static_assert(listsEveryField<PartySnapshot>);

template <>
inline constexpr auto Fields<CatalogItem> = std::tuple{Field{"detail", &CatalogItem::detail},
                                                       Field{"hsn", &CatalogItem::hsn},
                                                       Field{"id", &CatalogItem::id},
                                                       Field{"name", &CatalogItem::name},
                                                       Field{"priceMinor", &CatalogItem::priceMinor},
                                                       Field{"taxBP", &CatalogItem::taxBP},
                                                       Field{"unit", &CatalogItem::unit}};
static_assert(listsEveryField<CatalogItem>);

template <>
inline constexpr auto Fields<Category> =
    std::tuple{Field{"claimsTax", &Category::claimsTax}, Field{"colorHex", &Category::colorHex},
               Field{"id", &Category::id}, Field{"name", &Category::name}, Field{"symbol", &Category::symbol}};
static_assert(listsEveryField<Category>);

template <>
inline constexpr auto Fields<Project> =
    std::tuple{Field{"archived", &Project::archived}, Field{"clientID", &Project::clientID}, Field{"id", &Project::id},
               Field{"name", &Project::name}};
static_assert(listsEveryField<Project>);

template <>
inline constexpr auto Fields<Attachment> =
    std::tuple{Field{"addedAt", &Attachment::addedAt}, Field{"id", &Attachment::id},
               Field{"originalName", &Attachment::originalName}, Field{"path", &Attachment::path}};
static_assert(listsEveryField<Attachment>);

template <>
inline constexpr auto Fields<Expense> = std::tuple{Field{"amount", &Expense::amount},
                                                   Field{"attachments", &Expense::attachments},
                                                   Field{"bankTxnID", &Expense::bankTxnID},
                                                   Field{"billable", &Expense::billable},
                                                   Field{"categoryID", &Expense::categoryID},
                                                   Field{"check", &Expense::check},
                                                   Field{"claimTax", &Expense::claimTax},
                                                   Field{"clientID", &Expense::clientID},
                                                   Field{"createdAt", &Expense::createdAt},
                                                   Field{"currency", &Expense::currency},
                                                   Field{"date", &Expense::date},
                                                   Field{"distanceMilli", &Expense::distanceMilli},
                                                   Field{"id", &Expense::id},
                                                   Field{"kind", &Expense::kind},
                                                   Field{"method", &Expense::method},
                                                   Field{"mileageRateMinor", &Expense::mileageRateMinor},
                                                   Field{"notes", &Expense::notes},
                                                   Field{"ocrText", &Expense::ocrText},
                                                   Field{"projectID", &Expense::projectID},
                                                   Field{"rateMicros", &Expense::rateMicros},
                                                   Field{"rebilledInvoiceID", &Expense::rebilledInvoiceID},
                                                   Field{"recurringID", &Expense::recurringID},
                                                   Field{"tax", &Expense::tax},
                                                   Field{"taxSplit", &Expense::taxSplit},
                                                   Field{"vendor", &Expense::vendor},
                                                   Field{"vendorTaxID", &Expense::vendorTaxID}};
static_assert(listsEveryField<Expense>);

template <>
inline constexpr auto Fields<RecurringExpense> =
    std::tuple{Field{"anchorDay", &RecurringExpense::anchorDay}, Field{"endDate", &RecurringExpense::endDate},
               Field{"frequency", &RecurringExpense::frequency}, Field{"id", &RecurringExpense::id},
               Field{"nextDate", &RecurringExpense::nextDate},   Field{"paused", &RecurringExpense::paused},
               Field{"template", &RecurringExpense::template_}};
static_assert(listsEveryField<RecurringExpense>);

template <>
inline constexpr auto Fields<Line> = std::tuple{Field{"detail", &Line::detail},
                                                Field{"discountBP", &Line::discountBP},
                                                Field{"expenseID", &Line::expenseID},
                                                Field{"hsn", &Line::hsn},
                                                Field{"id", &Line::id},
                                                Field{"name", &Line::name},
                                                Field{"priceMinor", &Line::priceMinor},
                                                Field{"qtyMilli", &Line::qtyMilli},
                                                Field{"taxBP", &Line::taxBP},
                                                Field{"unit", &Line::unit}};
static_assert(listsEveryField<Line>);

template <>
inline constexpr auto Fields<Payment> = std::tuple{
    Field{"amount", &Payment::amount}, Field{"bankTxnID", &Payment::bankTxnID}, Field{"date", &Payment::date},
    Field{"id", &Payment::id},         Field{"method", &Payment::method},       Field{"reference", &Payment::reference},
    Field{"tds", &Payment::tds}};
static_assert(listsEveryField<Payment>);

template <>
inline constexpr auto Fields<Document> = std::tuple{Field{"billTo", &Document::billTo},
                                                    Field{"clientID", &Document::clientID},
                                                    Field{"createdAt", &Document::createdAt},
                                                    Field{"currency", &Document::currency},
                                                    Field{"dueDate", &Document::dueDate},
                                                    Field{"id", &Document::id},
                                                    Field{"issueDate", &Document::issueDate},
                                                    Field{"kind", &Document::kind},
                                                    Field{"lastReminder", &Document::lastReminder},
                                                    Field{"lines", &Document::lines},
                                                    Field{"linkedID", &Document::linkedID},
                                                    Field{"lut", &Document::lut},
                                                    Field{"notes", &Document::notes},
                                                    Field{"number", &Document::number},
                                                    Field{"payments", &Document::payments},
                                                    Field{"placeOfSupply", &Document::placeOfSupply},
                                                    Field{"rateMicros", &Document::rateMicros},
                                                    Field{"reason", &Document::reason},
                                                    Field{"reference", &Document::reference},
                                                    Field{"remindersSent", &Document::remindersSent},
                                                    Field{"roundOff", &Document::roundOff},
                                                    Field{"seller", &Document::seller},
                                                    Field{"sentOn", &Document::sentOn},
                                                    Field{"seriesID", &Document::seriesID},
                                                    Field{"state", &Document::state},
                                                    Field{"supply", &Document::supply},
                                                    Field{"terms", &Document::terms}};
static_assert(listsEveryField<Document>);

template <>
inline constexpr auto Fields<NumberSeries> =
    std::tuple{Field{"id", &NumberSeries::id}, Field{"kind", &NumberSeries::kind}, Field{"name", &NumberSeries::name},
               Field{"next", &NumberSeries::next}, Field{"pattern", &NumberSeries::pattern}};
static_assert(listsEveryField<NumberSeries>);

template <>
inline constexpr auto Fields<BankAccount> = std::tuple{
    Field{"currency", &BankAccount::currency}, Field{"id", &BankAccount::id}, Field{"name", &BankAccount::name}};
static_assert(listsEveryField<BankAccount>);

template <>
inline constexpr auto Fields<BankTransaction> = std::tuple{Field{"accountID", &BankTransaction::accountID},
                                                           Field{"amount", &BankTransaction::amount},
                                                           Field{"balance", &BankTransaction::balance},
                                                           Field{"categoryHint", &BankTransaction::categoryHint},
                                                           Field{"counterparty", &BankTransaction::counterparty},
                                                           Field{"date", &BankTransaction::date},
                                                           Field{"expenseID", &BankTransaction::expenseID},
                                                           Field{"id", &BankTransaction::id},
                                                           Field{"ignored", &BankTransaction::ignored},
                                                           Field{"invoiceID", &BankTransaction::invoiceID},
                                                           Field{"paymentID", &BankTransaction::paymentID},
                                                           Field{"reference", &BankTransaction::reference},
                                                           Field{"source", &BankTransaction::source},
                                                           Field{"text", &BankTransaction::text}};
static_assert(listsEveryField<BankTransaction>);

template <>
inline constexpr auto Fields<CategoryRule> =
    std::tuple{Field{"categoryID", &CategoryRule::categoryID}, Field{"contains", &CategoryRule::contains},
               Field{"id", &CategoryRule::id}, Field{"vendor", &CategoryRule::vendor}};
static_assert(listsEveryField<CategoryRule>);

template <>
inline constexpr auto Fields<FXRate> = std::tuple{
    Field{"currency", &FXRate::currency}, Field{"rateMicros", &FXRate::rateMicros}, Field{"updated", &FXRate::updated}};
static_assert(listsEveryField<FXRate>);

template <>
inline constexpr auto Fields<Library> =
    std::tuple{Field{"accounts", &Library::accounts},     Field{"business", &Library::business},
               Field{"categories", &Library::categories}, Field{"clients", &Library::clients},
               Field{"documents", &Library::documents},   Field{"expenses", &Library::expenses},
               Field{"items", &Library::items},           Field{"onboarded", &Library::onboarded},
               Field{"projects", &Library::projects},     Field{"rates", &Library::rates},
               Field{"recurring", &Library::recurring},   Field{"rules", &Library::rules},
               Field{"series", &Library::series},         Field{"transactions", &Library::transactions},
               Field{"version", &Library::version}};
static_assert(listsEveryField<Library>);

}  // namespace tamba
