#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"
#include "TambaCore/Reports/Table.h"

#include <map>
#include <string>

/// The records of a period as plain tables for accountants and their programs: amounts in the record's own currency
/// and, where it matters, in the home currency, which is blank for a record that the reports leave out. Rows stand by
/// date, then number or name.
namespace tamba::BookTables {

/// Issued and void invoices, void ones with amounts of 0. What was paid, credited and is owed is as `library` has it:
/// ask with the books `asOf` a day.
[[nodiscard]] Table invoices(const Library& library, const Period& period, Day today);
[[nodiscard]] Table invoiceLines(const Library& library, const Period& period);
[[nodiscard]] Table creditNotes(const Library& library, const Period& period);
/// Money that came in on the days of the period, whenever it was invoiced.
[[nodiscard]] Table payments(const Library& library, const Period& period);
/// What each client was invoiced and paid in the period, in the home currency.
[[nodiscard]] Table clients(const Library& library, const Period& period);

/// What the file of an attachment is called in a table, by its path.
using FileNames = std::map<std::string, std::string>;
/// Attachments without a name are not listed.
[[nodiscard]] Table expenses(const Library& library, const Period& period, const FileNames& files);
/// Those of the categories that are called equipment, which an accountant depreciates.
[[nodiscard]] Table equipment(const Library& library, const Period& period, const FileNames& files);
[[nodiscard]] Table trips(const Library& library, const Period& period);
/// Lines of all accounts, or of one; those that belong to no known account where `account` is null.
[[nodiscard]] Table bankLines(const Library& library, const Period& period);
[[nodiscard]] Table bankLines(const Library& library, const Period& period, const BankAccount* account);

/// The books as they stood at the end of a day: without what was issued or paid later. Drafts stay.
[[nodiscard]] Library asOf(Library library, Day day);
/// "27 · Maharashtra", "96 · Outside India" for what is exported; empty where no GST is charged.
[[nodiscard]] std::string placeOfSupply(const Library& library, const Document& document);

}  // namespace tamba::BookTables
