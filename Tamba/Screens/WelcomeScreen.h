#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/SetUpRows.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace tamba {

class AccentField;
class Form;
class LogoField;

/// The first steps in new books: the business, its tax, how invoices look, where the books live. Return goes on, and
/// only the name has to be given; or the sample books are looked at first.
class WelcomeScreen : public QWidget {
    Q_OBJECT

public:
    WelcomeScreen(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);
    /// Goes to a step, 0–3.
    void showStep(int step);

signals:
    void sampleChosen();
    /// The books are set up; the person goes on with their first invoice, or to look around.
    void finished(bool firstInvoice);

private:
    class Steps;
    class Sample;
    /// The form of one step under its title.
    Form* addStep(const QString& title, const QString& words);
    void makeBusiness();
    void makeTax();
    void makeLook();
    void makePlace();
    QWidget* makeButtons();
    void next();
    void refresh();
    void chooseFolder();
    void finish(bool firstInvoice);
    [[nodiscard]] SetUp setUp() const;

    AppModel& model_;
    Prompts& prompts_;
    std::filesystem::path folder_;
    Steps* steps_;
    QStackedWidget* pages_;
    std::vector<QWidget*> first_;  // where each step begins to be typed
    QLineEdit* name_;
    QComboBox* state_;
    QComboBox* regime_;
    QLineEdit* taxID_;
    QLabel* taxIDNote_;
    Form* taxForm_;
    LogoField* logo_;
    AccentField* accent_;
    QLineEdit* prefix_;
    QLabel* number_;
    Form* lookForm_;
    Sample* sample_;
    QLabel* place_;
    QPushButton* back_;
    QPushButton* skip_;
    QPushButton* sampleBooks_;
    QPushButton* lookAround_;
    QPushButton* next_;
};

}  // namespace tamba
