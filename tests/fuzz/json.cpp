#include "TambaCore/Base/Check.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever is read without an error is written and read back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamba;
    try {
        const Library library = ModelsJSON::decode(std::string(reinterpret_cast<const char*>(data), size));
        if (!(ModelsJSON::decode(ModelsJSON::encode(library)) == library)) fatal("books change when written and read");
    } catch (const ModelsJSON::DecodeError&) {
    }
    return 0;
}
