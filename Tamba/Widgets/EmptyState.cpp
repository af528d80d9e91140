#include "Tamba/Widgets/EmptyState.h"

#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {

class EmptyState::Glyph : public QWidget {
public:
    explicit Glyph(QWidget* parent) : QWidget(parent) { setFixedSize(72, 72); }
    QString icon;

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.accentTint);
        painter.drawEllipse(rect());
        Icons::paint(painter, QRectF(20, 20, 32, 32), icon, colors.accent);
    }
};

EmptyState::EmptyState(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(0);
    glyph_ = new Glyph(this);
    title_ = new QLabel(this);
    title_->setFont(Style::titleFont(17));
    title_->setAlignment(Qt::AlignCenter);
    title_->setWordWrap(true);
    sentence_ = Controls::label({}, "field", this);
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setWordWrap(true);
    action_ = Controls::button({}, "emptyAction", Controls::Kind::primary, this);
    other_ = Controls::button({}, "emptyOther", Controls::Kind::link, this);
    third_ = Controls::button({}, "emptyThird", Controls::Kind::link, this);
    layout->addStretch(2);
    layout->addWidget(glyph_, 0, Qt::AlignHCenter);
    layout->addSpacing(18);
    layout->addWidget(title_);
    layout->addSpacing(10);
    layout->addWidget(sentence_, 0, Qt::AlignHCenter);
    layout->addSpacing(24);
    layout->addWidget(action_, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    layout->addWidget(other_, 0, Qt::AlignHCenter);
    layout->addWidget(third_, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    setFocusProxy(action_);
    connect(action_, &QPushButton::clicked, this, &EmptyState::actionChosen);
    connect(other_, &QPushButton::clicked, this, &EmptyState::otherChosen);
    connect(third_, &QPushButton::clicked, this, &EmptyState::thirdChosen);
}

void EmptyState::set(const QString& icon, const QString& title, const QString& sentence, const QString& action,
                     const QString& other, const QString& third) {
    glyph_->icon = icon;
    glyph_->update();
    title_->setText(title);
    sentence_->setText(sentence);
    fit();
    for (auto [button, text] : {std::pair(action_, action), std::pair(other_, other), std::pair(third_, third)}) {
        button->setText(text);
        button->setAccessibleName(text);
        button->setVisible(!text.isEmpty());
    }
}

void EmptyState::fit() {
    const int room = std::clamp(width() - 48, 160, 400);
    sentence_->setFixedWidth(room);
    // Centred in the layout, a label that wraps does not get the height for its width.
    sentence_->setMinimumHeight(0);  // which it would else not go below
    sentence_->setFixedHeight(std::max(0, sentence_->heightForWidth(room)));
}

void EmptyState::resizeEvent(QResizeEvent*) { fit(); }

}  // namespace tamba
