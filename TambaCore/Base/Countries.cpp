#include "TambaCore/Base/Countries.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace tamba {

std::string countryName(std::string_view code, const char* language) {
    icu::UnicodeString name;
    icu::Locale("", std::string(code).c_str()).getDisplayCountry(icu::Locale(language), name);
    std::string result;
    name.toUTF8String(result);
    return result.empty() ? std::string(code) : result;
}

}  // namespace tamba
