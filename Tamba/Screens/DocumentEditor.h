#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Screens/LinesTable.h"

#include <QScrollArea>

#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

class DateField;
class GrowingText;

/// A draft as the document it will be: who, when, lines, totals. Each field is one undoable step, taken when the field
/// is left; what is refused is marked beside its field and stays there to be put right.
class DocumentEditor : public QScrollArea {
    Q_OBJECT

public:
    DocumentEditor(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    /// Shows a draft. What was being typed into another is taken first.
    void setDocument(const UUID& id);
    void refresh();
    /// Takes what is being typed.
    void commit();
    [[nodiscard]] bool hasUnsavedText() const;
    void focusClient();
    void focusLines();

signals:
    void noticed(const QString& sentence);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Change = LinesTable::Change;
    /// A field under its title and above its note, and how many of four columns it takes: in wide and narrow windows.
    struct Part {
        QWidget* box;
        int wide, narrow;
    };
    QWidget* makeContent();
    void makeFields(QWidget* content);
    QWidget* makeFoot();
    QLineEdit* line(const QString& title, const char* name);
    QComboBox* combo(const QString& title, const char* name);
    QWidget* part(const QString& title, QWidget* field, QLabel* note, int wide, int narrow);
    void connectFields();
    void connectTexts();
    void arrange();
    [[nodiscard]] std::optional<UUID> clientMeant(const QString& text) const;

    void fill(const Document& draft);
    void fillClients(const Document& draft);
    void fillPlace(const Document& draft);
    void fillMoney(const Document& draft);
    void fillSeries(const Document& draft);
    void fillNotes(const Document& draft);
    void showTotals();

    /// Changes the draft in one step; gives the sentence where that is refused.
    QString apply(const Change& change);
    void takeClient();
    void newClient(const std::string& name);
    void takeReference();
    void takeRate();
    void takeText(GrowingText& field, std::string Document::* member);
    void addExpenses();
    void setNote(QLabel& note, const QString& text, const char* role);
    [[nodiscard]] const Document* draft() const;

    AppModel& model_;
    Prompts& prompts_;
    UUID id_;
    bool filling_ = false;
    std::vector<Part> parts_;
    QGridLayout* grid_;
    QComboBox* client_;
    QLabel* clientNote_;
    DateField* date_;
    DateField* due_;
    QLabel* dueTitle_ = nullptr;
    QLabel* dueNote_;
    QLineEdit* reference_;
    QComboBox* place_;
    QLabel* supply_;
    QWidget* placeBox_;
    QCheckBox* lut_;
    QComboBox* currency_;
    QLineEdit* rate_;
    QLabel* rateNote_;
    QWidget* rateBox_;
    LinesTable* lines_;
    QPushButton* expenses_;
    GrowingText* notes_;
    GrowingText* terms_;
    QCheckBox* roundOff_;
    QGridLayout* totals_;
    QLabel* number_;
    QComboBox* series_;
    QWidget* seriesBox_;
};

}  // namespace tamba
