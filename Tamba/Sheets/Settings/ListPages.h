#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <optional>
#include <vector>

class QListWidget;

namespace tamba {

/// Things that are billed again and again: a list, and the fields of the chosen one.
class ItemsPage : public SettingsPage {
    Q_OBJECT

public:
    ItemsPage(const Library& library, QWidget* parent);
    void select(const UUID& item);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override { return good_; }

private:
    void makeFields(const Business& business);
    void add();
    void remove();
    void choose(int row);
    void take();
    void refreshList();

    const Currency currency_;
    const int taxBP_;
    std::vector<CatalogItem> items_;
    bool good_ = true;
    bool filling_ = false;
    QListWidget* list_;
    QWidget* fields_;
    QLineEdit* name_;
    QPlainTextEdit* detail_;
    QLineEdit* hsn_;
    QLineEdit* unit_;
    QLineEdit* price_;
    QComboBox* tax_;
};

/// The exchange rates kept for new documents and expenses.
class RatesPage : public SettingsPage {
    Q_OBJECT

public:
    RatesPage(const Library& library, Day today, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;

private:
    struct Row {
        std::string currency;
        QLineEdit* rate;
    };
    void add(const std::string& currency, const QString& rate, const QString& kept);
    [[nodiscard]] static std::optional<std::int64_t> rateIn(const Row& row);
    void refresh();

    const Day today_;
    std::vector<Row> rows_;
    QFormLayout* rates_;
    QLabel* none_;
};

}  // namespace tamba
