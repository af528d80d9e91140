#pragma once

#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/Models.h"

#include <limits>
#include <string>

namespace tamba::testing {

/// Books of any shape: every kind and state of document, several currencies, missing rates, figures beyond belief,
/// payments and credit notes that do not fit their invoices. The same for the same seed.
inline Library randomBooks(std::uint64_t seed) {
    Fixtures::Dice dice(seed);
    Library library = Library::make();
    const auto day = [&dice] { return Day{2025, 10, 1}.addingDays(dice.below(700)); };
    const auto money = [&dice] {
        return dice.below(60) == 0 ? std::numeric_limits<std::int64_t>::max() : dice.below(5'000'000);
    };
    const auto price = [&](auto& record) {
        static const std::string currencies[] = {"INR", "INR", "INR", "USD", "JPY", "KWD"};
        record.currency = currencies[dice.below(6)];
        record.rateMicros = dice.below(8) == 0 ? 0 : dice.below(300'000'000);
    };
    for (int i = 0; i < 5; ++i) {
        Client client = Client::make("Client " + std::to_string(i));
        client.id = dice.id();
        library.clients.append(client);
        // The first client has two projects, the last none.
        library.projects.append({dice.id(), "Project", library.clients[static_cast<std::size_t>(i / 2)].id, false, {}});
    }
    for (int i = 0; i < 150; ++i) {
        Expense expense;
        expense.id = dice.id();
        expense.date = day();
        price(expense);
        expense.amount = money();
        expense.tax = expense.amount > 5'000'000 ? 0 : dice.below(expense.amount + 1);
        expense.claimTax = dice.below(2) == 0;
        if (dice.below(4) > 0) expense.categoryID = library.categories[static_cast<std::size_t>(dice.below(13))].id;
        if (dice.below(2) == 0) expense.projectID = library.projects[static_cast<std::size_t>(dice.below(5))].id;
        library.expenses.append(expense);

        Document document;
        document.id = dice.id();
        document.clientID = library.clients[static_cast<std::size_t>(dice.below(5))].id;
        document.kind = static_cast<DocKind>(dice.below(3));
        document.state = dice.below(3) > 0 ? DocState::issued : static_cast<DocState>(dice.below(5));
        document.issueDate = day();
        document.dueDate = document.issueDate.addingDays(dice.below(120));
        price(document);
        document.roundOff = dice.below(2) == 0;
        document.supply = static_cast<SupplyType>(dice.below(8));
        for (std::int64_t lines = dice.below(4); lines > 0; --lines) {
            static constexpr int rates[] = {0, 25, 500, 1800, 4000};
            Line line;
            line.qtyMilli = dice.below(9'000);
            line.priceMinor = money();
            line.discountBP = static_cast<int>(dice.below(3) * 333);
            line.taxBP = rates[dice.below(5)];
            if (dice.below(3) == 0) line.expenseID = library.expenses[static_cast<std::size_t>(dice.below(i + 1))].id;
            document.lines.push_back(line);
        }
        for (std::int64_t payments = dice.below(3); payments > 0; --payments) {
            Payment payment;
            payment.date = day();
            payment.amount = dice.below(3'000'000);
            payment.tds = dice.below(300'000);
            document.payments.push_back(payment);
        }
        if (document.kind == DocKind::creditNote && !library.documents.empty())
            document.linkedID =
                library.documents[static_cast<std::size_t>(dice.below(std::int64_t(library.documents.size())))].id;
        library.documents.append(document);
    }
    return library;
}

}  // namespace tamba::testing
