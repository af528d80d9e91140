#pragma once

#include "TambaCore/Model/Models.h"

#include <optional>
#include <string>
#include <string_view>

/// The first steps of new books. Pure: what a person says about the business in, books and texts out.
namespace tamba {

/// All but the name may stay as new books have it.
struct SetUp {
    std::string name;
    std::optional<std::string> stateCode;
    TaxRegime regime = TaxRegime::gstIndia;
    std::string taxID;
    std::string accentHex = Business().accentHex;
    std::string prefix = "INV";  ///< what invoice numbers begin with
};

/// Books that are set up. A valid GSTIN gives the state and the PAN as well.
[[nodiscard]] Library withSetUp(Library library, const SetUp& setUp);

/// Words under a field, and how they are meant.
struct FieldNote {
    enum class Kind { plain, good, problem };
    std::string words;
    Kind kind = Kind::plain;
    bool operator==(const FieldNote&) const = default;
};
/// What is to be said of the business's tax number while it is typed.
[[nodiscard]] FieldNote taxIDNote(TaxRegime regime, std::string_view typed);
/// "The first: INV/26-27/001", with what is wrong with it.
[[nodiscard]] FieldNote firstNumberNote(const Library& library, Day today);

/// A made-up invoice of these books, to show how theirs will look: books and the document in them.
struct LookSample {
    Library library;
    Document invoice;
};
[[nodiscard]] LookSample lookSample(Library library, Day today);

}  // namespace tamba
