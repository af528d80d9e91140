#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Background.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/BankRows.h"

#include <QFrame>

#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QVBoxLayout;

namespace tamba {

/// The selected bank line in full and what can be done with it: each suggestion, and everything else, is one click or
/// one key away.
class SuggestionsPane : public QFrame {
    Q_OBJECT

public:
    SuggestionsPane(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    void setLine(const std::optional<UUID>& id);
    [[nodiscard]] const std::optional<UUID>& line() const { return id_; }

    /// Carries out what the key stands for: 1 to 9, C, E, I, U, S, R. False for any other key; one that has nothing to
    /// do on this line does nothing.
    bool takeKey(int key);
    /// What can be done with the line, as entries of a menu; nothing without a line.
    void fillMenu(QMenu& menu);

signals:
    /// A choice that a key opened is made or given up: the keys can go back to the lines.
    void keysReturned();
    /// An open line was dealt with: the next one can be looked at.
    void settled(const tamba::UUID& line);
    void expenseChosen(const tamba::UUID& id);
    void documentChosen(const tamba::UUID& id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeHead();
    QWidget* makeBody();
    /// What the books have for the line; to find it in large books takes longer than an edit may.
    struct Answers {
        std::vector<MatchChoice> choices;
        std::optional<Expense> proposal;
        bool isSplit = false;  // over several invoices, which it can be
    };
    [[nodiscard]] static Answers answersFor(const Library& library, const BankTransaction& line);
    void refresh();
    void fill(Answers answers);
    /// The answers at once, for who asks before they have come.
    void catchUp();
    void fillHead(const BankTransaction& line);
    void fillList(const BankTransaction& line);
    void fillChoices();
    void fillCategory(const std::optional<Expense>& proposal);
    void fillOffer();
    [[nodiscard]] const BankTransaction* shown() const;
    /// The expense that the shown line is matched to.
    [[nodiscard]] const Expense* matchedExpense() const;

    bool perform(const QString& title, const std::function<Library(Library, const UUID&)>& change);
    void choose(std::size_t index);
    void createExpense();
    void toggleAside();
    void unmatch();
    void split();
    void openCategory();
    void changeCategory();
    void addRule();

    AppModel& model_;
    Prompts& prompts_;
    std::optional<UUID> id_;
    bool stale_ = false;          // the books have changed while nobody saw it
    std::optional<UUID> filled_;  // the line that the choices are for
    std::vector<MatchChoice> choices_;
    std::optional<RuleOffer> offer_;
    std::optional<UUID> proposed_;  // the category that the line's expense would get by itself
    std::optional<UUID> created_;   // the latest expense made here in another category than was proposed
    QWidget* head_;
    QLabel* none_;
    QLabel* day_;
    QLabel* pill_;
    QLabel* amount_;
    QLabel* name_;
    QLabel* narration_;
    QLabel* more_;
    QWidget* body_;
    QLabel* section_;
    QVBoxLayout* list_;
    QLabel* nothing_;
    QWidget* categoryRow_;
    QComboBox* category_;
    bool openedByKey_ = false;
    QPushButton* create_;
    QPushButton* split_;
    QPushButton* aside_;
    QPushButton* unmatch_;
    QWidget* offerBox_;
    QLabel* offerText_;
    QPushButton* addRule_;
    QLabel* keys_;
    Background background_;
};

}  // namespace tamba
