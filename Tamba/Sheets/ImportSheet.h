#pragma once

#include "Tamba/Rows/ImportRows.h"
#include "Tamba/RowsModel.h"
#include "Tamba/Sheets/Sheet.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;

namespace tamba {

class ColumnChoices;

/// A statement before it comes in: the file with what each of its columns is, and what becomes of each row. Every
/// change is read anew at once.
class ImportSheet : public Sheet {
    Q_OBJECT

public:
    /// `kept`: how the last file of this layout was read, as `remembered` gave it; else empty.
    ImportSheet(QWidget* parent, const Library& library, const StatementFile& file, std::string_view kept);
    [[nodiscard]] StatementEdit edit() const;
    /// What is to be kept for the next file of this layout, once the lines are in the account.
    [[nodiscard]] std::string kept() const;
    void showList(ImportList list);

private:
    using Model = RowsModel<ImportRow>;
    class FileModel;
    static std::vector<Model::Column> columns();
    QWidget* makeAccount();
    QWidget* makeDates();
    void makeFile();
    void makeList();
    void fillAccounts();
    [[nodiscard]] std::optional<BankAccount> account() const;
    [[nodiscard]] Currency currency() const;
    void accountChosen();
    void use(int column, int use);
    void toggle(const QModelIndex& index);
    /// Reads the file anew. Ticks belong to the lines of one reading.
    void reread();
    /// The lines against the books, and all texts.
    void refresh();
    void refreshList();
    void refreshButton();

    const Library library_;
    const StatementFile file_;
    StatementReading reading_;
    const BankAccount newAccount_;
    BankImport::Parsed parsed_;
    std::string problem_;  ///< why the file cannot be read so
    std::set<UUID> anyway_;
    ImportTable table_;
    Model rows_;
    FileModel* fileModel_ = nullptr;
    ColumnChoices* choices_ = nullptr;
    QComboBox* account_;
    QLineEdit* name_;
    QComboBox* currency_;
    QComboBox* order_;
    QLabel* orderReason_;
    QCheckBox* positive_ = nullptr;
    QLabel* notes_;
    QLabel* summary_;
    QTabBar* lists_;
    QTableView* view_;
    QLabel* proof_;
    QLabel* proofGlyph_;
    QPushButton* import_;
};

}  // namespace tamba
