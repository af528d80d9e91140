#include "Tamba/Sheets/Sheet.h"

#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/TabOrder.h"

#include <QLabel>

namespace tamba {

Sheet::Sheet(QWidget* parent, Icon icon, const QString& title, const QString& text) : QDialog(parent) {
    setObjectName(QStringLiteral("sheet"));
    setWindowTitle(title.isEmpty() ? QStringLiteral("Tamba") : title);
    setModal(true);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(24, 22, 24, 20);
    columns->setSpacing(16);
    if (icon != Icon::none) {
        auto* glyph = new QLabel(this);
        const bool alert = icon == Icon::alert;
        glyph->setPixmap(Icons::icon(alert ? QStringLiteral("alert") : QStringLiteral("receipt"),
                                     alert ? &Colors::warning : &Colors::accent)
                             .pixmap(QSize(32, 32), devicePixelRatioF()));
        columns->addWidget(glyph, 0, Qt::AlignTop);
    }
    body_ = new QVBoxLayout;
    body_->setSpacing(12);
    columns->addLayout(body_, 1);
    if (!title.isEmpty()) {
        auto* label = new QLabel(title, this);
        label->setFont(Style::titleFont(16));
        label->setWordWrap(true);
        body_->addWidget(label);
    }
    if (!text.isEmpty()) {
        auto* label = new QLabel(text, this);
        label->setObjectName(QStringLiteral("sheetText"));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
        body_->addWidget(label);
        setAccessibleDescription(text);
    }
    setMinimumWidth(420);
}

QPushButton* Sheet::addButtons(const QString& main, const QString& other, Main does) {
    auto* row = buttons_ = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(8);
    row->addStretch(1);
    if (!other.isEmpty()) {
        auto* button = Controls::button(other, "sheetOther", Controls::Kind::plain, this);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, &Sheet::reject);
    }
    auto* button = Controls::button(main, "sheetMain", Controls::Kind::primary, this);
    button->setDefault(true);
    if (does == Main::keeps) keep_ = button;
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, &QDialog::accept);
    body_->addLayout(row);
    return button;
}

QPushButton* Sheet::addThirdButton(const QString& text) {
    auto* button = Controls::button(text, "sheetThird", Controls::Kind::plain, this);
    buttons_->insertWidget(0, button);
    connect(button, &QPushButton::clicked, this, [this] { done(thirdWay); });
    return button;
}

void Sheet::fit() {
    layout()->activate();
    // Qt asks for the height of wrapped texts at another width, and would spread what is too much between the lines.
    if (layout()->hasHeightForWidth()) resize(width(), layout()->totalHeightForWidth(width()));
}

void Sheet::showEvent(QShowEvent* event) {
    if (!testAttribute(Qt::WA_Resized)) fit();
    QDialog::showEvent(event);
}

bool Sheet::focusNextPrevChild(bool next) { return TabOrder::move(*this, next); }

void Sheet::end() {
    if (keep_) keep_->click();
    if (!isVisible()) return;
    dismissed_ = true;
    QDialog::reject();
}

void Sheet::reject() {
    const auto* button = qobject_cast<QPushButton*>(sender());
    dismissed_ = button == nullptr;
    QDialog::reject();
}

}  // namespace tamba
