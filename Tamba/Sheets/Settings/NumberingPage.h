#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <optional>
#include <vector>

class QPushButton;
class QVBoxLayout;

namespace tamba {

/// The series that number documents: name and pattern, each with the number it gives and what is wrong with it. A kind
/// of document may have several; new documents begin with the first.
class NumberingPage : public SettingsPage {
    Q_OBJECT

public:
    NumberingPage(const Library& library, Day today, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;

private:
    struct Row {
        NumberSeries series;  // as it was when the row was made
        QWidget* box;
        Form* form;
        QLineEdit* name;
        QLineEdit* pattern;
        QLineEdit* start;
        QLabel* preview;
        QPushButton* remove;
    };
    void add(const NumberSeries& series);
    void addNew();
    void remove(const UUID& id);
    void refresh();
    /// The counter typed for a series; nothing when none was typed or it is none.
    [[nodiscard]] static std::optional<std::int64_t> startOf(const Row& row);

    const Library library_;
    const Day today_;
    std::vector<Row> rows_;
    std::vector<UUID> removed_;
    QVBoxLayout* series_;
    QComboBox* kind_;
};

}  // namespace tamba
