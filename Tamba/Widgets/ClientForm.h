#pragma once

#include "TambaCore/Model/Models.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tamba {

class Form;

/// The fields of a client, with the tax number checked as it is typed. Holds a copy of the record.
class ClientForm : public QWidget {
    Q_OBJECT

public:
    explicit ClientForm(QWidget* parent = nullptr);

    /// Shows a client; a field of the same client that is being typed into is left alone. `dueDays`: the business's,
    /// for clients without their own.
    void show(const Client& client, int dueDays);
    /// The record as the fields have it. A number of days that is none stays as it was.
    [[nodiscard]] Client client() const;
    [[nodiscard]] bool hasUnsavedText() const;
    void focusName();

signals:
    /// Anything changed, also in mid-word.
    void typed();
    /// A field was left, or something chosen: worth a step. `what` names the field.
    void committed(const QString& what);

private:
    void refresh();

    Client client_;
    bool filling_ = false;
    Form* form_;
    QLineEdit* name_;
    QLineEdit* contact_;
    QLineEdit* email_;
    QLineEdit* phone_;
    QPlainTextEdit* address_;
    QComboBox* country_;
    QComboBox* state_;
    QLineEdit* taxID_;
    QLabel* taxIDNote_;
    QCheckBox* sez_;
    QComboBox* currency_;
    QLineEdit* dueDays_;
    QPlainTextEdit* notes_;
};

}  // namespace tamba
