#include "TambaCore/Documents/DocumentCheck.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tamba::DocumentCheck {
namespace {

using LibraryCheck::Kind;

std::string name(const Document& document) {
    const std::string kind = Text::lower(Books::title(document.kind));
    return document.number ? kind + " “" + *document.number + "”" : kind + " draft of " + document.issueDate.iso();
}

class Checker {
public:
    explicit Checker(const Library& library) : library_(library) {
        for (const Document& document : library.documents) {
            documents_.emplace(document.id, &document);
            if (document.kind == DocKind::creditNote && document.isIssued() && document.linkedID)
                ++notes_[*document.linkedID];
        }
    }

    std::vector<LibraryCheck::Problem> run() {
        expenses();
        for (const Document& document : library_.documents) {
            if (!document.isIssued() && !document.payments.empty()) paidThough(document);
            if (document.kind == DocKind::creditNote && document.isIssued()) credit(document);
            if (document.kind == DocKind::invoice && document.isIssued()) settled(document);
        }
        return std::move(problems_);
    }

private:
    void problem(Kind kind, const char* list, const UUID& id, std::string sentence) {
        problems_.push_back({kind, list, id.text(), std::move(sentence)});
    }

    void paidThough(const Document& document) {
        const bool draft = document.state == DocState::draft;
        problem(Kind::voidSettled, "documents", document.id,
                "The " + name(document) + (draft ? "" : " is void, but") + " has payments. " +
                    (draft ? "Issue it, or remove them."
                           : "Remove them, and record them on the invoice that takes its place."));
    }

    void credit(const Document& note) {
        const auto invoice = note.linkedID ? documents_.find(*note.linkedID) : documents_.end();
        if (invoice == documents_.end() || invoice->second->isIssued()) return;
        problem(Kind::voidSettled, "documents", note.id,
                "The " + name(note) + " is for the " + name(*invoice->second) +
                    ", which does not count. Void the credit note, too.");
    }

    void settled(const Document& invoice) {
        const auto standing = standings_.of(invoice);
        if (!standing) return;
        if (standing->paid > standing->totals.total)
            problem(Kind::overSettled, "documents", invoice.id,
                    "More was paid on the " + name(invoice) +
                        " than it comes to. Look whether a payment is recorded twice.");
        // Each note's total can be rounded up by less than a whole unit.
        const auto notes = notes_.find(invoice.id);
        const std::int64_t rounding =
            notes == notes_.end() ? 0 : Checked::mul(notes->second, Currency::of(invoice.currency).scale());
        if (Checked::sub(standing->credited, standing->totals.total) > rounding)
            problem(Kind::overSettled, "documents", invoice.id,
                    "More was credited on the " + name(invoice) +
                        " than it comes to. Look whether a credit note was issued twice, and void one.");
    }

    void expenses() {
        std::unordered_map<UUID, std::vector<const Document*>> invoices;
        for (const Document& document : library_.documents) {
            if (document.kind != DocKind::invoice || document.state == DocState::void_) continue;
            for (const Line& line : document.lines)
                if (line.expenseID) invoices[*line.expenseID].push_back(&document);
        }
        for (const Expense& expense : library_.expenses) {
            const auto billed = invoices.find(expense.id);
            if (billed == invoices.end() || billed->second.size() < 2) continue;
            problem(Kind::billedTwice, "expenses", expense.id,
                    "The expense “" + expense.vendor + "” of " + expense.date.iso() + " is billed on the " +
                        name(*billed->second[0]) + " and again on the " + name(*billed->second[1]) +
                        ". Take it off one of them.");
        }
    }

    const Library& library_;
    const Books::Standings standings_{library_, Day{}};
    std::unordered_map<UUID, const Document*> documents_;
    std::unordered_map<UUID, std::int64_t> notes_;  // issued ones of each invoice
    std::vector<LibraryCheck::Problem> problems_;
};

}  // namespace

std::vector<LibraryCheck::Problem> problems(const Library& library) { return Checker(library).run(); }

}  // namespace tamba::DocumentCheck
