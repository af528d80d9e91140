#pragma once

#include "TambaCore/Model/Models.h"

#include <QFormLayout>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tamba {

class DateField;
struct FieldNote;

/// Labelled fields under each other, as in sheets, settings and inspectors. Every field gets its object name and, from
/// its title, its accessible name.
class Form : public QFormLayout {
public:
    explicit Form(QWidget& owner, int labelWidth = 0);

    QLineEdit* line(const QString& title, const char* name, const std::string& text = {});
    QLineEdit* amount(const QString& title, const char* name);
    QComboBox* combo(const QString& title, const char* name);
    DateField* date(const QString& title, const char* name, const Day& day);
    QPlainTextEdit* text(const QString& title, const char* name, int lines, const std::string& text = {});
    QCheckBox* check(const QString& words, const char* name, bool on = false);
    QLabel* section(const QString& title);
    /// Words under the field above, of one of the style's roles, in lines of at most `noteWidth`.
    QLabel* note(const QString& words = {}, const char* role = "caption");
    QLabel* row(const QString& title, QWidget* field);
    void setNoteWidth(int width) { noteWidth_ = width; }

    /// Changes a note and its role; without words its row is hidden.
    void setNote(QLabel& note, const QString& words, const char* role = "caption");
    /// The same, marking the field above where the words say what is wrong with it.
    void setNote(QLabel& note, QWidget& field, const FieldNote& words);

private:
    QWidget& owner_;
    int labelWidth_;
    int noteWidth_ = 280;
};

/// A combo that the wheel passes over: scrolling a form must not change what it passes.
[[nodiscard]] QComboBox* makeChoice(QWidget* parent);
/// Chooses the entry with this data, else the first.
void chooseData(QComboBox& combo, const QString& data);
/// Chooses the entry with this code. One that is not known becomes an entry of its own, and so stays in the books.
void chooseCode(QComboBox& combo, const std::string& code);
/// "27 · Maharashtra" with the code as data, after an entry for none.
void fillStates(QComboBox& combo, const QString& none);
/// Countries by name, India first, with the ISO code as data.
void fillCountries(QComboBox& combo, const std::string& present);
/// The English name of a country by its ISO code; the text itself where it is none.
[[nodiscard]] QString countryName(const QString& code);
/// "No category" and the books' own, each with its glyph and its id as data.
void fillCategories(QComboBox& combo, const Library& library);
/// The known currencies, and `present` when it is none of them.
void fillCurrencies(QComboBox& combo, const std::string& present);
/// The amount a field holds, a sum such as 3*1200 worked out; nothing when it holds none.
[[nodiscard]] std::optional<std::int64_t> amountIn(const QLineEdit& field, const Currency& currency);
/// Gives a label another of the style's roles.
void setRole(QWidget& widget, const char* role);

}  // namespace tamba
