#pragma once

#include "TambaCore/Base/Files.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace tamba::testing {

/// What a program of others prints about a file with these bytes.
inline std::string readBack(const std::string& program, const std::string& bytes, const std::string& arguments,
                            const std::string& name = "page.pdf") {
    const auto file = Files::writeTemporary(bytes, name);
    FILE* pipe = popen((program + " '" + file.string() + "' " + arguments).c_str(), "r");
    std::string out;
    std::array<char, 4096> buffer;
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe)) out.append(buffer.data(), count);
    EXPECT_EQ(pclose(pipe), 0) << program;
    Files::remove(file);
    return out;
}

}  // namespace tamba::testing
