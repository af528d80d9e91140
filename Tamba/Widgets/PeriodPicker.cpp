#include "Tamba/Widgets/PeriodPicker.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"

#include <QHBoxLayout>
#include <QMenu>

#include <algorithm>

namespace tamba {

PeriodPicker::PeriodPicker(Day today, int fyStartMonth, QWidget* parent)
    : QWidget(parent), today_(today), day_(today), fyStartMonth_(fyStartMonth) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    earlier_ = Controls::iconButton(QStringLiteral("chevron-left"), tr("Earlier period"), "earlierPeriod", this);
    later_ = Controls::iconButton(QStringLiteral("chevron-right"), tr("Later period"), "laterPeriod", this);
    label_ = new QToolButton(this);
    Controls::name(*label_, "period", tr("Period"));
    label_->setProperty("role", QStringLiteral("framed"));
    label_->setPopupMode(QToolButton::InstantPopup);
    label_->setFocusPolicy(Qt::TabFocus);
    label_->setMinimumWidth(128);
    label_->setFixedHeight(30);
    layout->addWidget(earlier_);
    layout->addWidget(label_);
    layout->addWidget(later_);
    connect(earlier_, &QToolButton::clicked, this, [this] { choose(span_, stepped(span_, day_, -1)); });
    connect(later_, &QToolButton::clicked, this, [this] { choose(span_, stepped(span_, day_, 1)); });
    refresh();
}

std::optional<Period> PeriodPicker::days() const { return daysOf(span_, day_, fyStartMonth_); }

void PeriodPicker::setYearStart(int fyStartMonth) {
    if (fyStartMonth == fyStartMonth_) return;
    fyStartMonth_ = fyStartMonth;
    refresh();
}

void PeriodPicker::offer(std::vector<Span> spans) {
    offered_ = std::move(spans);
    refresh();
}

void PeriodPicker::choose(Span span, Day day) {
    span_ = span;
    day_ = day;
    refresh();
    emit chosen();
}

void PeriodPicker::refresh() {
    label_->setText(toQt(titleOf(span_, day_, fyStartMonth_)));
    earlier_->setEnabled(span_ != Span::all);
    later_->setEnabled(span_ != Span::all);
    auto* menu = new QMenu(label_);
    const auto add = [&](const QString& text, Span span, Day day) {
        auto* action = menu->addAction(text, this, [this, span, day] { choose(span, day); });
        action->setCheckable(true);
        action->setChecked(span == span_ && (span == Span::all || daysOf(span, day, fyStartMonth_) == days()));
    };
    const auto offers = [this](Span span) {
        return std::find(offered_.begin(), offered_.end(), span) != offered_.end();
    };
    if (offers(Span::all)) {
        add(tr("All Time"), Span::all, today_);
        menu->addSeparator();
    }
    if (offers(Span::month)) {
        add(tr("This Month"), Span::month, today_);
        add(tr("Last Month"), Span::month, stepped(Span::month, today_, -1));
    }
    if (offers(Span::quarter)) {
        add(tr("This Quarter"), Span::quarter, today_);
        add(tr("Last Quarter"), Span::quarter, stepped(Span::quarter, today_, -1));
    }
    menu->addSeparator();
    for (int back = 0; offers(Span::year) && back < 3; ++back) {
        const Day day = stepped(Span::year, today_, -back);
        add(toQt(titleOf(Span::year, day, fyStartMonth_)), Span::year, day);
    }
    if (QMenu* old = label_->menu()) old->deleteLater();
    label_->setMenu(menu);
}

}  // namespace tamba
