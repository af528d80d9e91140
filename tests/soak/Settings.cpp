#include "TambaCore/Documents/Categories.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Numbering.h"
#include "tests/soak/Somebody.h"

namespace tamba::soak {

Library Somebody::changeClients(Library library, Day) {
    const Client* present = oneIn(2) ? one(library.clients) : nullptr;
    if (present && oneIn(4)) return Clients::removeClient(library, UUID(present->id));
    if (present && oneIn(4)) return Clients::setClientArchived(library, UUID(present->id), !present->archived);
    Client client = present ? *present : Client::make(vendor());
    client.country = oneOf<std::string>({"IN", "IN", "IN", "US", ""});
    client.stateCode = oneOf<std::optional<std::string>>({"27", "29", "7", std::nullopt});
    client.taxID = oneOf<std::string>({"", "27AABCM1234K1ZP", "29AABCM1234K1Z5", "27BAD"});
    client.currency = oneIn(2) ? "INR" : currency();
    client.sez = oneIn(6);
    client.dueDays = oneIn(2) ? std::nullopt : std::optional(static_cast<int>(upTo(90)));
    client.email = oneIn(2) ? "asha@saffron.example" : "";
    return Clients::put(std::move(library), std::move(client));
}

Library Somebody::changeProjects(Library library, Day) {
    const Project* present = oneIn(2) ? one(library.projects) : nullptr;
    if (present && oneIn(4)) return Clients::removeProject(library, UUID(present->id));
    if (present && oneIn(4)) return Clients::setProjectArchived(library, UUID(present->id), !present->archived);
    Project project = present ? *present : Project::make(vendor(), std::nullopt);
    project.clientID = oneOrNone(library.clients);
    return Clients::put(std::move(library), std::move(project));
}

Library Somebody::changeItems(Library library, Day) {
    const CatalogItem* present = oneIn(2) ? one(library.items) : nullptr;
    if (present && oneIn(3)) return Clients::removeItem(library, UUID(present->id));
    CatalogItem item = present ? *present : CatalogItem::make(vendor());
    item.priceMinor = upTo(9'000'000);
    item.taxBP = oneOf({0, 500, 1800});
    return Clients::put(std::move(library), std::move(item));
}

Library Somebody::changeCategories(Library library, Day) {
    const Category* present = one(library.categories);
    if (!present || oneIn(2)) {
        library.categories.append({dice_.id(), vendor() + " things", "tag", "7D7466", oneIn(2), {}});
        return library;
    }
    const UUID id = present->id;
    if (library.categories.size() > 5 && oneIn(2))
        return Categories::remove(library, id, oneIn(2) ? std::nullopt : std::optional(one(library.categories)->id));
    library.categories.update(indexOf(library.categories, id), [](Category& c) { c.claimsTax = !c.claimsTax; });
    return library;
}

Library Somebody::changeBusiness(Library library, Day) {
    Business& business = library.business;
    switch (upTo(7)) {
        case 0:
            business.name = vendor();
            break;
        case 1:
            business.regime =
                oneOf({TaxRegime::gstIndia, TaxRegime::gstIndia, TaxRegime::gstComposition, TaxRegime::none});
            break;
        case 2:
            business.taxID = oneOf<std::string>({"27AAPFU0939F1ZV", "29AAPFU0939F1ZR", ""});
            break;
        case 3:
            business.roundTotals = !business.roundTotals;
            break;
        case 4:
            business.fyStartMonth = oneOf({4, 4, 1, 7});
            break;
        case 5:
            business.defaultTaxBP = oneOf({0, 500, 1800});
            break;
        case 6:
            business.mileageRateMinor = upTo(5'000);
            break;
        default:
            business.lutReference = oneIn(2) ? "AD2704260001234" : "";
    }
    return library;
}

Library Somebody::changeNumbering(Library library, Day today) {
    const NumberSeries* present = one(library.series);
    if (!present || oneIn(4)) {
        const std::string mark(1, static_cast<char>('A' + upTo(25)));
        library.series.append({dice_.id(), static_cast<DocKind>(upTo(2)), mark, mark + "/{YY}{MM}/{##}", {}, {}});
        return library;
    }
    const UUID id = present->id;
    if (oneIn(2)) return Numbering::remove(std::move(library), id);
    return Numbering::startAt(std::move(library), id, today, 1 + upTo(50));
}

Library Somebody::changeRates(Library library, Day today) {
    const std::string code = currency();
    if (code == library.home().code) return library;
    return Expenses::keepRate(std::move(library), code, oneIn(4) ? std::nullopt : std::optional(rate()), today);
}

}  // namespace tamba::soak
