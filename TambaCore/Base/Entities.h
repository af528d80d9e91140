#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Characters that web pages, mails and SGML statements write as entities: &amp;, &#8377;, &#x20b9;.
namespace tamba::Entities {

struct Entity {
    char32_t code;       ///< U+FFFD for a number that is no character
    std::size_t length;  ///< in bytes, with & and ;
};

/// The entity at the start of `text`; nothing where there is none, or one of an unknown name.
[[nodiscard]] std::optional<Entity> at(std::string_view text);

void appendUTF8(std::string& text, char32_t code);

}  // namespace tamba::Entities
