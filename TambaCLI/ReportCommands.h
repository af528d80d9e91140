#pragma once

#include "TambaCLI/Commands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Model/Period.h"

#include <string>
#include <string_view>

/// Reports and GST returns.
namespace tamba::cli {

struct ReportOptions {
    std::string period;  ///< "2026", "2026-Q3", "2026-10"; empty: the year of today
    std::string basis;   ///< "accrual", "cash"
    bool csv = false;    ///< the rows for programs, instead of the report
};
int reportProfit(const Context& context, const ReportOptions& options);
int reportSpending(const Context& context, const ReportOptions& options);
int reportClients(const Context& context, const ReportOptions& options);
int reportOwed(const Context& context, const ReportOptions& options);
int reportTDS(const Context& context, const ReportOptions& options);
int reportInputTax(const Context& context, const ReportOptions& options);
int reportMileage(const Context& context, const ReportOptions& options);
int reportProjects(const Context& context, const ReportOptions& options);

/// What is owed and what the year has brought; the dates to keep in the next days.
int showOverview(const Context& context);
int showDue(const Context& context, int days);

struct ReturnOptions {
    std::string period;  ///< "2026-10", "2026-Q3"
    std::string output;  ///< file for the portal
    std::string rate;    ///< of the composition scheme, "6"
};
int showGSTR1(const Context& context, const ReturnOptions& options);
int showGSTR3B(const Context& context, const ReturnOptions& options);
int showComposition(const Context& context, const ReturnOptions& options);

/// "2026-10" is a month, "2026-Q3" the third quarter and "2026" the whole of the year that starts in that month of
/// 2026. Refuses anything else.
[[nodiscard]] Period periodOf(std::string_view typed, int yearStart);
[[nodiscard]] JSON idsJSON(const std::vector<UUID>& ids);

}  // namespace tamba::cli
