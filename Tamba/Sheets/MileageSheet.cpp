#include "Tamba/Sheets/MileageSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "TambaCore/Documents/Expenses.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tamba {

MileageSheet::MileageSheet(QWidget* parent, const Library& library, Day today)
    : Sheet(parent, Icon::none, tr("New Mileage Trip"), {}), library_(library) {
    date_ = new DateField(today, this);
    Controls::name(*date_, "tripDate", tr("Date"));
    purpose_ = new QLineEdit(this);
    Controls::name(*purpose_, "tripPurpose", tr("Trip"));
    purpose_->setPlaceholderText(tr("Studio to the printer and back"));
    distance_ = new QLineEdit(this);
    Controls::name(*distance_, "tripDistance", tr("Distance"));
    distance_->setPlaceholderText(toQt(library.business.distanceUnit));
    amount_ = new QLabel(this);
    amount_->setFont(Style::textFont(15, QFont::DemiBold));
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(10);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->addRow(Controls::label(tr("Date"), "field"), date_);
    form->addRow(Controls::label(tr("Trip"), "field"), purpose_);
    form->addRow(Controls::label(tr("Distance (%1)").arg(toQt(library.business.distanceUnit)), "field"), distance_);
    form->addRow(Controls::label(tr("Amount"), "field"), amount_);
    body().addLayout(form);
    add_ = addButtons(tr("Add Trip"), tr("Cancel"), Main::keeps);
    connect(distance_, &QLineEdit::textChanged, this, &MileageSheet::refresh);
    purpose_->setFocus();
    refresh();
}

void MileageSheet::refresh() {
    const MileageTrip entered = trip();
    const Business& business = library_.business;
    const auto amount = Expenses::mileageAmount(entered.distanceMilli, business.mileageRateMinor);
    const bool good = entered.distanceMilli > 0 && amount.has_value();
    const QString rate = toQt(MoneyFormat::string(business.mileageRateMinor, library_.home()));
    amount_->setText(good ? toQt(MoneyFormat::string(*amount, library_.home()))
                          : tr("%1 for each %2").arg(rate, toQt(business.distanceUnit)));
    Controls::markProblem(*distance_,
                          distance_->text().isEmpty() || good ? QString() : tr("Enter a distance such as 12.5."));
    add_->setEnabled(good);
}

MileageTrip MileageSheet::trip() const {
    MileageTrip trip;
    trip.date = dayOf(date_->date());
    trip.purpose = toStd(purpose_->text().trimmed());
    trip.distanceMilli = MoneyFormat::parseQuantity(toStd(distance_->text())).value_or(0);
    return trip;
}

}  // namespace tamba
