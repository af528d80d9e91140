#pragma once

#include <QWidget>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

/// The logo on invoices, with buttons to choose another and to take it away.
class LogoField : public QWidget {
    Q_OBJECT

public:
    using Path = std::filesystem::path;
    /// `present`: where the logo lies. `choose` asks for a picture file.
    LogoField(const std::optional<Path>& present, std::function<std::optional<Path>()> choose,
              QWidget* parent = nullptr);
    /// A file that was chosen here and is still to be brought into the books.
    [[nodiscard]] const std::optional<Path>& chosen() const { return chosen_; }
    /// The logo there was has been taken away.
    [[nodiscard]] bool isRemoved() const { return removed_; }

signals:
    void edited();

private:
    void show(const std::optional<Path>& file);

    std::function<std::optional<Path>()> choose_;
    std::optional<Path> chosen_;
    bool removed_ = false;
    QLabel* picture_;
    QPushButton* remove_;
};

/// A colour: six hex digits, a patch of it, and a few to pick from.
class AccentField : public QWidget {
    Q_OBJECT

public:
    explicit AccentField(const std::string& hex, QWidget* parent = nullptr, const char* name = "accent");
    void setHex(const std::string& hex);
    /// Six digits in upper case; nothing while what is typed is no colour.
    [[nodiscard]] std::optional<std::string> hex() const;

signals:
    void edited();

private:
    void refresh();

    QLabel* swatch_;
    QLineEdit* digits_;
};

}  // namespace tamba
