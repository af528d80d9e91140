#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <optional>
#include <string>
#include <vector>

/// What the Projects tab shows, as finished texts. Pure: the books and a filter in, rows out.
namespace tamba {

enum class ProjectOrder { name, client, income, expenses, profit };

struct ProjectFilter {
    bool archived = false;            ///< archived projects, too
    std::optional<Period> days = {};  ///< nothing: all time
    std::string search = {};          ///< words that must all occur
    ProjectOrder order = ProjectOrder::name;
    bool ascending = true;
};

struct ProjectListRow {
    UUID id;
    std::string name, client, income, expenses, profit;
    std::string status;  ///< "Archived"
    bool loss = false;
    bool operator==(const ProjectListRow&) const = default;
};

struct ProjectTable {
    std::vector<ProjectListRow> rows;
    /// "3 projects", "₹1,20,000.00 profit", "₹40,000.00 belongs to no project".
    std::string count, profit, without;
};
[[nodiscard]] ProjectTable projectTable(const Library& library, const ProjectFilter& filter);

/// A document or an expense that a project's figures come from.
struct ProjectRecordRow {
    UUID id;
    bool document = false;
    std::string text, date, amount;
    bool operator==(const ProjectRecordRow&) const = default;
};
/// The latest first.
[[nodiscard]] std::vector<ProjectRecordRow> projectRecords(const Library& library, const UUID& project,
                                                           const std::optional<Period>& days);

}  // namespace tamba
