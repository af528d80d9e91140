#include "Tamba/Widgets/Form.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/SetUpRows.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "TambaCore/Base/Countries.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Tax.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>

#include <algorithm>
#include <map>

namespace tamba {
namespace {

class Choice : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace

Form::Form(QWidget& owner, int labelWidth) : owner_(owner), labelWidth_(labelWidth) {
    setContentsMargins(0, 0, 0, 0);
    setHorizontalSpacing(labelWidth > 0 ? 8 : 16);
    setVerticalSpacing(8);
    setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFieldGrowthPolicy(AllNonFixedFieldsGrow);
}

QLabel* Form::row(const QString& title, QWidget* field) {
    auto* label = Controls::label(title, "field", &owner_);
    label->setMinimumHeight(30);
    if (labelWidth_ > 0) label->setFixedWidth(labelWidth_);
    label->setBuddy(field);
    addRow(label, field);
    return label;
}

QLineEdit* Form::line(const QString& title, const char* name, const std::string& text) {
    auto* field = new QLineEdit(toQt(text), &owner_);
    field->setCursorPosition(0);
    Controls::name(*field, name, title);
    row(title, field);
    return field;
}

QLineEdit* Form::amount(const QString& title, const char* name) {
    auto* field = line(title, name);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return field;
}

QComboBox* Form::combo(const QString& title, const char* name) {
    auto* field = makeChoice(&owner_);
    Controls::name(*field, name, title);
    row(title, field);
    return field;
}

DateField* Form::date(const QString& title, const char* name, const Day& day) {
    auto* field = new DateField(day, &owner_);
    Controls::name(*field, name, title);
    row(title, field);
    return field;
}

QPlainTextEdit* Form::text(const QString& title, const char* name, int lines, const std::string& text) {
    auto* field = new QPlainTextEdit(toQt(text), &owner_);
    Controls::name(*field, name, title);
    field->setTabChangesFocus(true);
    field->setFixedHeight(lines * 20 + 18);
    QLabel* label = row(title, field);
    // Beside the first line, not the middle.
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setContentsMargins(0, 7, 0, 0);
    return field;
}

QCheckBox* Form::check(const QString& words, const char* name, bool on) {
    auto* field = new QCheckBox(words, &owner_);
    field->setChecked(on);
    Controls::name(*field, name, words);
    addRow(QString(), field);
    return field;
}

QLabel* Form::section(const QString& title) {
    auto* label = Controls::label(title.toUpper(), "section", &owner_);
    label->setContentsMargins(0, rowCount() > 0 ? 10 : 0, 0, 0);
    addRow(label);
    return label;
}

QLabel* Form::note(const QString& words, const char* role) {
    auto* label = Controls::label({}, role, &owner_);
    addRow(QString(), label);
    setNote(*label, words, role);
    return label;
}

void Form::setNote(QLabel& note, const QString& words, const char* role) {
    setRole(note, role);
    note.setText(Controls::wrapped(words, note, noteWidth_));
    note.setAccessibleName(words);
    setRowVisible(&note, !words.isEmpty());
}

void Form::setNote(QLabel& note, QWidget& field, const FieldNote& words) {
    const bool problem = words.kind == FieldNote::Kind::problem;
    const char* role = problem ? "problem" : words.kind == FieldNote::Kind::good ? "good" : "caption";
    Controls::markProblem(field, problem ? toQt(words.words) : QString());
    setNote(note, toQt(words.words), role);
}

QComboBox* makeChoice(QWidget* parent) {
    auto* field = new Choice(parent);
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(6);
    field->setMaxVisibleItems(16);
    return field;
}

void chooseData(QComboBox& combo, const QString& data) { combo.setCurrentIndex(std::max(0, combo.findData(data))); }

void chooseCode(QComboBox& combo, const std::string& code) {
    if (!code.empty() && combo.findData(toQt(code)) < 0) combo.addItem(toQt(code), toQt(code));
    chooseData(combo, toQt(code));
}

void fillStates(QComboBox& combo, const QString& none) {
    combo.addItem(none, QString());
    for (const IndianState& state : IndianState::all())
        combo.addItem(Translations::shown(state.label()), toQt(state.code));
}

void fillCountries(QComboBox& combo, const std::string& present) {
    std::map<QString, QString> codes;  // by name
    for (int number = QLocale::AnyTerritory + 1; number <= QLocale::LastTerritory; ++number) {
        const auto territory = static_cast<QLocale::Territory>(number);
        const QString code = QLocale::territoryToCode(territory);
        // Continents have numbers for codes.
        if (code.size() == 2 && code != QLatin1String("IN")) codes.emplace(countryName(code), code);
    }
    combo.addItem(QObject::tr("India"), QStringLiteral("IN"));
    for (const auto& [name, code] : codes) combo.addItem(name, code);
    chooseCode(combo, present);
}

QString countryName(const QString& code) {
    const QLocale::Territory territory = code.size() == 2 ? QLocale::codeToTerritory(code) : QLocale::AnyTerritory;
    if (territory == QLocale::AnyTerritory) return code;
    // The toolkit knows English names only.
    return RowText::isTranslated() ? toQt(tamba::countryName(toStd(code), "hi"))
                                   : QLocale::territoryToString(territory);
}

void fillCategories(QComboBox& combo, const Library& library) {
    combo.clear();
    combo.addItem(Icons::icon(QStringLiteral("category-none"), &Colors::faint), QObject::tr("No category"), QString());
    for (const Category& category : library.categories)
        combo.addItem(Icons::categoryIcon(category.symbol, category.colorHex), toQt(category.name),
                      toQt(category.id.text()));
}

void fillCurrencies(QComboBox& combo, const std::string& present) {
    for (const Currency& currency : Currency::all())
        combo.addItem(Translations::shown(currency.code + " · " + currency.name), toQt(currency.code));
    chooseCode(combo, present);
}

std::optional<std::int64_t> amountIn(const QLineEdit& field, const Currency& currency) {
    return MoneyFormat::parseSum(toStd(field.text().trimmed()), currency);
}

void setRole(QWidget& widget, const char* role) { Controls::restyle(widget, "role", QString::fromLatin1(role)); }

}  // namespace tamba
