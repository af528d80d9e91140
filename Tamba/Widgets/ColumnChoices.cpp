#include "Tamba/Widgets/ColumnChoices.h"

#include "Tamba/Colors.h"
#include "Tamba/Widgets/Form.h"

#include <QComboBox>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>

namespace tamba {

ColumnChoices::ColumnChoices(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setHighlightSections(false);
    setSectionsClickable(false);
    connect(this, &QHeaderView::sectionResized, this, &ColumnChoices::place);
}

void ColumnChoices::setCount(int columns, const std::function<void(QComboBox&, int)>& fill) {
    qDeleteAll(std::exchange(choices_, {}));
    for (int column = 0; column < columns; ++column) {
        QComboBox* choice = makeChoice(viewport());
        fill(*choice, column);
        connect(choice, &QComboBox::currentIndexChanged, this,
                [this, choice, column] { emit chosen(column, choice->currentData().toInt()); });
        choice->installEventFilter(this);
        choices_.push_back(choice);
        choice->show();
    }
    place();
}

void ColumnChoices::choose(int column, int data) {
    QComboBox& choice = *choices_.at(static_cast<std::size_t>(column));
    const QSignalBlocker quiet(choice);
    choice.setCurrentIndex(choice.findData(data));
}

bool ColumnChoices::eventFilter(QObject* watched, QEvent* event) {
    const auto at = std::find(choices_.begin(), choices_.end(), watched);
    if (at != choices_.end() && event->type() == QEvent::FocusIn) emit focused(static_cast<int>(at - choices_.begin()));
    return QHeaderView::eventFilter(watched, event);
}

QSize ColumnChoices::sizeHint() const { return {QHeaderView::sizeHint().width(), 42}; }

void ColumnChoices::updateGeometries() {
    QHeaderView::updateGeometries();
    place();
}

void ColumnChoices::paintSection(QPainter* painter, const QRect& rect, int) const {
    const Colors colors = Colors::current();
    painter->fillRect(rect, colors.window);
    painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), colors.border);
}

void ColumnChoices::place() {
    for (int column = 0; column < static_cast<int>(choices_.size()); ++column)
        choices_[static_cast<std::size_t>(column)]->setGeometry(sectionViewportPosition(column) + 4, 5,
                                                                sectionSize(column) - 8, height() - 11);
}

}  // namespace tamba
