#include "TambaCore/Base/Check.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever is read without an error is written and read back the same, and reads the same by the longer way, which a
/// blank in front of it asks for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamba;
    try {
        const std::string text(reinterpret_cast<const char*>(data), size);
        const Library library = ModelsJSON::decode(text);
        if (!(ModelsJSON::decode(" " + text) == library)) fatal("books depend on their layout");
        if (!(ModelsJSON::decode(ModelsJSON::encode(library)) == library)) fatal("books change when written and read");
    } catch (const ModelsJSON::DecodeError&) {
    }
    return 0;
}
