#pragma once

#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/Models.h"

namespace tamba::Fixtures {

/// A new book whose ids come from the dice.
inline Library blank(Dice& dice) {
    Library library = Library::make();
    const auto renew = [&dice](auto& list) {
        for (std::size_t i = 0; i < list.size(); ++i) list.update(i, [&dice](auto& record) { record.id = dice.id(); });
    };
    renew(library.categories);
    renew(library.series);
    renew(library.accounts);
    return library;
}

}  // namespace tamba::Fixtures
