#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace tamba;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const EmailReceipt::Message message = EmailReceipt::parse(text);
    for (const std::string* shown : {&message.subject, &message.from, &message.bodyText})
        if (!Text::isUTF8(*shown)) __builtin_trap();
    for (const EmailReceipt::Part& part : message.attachments)
        if (part.name.empty() || part.data.size() > size || !Text::isUTF8(part.name)) __builtin_trap();
    if (!Text::isUTF8(EmailReceipt::senderName(message.from))) __builtin_trap();
    return 0;
}
