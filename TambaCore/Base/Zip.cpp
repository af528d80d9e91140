#include "TambaCore/Base/Zip.h"

#include <archive.h>
#include <archive_entry.h>

#include <exception>
#include <string>

namespace tamba {

struct Zip::Writer {
    explicit Writer(const Files::Path& path) : file(path), zip(archive_write_new()) {}
    ~Writer() {
        takes = false;  // freeing closes the archive, and a broken file gets no directory
        archive_write_free(zip);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// Throws what writing has thrown below the C library, else what that library says.
    void check(la_ssize_t result) {
        if (failure) std::rethrow_exception(failure);
        if (result >= 0) return;
        const char* why = archive_error_string(zip);
        throw FileError(why ? why : "The zip file couldn’t be written.");
    }

    static la_ssize_t write(archive* /*zip*/, void* data, const void* bytes, std::size_t size) {
        auto& writer = *static_cast<Writer*>(data);
        try {
            if (writer.takes) Files::append(writer.file, {static_cast<const char*>(bytes), size});
        } catch (...) {
            // The library is not told: it would never free its buffer then. `check` throws this.
            writer.failure = std::current_exception();
            writer.takes = false;
        }
        return static_cast<la_ssize_t>(size);
    }

    Files::Path file;
    archive* zip;
    std::exception_ptr failure;
    bool takes = true;  ///< what is written still goes to the file
};

Zip::Zip(const Files::Path& file) : writer_(std::make_unique<Writer>(file)) {
    archive* const zip = writer_->zip;
    writer_->check(archive_write_set_format_zip(zip));
    writer_->check(archive_write_set_options(zip, "zip:hdrcharset=UTF-8"));
    writer_->check(archive_write_set_bytes_per_block(zip, 1 << 20));
    writer_->check(archive_write_set_bytes_in_last_block(zip, 1));
    writer_->check(archive_write_open(zip, writer_.get(), nullptr, &Writer::write, nullptr));
}

Zip::~Zip() = default;

void Zip::add(std::string_view name, std::string_view bytes) {
    const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(), &archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), std::string(name).c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(bytes.size()));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    writer_->check(archive_write_header(writer_->zip, entry.get()));
    writer_->check(archive_write_data(writer_->zip, bytes.data(), bytes.size()));
    writer_->check(archive_write_finish_entry(writer_->zip));
}

void Zip::finish() { writer_->check(archive_write_close(writer_->zip)); }

}  // namespace tamba
