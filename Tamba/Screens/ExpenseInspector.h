#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"

#include <QFrame>

#include <functional>
#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace tamba {

class DateField;
class ReceiptView;

/// Edits the selected expense in place, its receipt beside or above the fields. Each field is one undoable step, taken
/// when the field is left or Enter pressed. Of several selected expenses it shows how many, and what can be done to
/// all.
class ExpenseInspector : public QFrame {
    Q_OBJECT

public:
    ExpenseInspector(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    void show(const std::vector<UUID>& ids);
    void setBeside(bool beside);
    void focusVendor();
    /// Takes the mark "check" off everything selected.
    void looksRight();
    /// What can be done with the selection besides: give it a project, let a single expense repeat, convert it.
    void fillMenu(QMenu& menu);
    /// A field holds text that is not yet part of the books.
    [[nodiscard]] bool hasUnsavedText() const;

signals:
    void deleteChosen();
    void recurringChosen();
    void categoryChosen(const std::optional<tamba::UUID>& category);

private:
    using Edit = std::function<Expense(const Library&, Expense)>;
    QWidget* makeFields();
    QWidget* makeSeveral();
    QLineEdit* line(const QString& title, const char* name);
    QComboBox* combo(const QString& title, const char* name);
    void connectFields();
    void connectMoney();
    void row(const QString& title, QWidget* field);
    void fill(const Expense& expense);
    void fillChoices(const Expense& expense);
    void fillAttachments(const Expense& expense);
    void showGSTINState();
    void showAttachment(std::size_t index);
    void attachFiles();
    void removeAttachment(const UUID& id);
    void edit(const QString& title, const Edit& edit);
    void setRate(const QString& text);
    void convertToHome();
    void setRepeats(int frequency);  // −1: never
    void chooseClient();
    void chooseProject();
    /// For all that is selected; an expense without a client takes the project's.
    void setProject(const std::optional<UUID>& project);
    void refill();
    [[nodiscard]] const Expense* expense() const;

    AppModel& model_;
    Prompts& prompts_;
    std::vector<UUID> ids_;
    bool filling_ = false;
    bool beside_ = false;
    std::size_t attachment_ = 0;

    QStackedWidget* pages_;
    QWidget* single_;
    QVBoxLayout* above_;
    QVBoxLayout* sideways_;
    ReceiptView* receipt_;
    QFrame* banner_;
    QLabel* bannerText_;
    QFormLayout* form_ = nullptr;
    QLineEdit* vendor_;
    QLineEdit* gstin_;
    QLabel* gstinNote_;
    DateField* date_;
    QLineEdit* amount_;
    QComboBox* currency_;
    QLineEdit* rate_;
    QLabel* rateNote_;
    QPushButton* convert_;
    QLineEdit* distance_;
    QLabel* mileageNote_;
    QLineEdit* tax_;
    QLabel* split_;
    QCheckBox* claim_;
    QComboBox* category_;
    QComboBox* method_;
    QComboBox* repeats_;
    QPushButton* recurring_;
    QComboBox* project_;
    QComboBox* client_;
    QCheckBox* billable_;
    QPlainTextEdit* notes_;
    QVBoxLayout* attachments_;
    QLabel* severalText_;
    QComboBox* severalCategory_;
    QComboBox* severalProject_;
};

}  // namespace tamba
