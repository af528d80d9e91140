#pragma once

#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/Models.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace tamba {

struct MileageTrip {
    Day date;
    std::string purpose;
    std::int64_t distanceMilli = 0;
};

/// Every question the application asks. Tests answer in its place.
class Prompts {
public:
    virtual ~Prompts() = default;
    /// A sentence to be read and closed.
    virtual void alert(const QString& sentence) = 0;
    /// True when the person chose `action`.
    [[nodiscard]] virtual bool confirm(const QString& title, const QString& text, const QString& action) = 0;
    /// Files the books hold already. True: add them once more.
    [[nodiscard]] virtual bool addAgain(const QStringList& files) = 0;
    [[nodiscard]] virtual std::vector<std::filesystem::path> receiptFiles() = 0;
    [[nodiscard]] virtual std::optional<std::filesystem::path> libraryFolder(const std::filesystem::path& present) = 0;
    [[nodiscard]] virtual std::optional<std::string> backup(const std::vector<LibrarySession::Backup>& backups) = 0;
    [[nodiscard]] virtual std::optional<MileageTrip> mileage(const Library& library, Day today) = 0;
    [[nodiscard]] virtual std::optional<Business> settings(const Business& business) = 0;
    /// A name for something new; nothing when given up.
    [[nodiscard]] virtual std::optional<std::string> newName(const QString& title) = 0;
};

/// Asks with dialogs over a window.
class DialogPrompts : public Prompts {
public:
    explicit DialogPrompts(QWidget& window) : window_(window) {}
    void alert(const QString& sentence) override;
    bool confirm(const QString& title, const QString& text, const QString& action) override;
    bool addAgain(const QStringList& files) override;
    std::vector<std::filesystem::path> receiptFiles() override;
    std::optional<std::filesystem::path> libraryFolder(const std::filesystem::path& present) override;
    std::optional<std::string> backup(const std::vector<LibrarySession::Backup>& backups) override;
    std::optional<MileageTrip> mileage(const Library& library, Day today) override;
    std::optional<Business> settings(const Business& business) override;
    std::optional<std::string> newName(const QString& title) override;

private:
    QWidget& window_;
};

}  // namespace tamba
