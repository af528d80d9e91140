#include "Tamba/Rows/ClientRows.h"

#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/RowText.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Standing.h"

#include <algorithm>
#include <tuple>

namespace tamba {
namespace {

struct Entry {
    const Client* client;
    Clients::Account account;
};

bool fits(const Client& client, const std::vector<std::string>& words) {
    if (words.empty()) return true;
    const std::string all =
        Text::lower(client.name + '\n' + client.contact + '\n' + client.email + '\n' + client.phone + '\n' +
                    client.address + '\n' + client.taxID + '\n' + client.notes);
    return std::all_of(words.begin(), words.end(),
                       [&all](const std::string& word) { return Text::contains(all, word); });
}

std::string placeOf(const Client& client) {
    if (client.isForeign()) return client.country;
    const auto byNumber = GSTIN::isValid(client.taxID) ? GSTIN::stateCode(client.taxID) : std::nullopt;
    const auto state = IndianState::of(byNumber ? byNumber : client.stateCode);
    return state ? RowText::translate("Rows", state->name) : std::string();
}

const char* draftTitle(DocKind kind) {
    return kind == DocKind::invoice    ? RowText::marked("Rows", "Draft invoice")
           : kind == DocKind::estimate ? RowText::marked("Rows", "Draft estimate")
                                       : RowText::marked("Rows", "Draft credit note");
}

int compare(const Entry& a, const Entry& b, ClientOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case ClientOrder::place:
            return Text::compareForPeople(placeOf(*a.client), placeOf(*b.client));
        case ClientOrder::owed:
            return sign(a.account.owed, b.account.owed);
        case ClientOrder::overdue:
            return sign(a.account.overdue, b.account.overdue);
        case ClientOrder::late:
            return sign(a.account.daysLate, b.account.daysLate);
        case ClientOrder::name:
            break;
    }
    return 0;
}

}  // namespace

std::string lateText(std::int64_t days) {
    if (days == 0) return RowText::translate("Rows", "On time");
    const auto count = static_cast<std::size_t>(days < 0 ? -days : days);
    return days < 0 ? RowText::counted(count, RowText::marked("Rows", "1 day early"),
                                       RowText::marked("Rows", "%1 days early"))
                    : RowText::counted(count, RowText::marked("Rows", "1 day late"),
                                       RowText::marked("Rows", "%1 days late"));
}

ClientTable ClientListing::table(const Library& library, const ClientFilter& filter, Day today) {
    return kept_.get(library, filter, today, [&] { return made(library, filter, today); });
}

ClientTable ClientListing::made(const Library& library, const ClientFilter& filter, Day today) {
    std::vector<std::string> words;
    for (const std::string& word : Text::split(Text::lower(Text::trim(filter.search)), ' '))
        if (!word.empty()) words.push_back(word);
    const auto accounts = Clients::accounts(library, standings_.update(library, today));
    std::vector<Entry> entries;
    for (const Client& client : library.clients) {
        if ((client.archived && !filter.archived) || !fits(client, words)) continue;
        const auto account = accounts.find(client.id);
        entries.push_back({&client, account == accounts.end() ? Clients::Account() : account->second});
    }
    std::sort(entries.begin(), entries.end(), [&filter](const Entry& a, const Entry& b) {
        if (const int order = compare(a, b, filter.order); order != 0) return filter.ascending ? order < 0 : order > 0;
        const int names = Text::compareForPeople(a.client->name, b.client->name);
        if (names != 0) return filter.order == ClientOrder::name && !filter.ascending ? names > 0 : names < 0;
        return a.client->id < b.client->id;
    });

    ClientTable table;
    const Currency home = library.home();
    std::int64_t owed = 0, overdue = 0;
    std::size_t leftOut = 0;
    for (const auto& [client, account] : entries) {
        ClientListRow row;
        row.id = client->id;
        row.name = client->name;
        row.place = placeOf(*client);
        if (account.owed != 0) row.owed = MoneyFormat::string(account.owed, home);
        if (account.overdue != 0) row.overdue = MoneyFormat::string(account.overdue, home);
        if (account.daysLate) row.late = lateText(*account.daysLate);
        if (const auto problem = Clients::taxIDProblem(*client)) {
            row.status = RowText::translate("Rows", "Check GSTIN");
            row.hint = *problem;
            row.tone = Tone::warning;
        } else if (client->archived) {
            row.status = RowText::translate("Rows", "Archived");
            row.hint = RowText::translate("Rows", "Offered for nothing new; what there is stays.");
            row.tone = Tone::neutral;
        }
        table.rows.push_back(std::move(row));
        leftOut += account.leftOut;
        // Each is believable, yet thousands at the limit would not fit.
        owed = Checked::tryAdd(owed, account.owed).value_or(owed);
        overdue = Checked::tryAdd(overdue, account.overdue).value_or(overdue);
    }
    table.count =
        RowText::counted(entries.size(), RowText::marked("Rows", "1 client"), RowText::marked("Rows", "%1 clients"));
    table.owed = RowText::filled(RowText::translate("Rows", "%1 owed"), {MoneyFormat::string(owed, home)});
    if (overdue != 0)
        table.overdue = RowText::filled(RowText::translate("Rows", "%1 overdue"), {MoneyFormat::string(overdue, home)});
    if (leftOut > 0)
        table.leftOut = RowText::counted(leftOut, RowText::marked("Rows", "1 document left out: no rate"),
                                         RowText::marked("Rows", "%1 documents left out: no rate"));
    return table;
}

std::vector<ClientDocumentRow> clientDocuments(const Library& library, const UUID& client, Day today) {
    std::vector<const Document*> documents;
    for (const Document& document : library.documents)
        if (document.clientID == client) documents.push_back(&document);
    std::sort(documents.begin(), documents.end(), [](const Document* a, const Document* b) {
        return std::tie(b->issueDate, b->createdAt, b->id) < std::tie(a->issueDate, a->createdAt, a->id);
    });
    const Books::Standings standings(library, today);
    std::vector<ClientDocumentRow> rows;
    for (const Document* document : documents) {
        ClientDocumentRow row;
        row.id = document->id;
        row.number = document->number.value_or(RowText::translate("Rows", draftTitle(document->kind)));
        row.date = document->issueDate.formatted("d MMM yyyy");
        if (const auto standing = standings.of(*document)) {
            row.total = MoneyFormat::string(standing->totals.total, Currency::of(document->currency));
            row.status = RowText::translate("Rows", Books::title(standing->status));
            row.tone = toneOf(standing->status);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace tamba
