#pragma once

#include "Tamba/Translations.h"
#include "TambaCore/Model/Day.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QLocale>
#include <QWheelEvent>

namespace tamba {

[[nodiscard]] inline QDate qDate(const Day& day) { return {day.y, day.m, day.d}; }
[[nodiscard]] inline Day dayOf(const QDate& date) { return {date.year(), date.month(), date.day()}; }

/// A date as the books print it, with a calendar. Written months, so that no one mistakes 4/5 for 5/4.
class DateField : public QDateEdit {
public:
    explicit DateField(Day day, QWidget* parent = nullptr) : QDateEdit(qDate(day), parent) {
        setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
        setDisplayFormat(QStringLiteral("d MMM yyyy"));
        setCalendarPopup(true);
        calendarWidget()->setLocale(Translations::locale());
        calendarWidget()->setFirstDayOfWeek(Qt::Monday);
        calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    }

protected:
    // Scrolling past a field must not change it.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace tamba
