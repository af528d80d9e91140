#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"
#include "TambaCore/Reports/Deadlines.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the Overview shows, as finished texts. Pure: the books and today in, everything on the screen out.
namespace tamba {

/// Where a click leads.
struct OverviewGoal {
    enum class Place { unpaid, overdue, drafts, document, expenses, bank, profitAndLoss, deadline };
    Place place = Place::unpaid;
    std::optional<UUID> document = {};
    DocKind kind = DocKind::invoice;      ///< of the drafts
    ExpenseList list = ExpenseList::all;  ///< of the expenses
    std::optional<Period> days = {};      ///< of the profit and loss (a month, too), or what is to be filed for
    Deadlines::Kind deadline = Deadlines::Kind::gstr1;
    bool operator==(const OverviewGoal&) const = default;
};

/// One of the four figures at the top.
struct OverviewFigure {
    std::string title, amount, note;
    Tone tone = Tone::none;
    OverviewGoal goal;
    bool operator==(const OverviewFigure&) const = default;
};

/// Something that waits for the person.
struct OverviewItem {
    std::string icon, title;
    std::string detail = {}, amount = {};
    Tone tone = Tone::none;
    OverviewGoal goal = {};
    std::optional<UUID> remind = {};  ///< the overdue invoice a reminder can be sent for
    bool operator==(const OverviewItem&) const = default;
};

/// A date to keep, with what is in it.
struct OverviewDate {
    std::string day, month;  ///< "11", "Dec"
    std::string when;        ///< "today", "in 20 days"
    std::string title, holds, note;
    std::string problems = {};  ///< "2 problems"; empty where nothing would be refused
    Tone tone = Tone::none;
    OverviewGoal goal;
    bool operator==(const OverviewDate&) const = default;
};

struct OverviewMonth {
    Day month;
    std::int64_t income = 0, spent = 0;  ///< minor units of the home currency
    bool operator==(const OverviewMonth&) const = default;
};

struct Overview {
    bool empty = true;  ///< the books hold nothing yet that there is something to say about
    std::array<OverviewFigure, 4> figures;
    std::vector<OverviewMonth> months;  ///< twelve, the last one this month's
    std::vector<OverviewItem> items;    ///< what is most pressing first
    std::vector<OverviewDate> dates;
    std::string leftOut;  ///< "2 records are in no figure: they have no exchange rate"
    bool operator==(const Overview&) const = default;
};
[[nodiscard]] Overview overview(const Library& library, Day today);

/// What waits on each screen, for the sidebar.
struct Waiting {
    ExpenseCounts expenses;
    std::size_t invoices = 0;  ///< overdue
    std::size_t bank = 0;      ///< lines to match
};
[[nodiscard]] Waiting waiting(const Library& library, Day today);

/// Books that are looked through in less time than a frame takes: there is no need of a thread.
[[nodiscard]] bool isQuick(const Library& library);

}  // namespace tamba
