#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Documents/Reminders.h"

#include <map>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tamba {

/// The e-mail that goes with a document, to be read over and changed; a reminder in one of three tones.
class MailSheet : public Sheet {
    Q_OBJECT

public:
    /// `hasProgram`: a mail program will open the message; else it is saved. Throws `BooksError` where there is nothing
    /// to write about.
    MailSheet(QWidget* parent, const Library& library, const Document& document, Mail kind, Day today, bool hasProgram);
    [[nodiscard]] Reminders::Draft draft() const;

private:
    void show(const Reminders::Draft& draft);
    void speak(Reminders::Tone tone);

    const Library library_;
    const Document document_;
    const Day today_;
    Reminders::Draft draft_;
    /// What a person wrote in each tone is there again when they come back to it.
    std::map<Reminders::Tone, Reminders::Draft> written_;
    Reminders::Tone tone_ = Reminders::Tone::friendly;
    QLineEdit* to_;
    QLineEdit* subject_;
    QComboBox* tones_;
    QPlainTextEdit* words_;
};

}  // namespace tamba
