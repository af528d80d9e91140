#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

/// What expenses and receipts ask of the business: edits a copy and hands it back.
class SettingsSheet : public Sheet {
    Q_OBJECT

public:
    SettingsSheet(QWidget* parent, Business business);
    [[nodiscard]] Business business() const;

private:
    void refresh();
    QLineEdit* line(QFormLayout& form, const QString& title, const char* name, const std::string& text);
    QComboBox* combo(QFormLayout& form, const QString& title, const char* name);

    Business business_;
    QLineEdit* name_;
    QLineEdit* taxID_;
    QLabel* taxIDNote_;
    QComboBox* regime_;
    QComboBox* state_;
    QComboBox* currency_;
    QComboBox* yearStart_;
    QComboBox* dateOrder_;
    QLineEdit* mileageRate_;
    QLineEdit* distanceUnit_;
    QLineEdit* accent_;
    QPushButton* save_;
};

}  // namespace tamba
