#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <optional>
#include <vector>

namespace tamba {

/// The patterns of document numbers, each with the number it gives and what is wrong with it.
class NumberingPage : public SettingsPage {
    Q_OBJECT

public:
    NumberingPage(const Library& library, Day today, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;

private:
    struct Row {
        UUID id;
        QLineEdit* pattern;
        QLineEdit* start;
        QLabel* preview;
    };
    void refresh();
    /// The counter typed for a series; nothing when none was typed or it is none.
    [[nodiscard]] static std::optional<std::int64_t> startOf(const Row& row);

    const Library library_;
    const Day today_;
    std::vector<Row> rows_;
};

}  // namespace tamba
