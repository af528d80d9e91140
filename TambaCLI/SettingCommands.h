#pragma once

#include "TambaCLI/Commands.h"

#include <optional>
#include <string>

/// `tamba-cli business`, `series` and `rate`: what documents say of the business, how they are numbered, and what
/// foreign money is worth.
namespace tamba::cli {

/// What is absent stays as it is, what is empty is cleared.
struct BusinessEntry {
    std::optional<std::string> name, address, state, gstin, pan, email, phone, website;
    std::optional<std::string> lut, upi, terms, footer, signatory, accent, dueDays, tax;
    std::optional<std::string> accountName, accountNumber, bankName, ifsc, swift, iban;
    std::optional<std::string> logo;  ///< a picture to copy into the books
    std::optional<TaxRegime> regime;
    std::optional<bool> round, showCode;
};
int showBusiness(const Context& context);
int setBusiness(const Context& context, const BusinessEntry& entry);

struct SeriesEntry {
    std::string series;  ///< its kind, its name or the beginning of its ID
    std::optional<std::string> pattern, start;
    bool anyway = false;  ///< keep a pattern that is marked
};
int listSeries(const Context& context);
int setSeries(const Context& context, const SeriesEntry& entry);

struct RateEntry {
    std::string currency;
    std::string rate;  ///< empty: keep none
};
int listRates(const Context& context);
int setRate(const Context& context, const RateEntry& entry);

}  // namespace tamba::cli
