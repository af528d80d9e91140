#pragma once

#include "TambaCore/Model/Models.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tamba {

class Form;

/// One page of the settings: shows a part of the books' settings and writes it back.
class SettingsPage : public QWidget {
    Q_OBJECT

public:
    explicit SettingsPage(QWidget* parent);
    /// Puts what the fields hold into the books. Fields that `isGood` refuses leave their part alone.
    virtual void store(Library& library) const = 0;
    /// The page is turned to: the books as the other pages have them by now.
    virtual void lookAt(const Library&) {}
    /// Nothing on this page keeps the settings from being saved.
    [[nodiscard]] virtual bool isGood() const { return true; }

signals:
    void edited();

protected:
    Form& form;
};

}  // namespace tamba
