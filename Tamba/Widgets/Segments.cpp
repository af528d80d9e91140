#include "Tamba/Widgets/Segments.h"

#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QButtonGroup>
#include <QHBoxLayout>

namespace tamba {

Segments::Segments(const Choices& choices, QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("segments"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    group_ = new QButtonGroup(this);
    for (const auto& [text, name] : choices) {
        auto* button = Controls::button(text, name, Controls::Kind::plain, this);
        button->setProperty("role", QStringLiteral("segment"));
        button->setCheckable(true);
        // The chosen one is bold, and must not be cut for it.
        button->setMinimumWidth(QFontMetrics(Style::textFont(13, QFont::DemiBold)).horizontalAdvance(text) + 30);
        group_->addButton(button, static_cast<int>(group_->buttons().size()));
        layout->addWidget(button);
    }
    choose(0);
    connect(group_, &QButtonGroup::idClicked, this, &Segments::chosen);
}

int Segments::chosenIndex() const { return group_->checkedId(); }

void Segments::choose(int index) {
    if (QAbstractButton* button = group_->button(index)) button->setChecked(true);
}

}  // namespace tamba
