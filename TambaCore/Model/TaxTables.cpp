#include "TambaCore/Model/Tax.h"

namespace tamba {

const std::vector<IndianState>& IndianState::all() {
    // 25, 28, 96 and 99 are no codes a GSTIN may begin with. Delhi, Puducherry and Jammu and Kashmir have legislatures
    // of their own and levy SGST.
    static const std::vector<IndianState> states = {
        {"01", "Jammu and Kashmir"},
        {"02", "Himachal Pradesh"},
        {"03", "Punjab"},
        {"04", "Chandigarh", true},
        {"05", "Uttarakhand"},
        {"06", "Haryana"},
        {"07", "Delhi"},
        {"08", "Rajasthan"},
        {"09", "Uttar Pradesh"},
        {"10", "Bihar"},
        {"11", "Sikkim"},
        {"12", "Arunachal Pradesh"},
        {"13", "Nagaland"},
        {"14", "Manipur"},
        {"15", "Mizoram"},
        {"16", "Tripura"},
        {"17", "Meghalaya"},
        {"18", "Assam"},
        {"19", "West Bengal"},
        {"20", "Jharkhand"},
        {"21", "Odisha"},
        {"22", "Chhattisgarh"},
        {"23", "Madhya Pradesh"},
        {"24", "Gujarat"},
        {"26", "Dadra and Nagar Haveli and Daman and Diu", true},
        {"27", "Maharashtra"},
        {"29", "Karnataka"},
        {"30", "Goa"},
        {"31", "Lakshadweep", true},
        {"32", "Kerala"},
        {"33", "Tamil Nadu"},
        {"34", "Puducherry"},
        {"35", "Andaman and Nicobar Islands", true},
        {"36", "Telangana"},
        {"37", "Andhra Pradesh"},
        {"38", "Ladakh", true},
        {"97", "Other Territory", true},
    };
    return states;
}

std::string_view GSTIN::problemText(Problem problem) {
    switch (problem) {
        case Problem::length:
            return "A GSTIN has 15 characters.";
        case Problem::format:
            return "That doesn’t look like a GSTIN (2 digits, PAN, entity number, Z, check).";
        case Problem::stateCode:
            return "The first two digits aren’t a GST state code.";
        case Problem::checksum:
            return "The last character doesn’t match. Check for a typo.";
    }
    return {};
}

std::string_view title(TaxRegime regime) {
    switch (regime) {
        case TaxRegime::gstIndia:
            return "GST (India, regular)";
        case TaxRegime::gstComposition:
            return "GST (India, composition scheme)";
        case TaxRegime::simple:
            return "VAT / sales tax";
        case TaxRegime::none:
            return "Not registered for tax";
    }
    return {};
}

std::string_view title(SupplyType supply) {
    switch (supply) {
        case SupplyType::intraState:
            return "Within the state (CGST + SGST)";
        case SupplyType::interState:
            return "Between states (IGST)";
        case SupplyType::exportLUT:
            return "Export under LUT (no IGST)";
        case SupplyType::exportWithIGST:
            return "Export with IGST paid";
        case SupplyType::sezLUT:
            return "SEZ unit under LUT (no IGST)";
        case SupplyType::sezWithIGST:
            return "SEZ unit with IGST";
        case SupplyType::simple:
            return "Standard";
        case SupplyType::noTax:
            return "No tax charged";
    }
    return {};
}

const std::vector<int>& TaxRates::gst() {
    static const std::vector<int> rates = {0, 25, 300, 500, 1800, 4000};
    return rates;
}

const std::vector<int>& TaxRates::gstLegacy() {
    static const std::vector<int> rates = {1200, 2800};
    return rates;
}

const std::vector<int>& TaxRates::common() {
    static const std::vector<int> rates = {0, 500, 1000, 1500, 2000, 2100, 2300, 2500};
    return rates;
}

}  // namespace tamba
