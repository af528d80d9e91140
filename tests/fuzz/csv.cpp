#include "TambaCore/Base/CSV.h"

#include "tests/fuzz/Statement.h"

/// Fields that need no guard come back as they were written; and statements.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamba;
    fuzzing::readStatement(data, size, "a.csv");
    const CSV::Read read = CSV::read({reinterpret_cast<const char*>(data), size});
    if (read.numbers.size() != read.rows.size()) __builtin_trap();
    CSV table({"a", "b"});
    for (const CSV::Row& row : read.rows) {
        CSV::Row plain{"x", "y"};
        for (const std::string& field : row) {
            const bool guarded = CSV::escape(field).find('\'') <= 1 && !field.starts_with('\'');
            plain.push_back(guarded ? "guarded" : field);
        }
        table.add(std::move(plain));
    }
    std::vector<CSV::Row> again = CSV::parse(table.text());
    again.erase(again.begin());
    if (again != table.rows) __builtin_trap();
    return 0;
}
