#pragma once

/// Who the sample studio buys from. All invented; so are their registrations, which only pass the checks.
namespace tamba::Fixtures {

struct Shop {
    const char* name;
    const char* address;
    const char* contact;
    const char* state = nullptr;  ///< with `pan`: registered for GST there
    const char* pan = nullptr;
    const char* accent = "1E4A66";
    const char* currency = "INR";
};

namespace Shops {

inline constexpr Shop landlord{"Shaniwar Workspaces LLP",
                               "Second floor, Narayan Chambers\nShaniwar Peth, Pune 411030",
                               "desk@shaniwar.example",
                               "27",
                               "ADXFS6140H",
                               "7A5C8E"};
inline constexpr Shop mobile{"Chakra Mobile Services Ltd",
                             "Senapati Towers, Baner Road\nPune 411045, Maharashtra",
                             "care@chakramobile.example",
                             "27",
                             "AADCC9137K",
                             "8A2C6B"};
inline constexpr Shop broadband{
    "Vahini Broadband Pvt Ltd", "Plot 18, Karve Nagar\nPune 411052", "Ph: 020 5550 0133", "27", "AAECV3058R", "2F7F86"};
inline constexpr Shop pixelgrove{"Pixelgrove Software, Inc.",
                                 "2100 Alder Street, Suite 7\nPortland, OR 97205, United States",
                                 "billing@pixelgrove.example",
                                 nullptr,
                                 nullptr,
                                 "3B6EA8",
                                 "USD"};
inline constexpr Shop tidemark{"Tidemark Cloud, Inc.",
                               "48 Harbor Lane\nSeattle, WA 98104, United States",
                               "accounts@tidemark.example",
                               nullptr,
                               nullptr,
                               "2B4C7E",
                               "USD"};
inline constexpr Shop mesa{
    "Mesa Analytics Pte. Ltd.", "31 Rowan Road, Singapore", "pay@mesa.example", nullptr, nullptr, "B2577A", "SGD"};
inline constexpr Shop foundry{"Aksharmala Type Foundry",
                              "6 Lodhi Bazaar, New Delhi 110003",
                              "type@aksharmala.example",
                              "07",
                              "AAPFA5521C",
                              "A64B3C"};
inline constexpr Shop domains{"Patrakar Domains LLP",
                              "Cyber Enclave, Madhapur\nHyderabad 500081, Telangana",
                              "help@patrakar.example",
                              "36",
                              "AAVFP8837J",
                              "4D5A99"};
inline constexpr Shop accountant{"Anvaya & Associates", "Chartered Accountants\nApte Road, Pune 411004",
                                 "Ph: 020 5550 0119",   "27",
                                 "AAQFA2719N",          "4D5A99"};
inline constexpr Shop stationer{"Lekhani Stationers", "Shop 2, Appa Balwant Chowk\nPune 411002", "Ph: 020 5550 0158",
                                "27", "ABLPK4467D"};
inline constexpr Shop printer{"Rang Digital Prints", "Sadashiv Peth, Pune 411030", "Ph: 020 5550 0186", "27",
                              "AAKFR9925B"};
inline constexpr Shop electronics{
    "Ujala Electronics", "Laxmi Road, Pune 411030", "Ph: 020 5550 0190", "27", "AABCU7703E", "C0703A"};
inline constexpr Shop furniture{
    "Prakash Furniture Mart", "Satara Road, Pune 411037", "Ph: 020 5550 0127", "27", "AAGFP1174L", "6E7F3E"};
inline constexpr Shop restaurant{"Chulha & Charcha", "Shop 4, Prabhat Road\nPune 411004", "Ph: 020 5550 0174", "27",
                                 "AAKFC4821M"};
inline constexpr Shop kitchen{"Kokum Kitchen", "Ganeshkhind Road, Pune 411016", "Ph: 020 5550 0162", "27",
                              "ACTPN6085G"};
inline constexpr Shop cafe{"Filter House Coffee", "Kalyani Nagar, Pune 411006", "Ph: 020 5550 0148", "27",
                           "AAHFF3390P"};
inline constexpr Shop tea{"Gullak Tea Stall", "Bhandarkar Road, Pune", ""};
inline constexpr Shop fuel{"Sangam Fuel Centre", "Mumbai Highway, Wakad\nPune 411057", "Ph: 020 5550 0111"};
inline constexpr Shop courier{
    "Monsoon Post Couriers", "Deccan Gymkhana, Pune 411004", "Ph: 020 5550 0139", "27", "AAJCM5512F", "B5893A"};
inline constexpr Shop hotel{"Hotel Lotus Terrace",
                            "14 Richmond Cross\nBengaluru 560025, Karnataka",
                            "stay@lotusterrace.example",
                            "29",
                            "AAMCH2046A",
                            "7D5A3C"};
inline constexpr Shop airline{
    "Neelpankh Airways Ltd", "Terminal Road, New Delhi 110037", "care@neelpankh.example", "07", "AACCN8810T", "2B5C9E"};
inline constexpr Shop cabs{"Rickshaw Raja",
                           "Rickshaw Raja Mobility Pvt Ltd\nKoregaon Park, Pune 411001",
                           "help@rickshawraja.example",
                           "27",
                           "AAHCR2286Q",
                           "2F7F86"};
inline constexpr Shop photographer{
    "Udyan Photo Studio", "Model Colony, Pune 411016", "Ph: 020 5550 0195", "27", "AEUPJ3347M", "5A6B7B"};
inline constexpr Shop adverts{
    "Dindi Ads Pvt Ltd", "Bandra Kurla Road, Mumbai 400051", "hello@dindiads.example", "27", "AAFCD6619S", "B2577A"};
inline constexpr Shop godavari{"Godavari Sahakari Bank", "Deccan branch, Pune 411004", "", "27", "AAAJG0424H"};

inline constexpr Shop framer{"Sawali Framing Works", "Narayan Peth, Pune 411030", "Ph: 020 5550 0167"};
inline constexpr Shop insurer{
    "Kavach General Insurance Ltd", "Fort, Mumbai 400001", "policy@kavach.example", "27", "AAECK5518Q", "6B6B6B"};
inline constexpr Shop illustrator{"Nilima Joshi", "Erandwane, Pune 411004", "nilima@joshi.example"};
inline constexpr Shop developer{"Tarkash Code Works LLP", "Viman Nagar, Pune 411014", "hello@tarkash.example", "27",
                                "AAUFT2290H"};
inline constexpr Shop esha{"Esha Kulkarni", "Kothrud, Pune 411038", ""};
inline constexpr Shop rohan{"Rohan Pawar", "Aundh, Pune 411007", ""};

}  // namespace Shops
}  // namespace tamba::Fixtures
