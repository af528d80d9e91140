#pragma once

#include "Tamba/Background.h"
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

class ActivityStrip;
class ColumnChoices;

/// A statement before it comes in: the file with what each of its columns is, and what becomes of each row. Every
/// change is read anew, a large file on a thread of its own; giving that up goes back to what was read before.
class ImportSheet : public Sheet {
    Q_OBJECT

public:
    /// `kept`: how the last file of this layout was read, as `remembered` gave it; else empty.
    ImportSheet(QWidget* parent, const Library& library, StatementFile file, std::string_view kept);
    [[nodiscard]] bool isReading() const { return background_.isBusy(); }
    [[nodiscard]] StatementEdit edit() const;
    /// What is to be kept for the next file of this layout, once the lines are in the account.
    [[nodiscard]] std::string kept() const;
    void showList(ImportList list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Model = RowsModel<ImportRow>;
    class FileModel;
    /// What one reading of the file gave.
    struct Outcome {
        BankImport::Parsed parsed;
        std::string problem;  ///< why the file cannot be read so
        ImportTable table;
    };
    /// What that reading was of.
    struct Choices {
        StatementReading reading;
        int account = -1, currency = -1;
    };
    [[nodiscard]] static Outcome read(const Library& library, const StatementFile& file,
                                      const StatementReading& reading, const Currency& currency,
                                      const std::atomic<bool>* cancel);
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
    void take(Outcome outcome);
    void giveUpReading();
    void focusFirst();
    void refreshChoices();
    void refreshTexts();
    void refreshList();
    void refreshButton();

    const Library library_;  // read by the thread, too, as is the file
    const StatementFile file_;
    StatementReading reading_;
    const BankAccount newAccount_;
    const std::size_t width_;  // columns of the file
    Outcome outcome_;
    std::optional<Choices> shown_;  // what `outcome_` is of
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
    ActivityStrip* strip_;
    QPushButton* import_;
    Background background_;  // the last: it is ended before what it reads
};

}  // namespace tamba
