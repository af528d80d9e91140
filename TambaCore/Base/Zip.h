#pragma once

#include "TambaCore/Base/Files.h"

#include <memory>
#include <string_view>

namespace tamba {

/// A zip file written entry by entry. Names are UTF-8 in any locale and entries bear no time, so that the same entries
/// in the same order give the same bytes on every machine. Without `finish` the file is not whole. Throws `FileError`.
///
///     Zip zip(folder / "books.zip");
///     zip.add("Summary.txt", text);
///     zip.finish();
class Zip {
public:
    /// `file` must not exist yet.
    explicit Zip(const Files::Path& file);
    ~Zip();
    Zip(const Zip&) = delete;
    Zip& operator=(const Zip&) = delete;

    /// `name`: "/" between folders.
    void add(std::string_view name, std::string_view bytes);
    void finish();

private:
    struct Writer;
    std::unique_ptr<Writer> writer_;
};

}  // namespace tamba
