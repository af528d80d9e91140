#include "Tamba/Rows/RowText.h"

#include "TambaCore/Model/Models.h"

namespace tamba::RowText {
namespace {

Translator installed = nullptr;

}  // namespace

void install(Translator translator) { installed = translator; }

bool isTranslated() { return installed != nullptr; }

std::string translate(const char* context, std::string_view text) {
    std::string english(text);
    return installed ? installed(context, english.c_str()) : english;
}

std::string filled(std::string_view text, std::initializer_list<std::string_view> values) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '%' && i + 1 < text.size() ? text[i + 1] : '0';
        const std::size_t index = next >= '1' && next <= '9' ? static_cast<std::size_t>(next - '1') : values.size();
        if (index < values.size())
            result += values.begin()[index], ++i;
        else
            result += text[i];
    }
    return result;
}

std::string counted(std::size_t count, const char* one, const char* many, std::string_view further) {
    return filled(translate("Rows", count == 1 ? one : many), {std::to_string(count), further});
}

std::string number(const Document& document) {
    return document.number ? *document.number : translate("Rows", document.displayNumber());
}

}  // namespace tamba::RowText
