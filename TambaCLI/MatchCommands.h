#pragma once

#include "TambaCLI/Commands.h"

#include <optional>
#include <string>
#include <vector>

/// `tamba-cli bank` on the lines in the books, and `tamba-cli rule`. A line is named by the beginning
/// of its ID, or by a part of its narration that no other line has.
namespace tamba::cli {

struct ImportOptions {
    std::string file, account;  ///< without an account, the only one; one that is not there is made
    std::string currency;       ///< of an account that is made
    std::optional<DateOrder> order;
    bool anyway = false;  ///< lines that the books hold already come in once more
};
int importStatement(const Context& context, const ImportOptions& options);

struct LineFilter {
    std::optional<Day> from, to;
    bool open = false;
};
int listLines(const Context& context, const LineFilter& filter);
int suggestMatches(const Context& context, const std::string& line);

struct MatchOptions {
    std::string line, expense, invoice, payment;
    std::vector<std::string> shares;  ///< NUMBER=AMOUNT
    bool restAsTDS = false, restAsExchange = false;
    bool obvious = false;
};
int matchLine(const Context& context, const MatchOptions& options);
int unmatchLine(const Context& context, const std::string& line);
int ignoreLine(const Context& context, const std::string& line, bool ignored);
int expenseFromLine(const Context& context, const std::string& line);

struct RuleEntry {
    std::string contains, category, vendor;
    std::string expense;  ///< the beginning of the ID of one that says it all
};
int listRules(const Context& context);
int addRule(const Context& context, const RuleEntry& entry);
/// `rule`: its text, case ignored, or the beginning of its ID.
int removeRule(const Context& context, const std::string& rule);
int moveRule(const Context& context, const std::string& rule, int place);

}  // namespace tamba::cli
