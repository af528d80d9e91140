#include "Tamba/Widgets/ClientForm.h"

#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Clients.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

#include <charconv>

namespace tamba {
namespace {

/// Calls back when several lines of text are left, which is one step and not one for each letter.
class FocusOut : public QObject {
public:
    FocusOut(QObject* watched, std::function<void()> left) : QObject(watched), left_(std::move(left)) {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) left_();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> left_;
};

std::string lineText(const QLineEdit& field) { return toStd(field.text().trimmed()); }

std::optional<int> daysIn(const std::string& text) {
    int days = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), days);
    if (error != std::errc() || end != text.data() + text.size() || days < 0 || days > 3650) return {};
    return days;
}

}  // namespace

ClientForm::ClientForm(QWidget* parent) : QWidget(parent), form_(new Form(*this, 78)) {
    setLayout(form_);
    form_->setNoteWidth(212);
    name_ = form_->line(tr("Name"), "clientName");
    name_->setPlaceholderText(tr("Company or person"));
    contact_ = form_->line(tr("Contact"), "clientContact");
    contact_->setPlaceholderText(tr("Who you write to"));
    email_ = form_->line(tr("E-mail"), "clientEmail");
    phone_ = form_->line(tr("Phone"), "clientPhone");
    address_ = form_->text(tr("Address"), "clientAddress", 3);
    country_ = form_->combo(tr("Country"), "clientCountry");
    fillCountries(*country_, "IN");
    state_ = form_->combo(tr("State"), "clientState");
    fillStates(*state_, tr("Not set"));
    taxID_ = form_->line(tr("GSTIN"), "clientTaxID");
    taxIDNote_ = form_->note();
    sez_ = form_->check(tr("In a special economic zone"), "clientSEZ");
    currency_ = form_->combo(tr("Currency"), "clientCurrency");
    dueDays_ = form_->line(tr("Due after"), "clientDueDays");
    notes_ = form_->text(tr("Notes"), "clientNotes", 3);

    for (QLineEdit* field : {name_, contact_, email_, phone_, taxID_, dueDays_}) {
        connect(field, &QLineEdit::textChanged, this, &ClientForm::refresh);
        connect(field, &QLineEdit::editingFinished, this, [this, field] {
            if (!filling_) emit committed(field->accessibleName());
        });
    }
    for (QPlainTextEdit* field : {address_, notes_}) {
        connect(field, &QPlainTextEdit::textChanged, this, &ClientForm::refresh);
        new FocusOut(field, [this, field] { emit committed(field->accessibleName()); });
    }
    for (QComboBox* field : {country_, state_, currency_})
        connect(field, &QComboBox::activated, this, [this, field] {
            refresh();
            emit committed(field->accessibleName());
        });
    connect(sez_, &QCheckBox::clicked, this, [this] {
        refresh();
        emit committed(tr("SEZ"));
    });
}

void ClientForm::show(const Client& client, int dueDays) {
    const QScopedValueRollback guard(filling_, true);
    const bool other = client.id != client_.id;
    client_ = client;
    const auto put = [other](auto* field, const std::string& text, const QString& present, auto set) {
        if (!other && field->hasFocus() && present != toQt(text)) return;
        if (present != toQt(text)) set(toQt(text));
    };
    const auto line = [&](QLineEdit* field, const std::string& text) {
        put(field, text, field->text(), [field](const QString& to) {
            field->setText(to);
            field->setCursorPosition(0);
        });
    };
    const auto area = [&](QPlainTextEdit* field, const std::string& text) {
        put(field, text, field->toPlainText(), [field](const QString& to) { field->setPlainText(to); });
    };
    line(name_, client.name);
    line(contact_, client.contact);
    line(email_, client.email);
    line(phone_, client.phone);
    area(address_, client.address);
    line(taxID_, client.taxID);
    line(dueDays_, client.dueDays ? std::to_string(*client.dueDays) : std::string());
    dueDays_->setPlaceholderText(tr("%1 days, as for everyone").arg(dueDays));
    area(notes_, client.notes);
    chooseCode(*country_, client.country.empty() ? "IN" : client.country);
    chooseCode(*state_, client.stateCode.value_or(""));
    sez_->setChecked(client.sez);
    currency_->clear();
    fillCurrencies(*currency_, client.currency);
    refresh();
}

Client ClientForm::client() const {
    Client result = client_;
    result.name = lineText(*name_);
    result.contact = lineText(*contact_);
    result.email = lineText(*email_);
    result.phone = lineText(*phone_);
    result.address = toStd(address_->toPlainText());
    result.country = toStd(country_->currentData().toString());
    const std::string state = toStd(state_->currentData().toString());
    result.stateCode = state.empty() || result.isForeign() ? std::nullopt : std::optional(state);
    result.taxID = result.isForeign() ? lineText(*taxID_) : GSTIN::clean(toStd(taxID_->text()));
    result.sez = sez_->isChecked() && !result.isForeign();
    result.currency = toStd(currency_->currentData().toString());
    const std::string days = lineText(*dueDays_);
    if (days.empty())
        result.dueDays.reset();
    else if (const auto number = daysIn(days))
        result.dueDays = number;
    result.notes = toStd(notes_->toPlainText());
    return result;
}

bool ClientForm::hasUnsavedText() const { return client() != client_; }

void ClientForm::focusName() {
    name_->setFocus(Qt::ShortcutFocusReason);
    name_->selectAll();
}

void ClientForm::refresh() {
    Client now = client();
    const bool foreign = now.isForeign();
    form_->setRowVisible(state_, !foreign);
    form_->setRowVisible(sez_, !foreign);
    if (auto* label = qobject_cast<QLabel*>(form_->labelForField(taxID_)))
        label->setText(foreign ? tr("Tax number") : tr("GSTIN"));
    const auto problem = Clients::taxIDProblem(now);
    Controls::markProblem(*taxID_, problem ? toQt(*problem) : QString());
    const auto state = foreign ? std::nullopt : IndianState::of(GSTIN::stateCode(now.taxID));
    if (problem)
        form_->setNote(*taxIDNote_, toQt(*problem), "problem");
    else
        form_->setNote(*taxIDNote_, state && !now.taxID.empty() ? Translations::shown(state->label()) : QString(),
                       "good");
    // The number tells the state; nobody has to choose it as well.
    if (!filling_ && state && !problem && !now.stateCode && GSTIN::isValid(now.taxID))
        chooseData(*state_, toQt(state->code));
    const std::string days = lineText(*dueDays_);
    Controls::markProblem(*dueDays_,
                          days.empty() || daysIn(days) ? QString() : tr("Enter a number of days such as 30."));
    if (!filling_) emit typed();
}

}  // namespace tamba
