#include "Tamba/Sheets/ConflictSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>

namespace tamba {
namespace {

constexpr int wordsWidth = 430;

}  // namespace

ConflictSheet::ConflictSheet(QWidget* parent, const MergeReport& report)
    : Sheet(parent, Icon::none, tr("Changed on Two Computers"),
            tr("These books were also changed on another computer. Both sets of changes are in now. Where they touched "
               "the same thing, one was kept; choose the other where it is the right one.")) {
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 12, 0);
    column->setSpacing(10);
    const auto rows = conflictRows(report);
    for (std::size_t i = 0; i < rows.size(); ++i) column->addWidget(card(rows[i], i));
    column->addStretch(1);
    scroll->setWidget(content);
    scroll->setMinimumHeight(std::min(420, content->sizeHint().height() + 4));
    body().addWidget(scroll, 1);
    addButtons(tr("Done"), tr("Leave As It Is"));
    setFixedWidth(560);
    // A dialog does not ask by itself for the lines its sentence takes at this width.
    setMinimumHeight(layout()->totalMinimumHeightForWidth(560));
}

QWidget* ConflictSheet::card(const ConflictRow& row, std::size_t index) {
    auto* card = new QWidget(this);
    card->setObjectName(QStringLiteral("conflict%1").arg(index));
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(0, 0, 0, 8);
    column->setSpacing(4);
    auto* title = new QLabel(card);
    title->setFont(Style::textFont(13, QFont::DemiBold));
    title->setText(Controls::wrapped(toQt(row.record), *title, wordsWidth));
    column->addWidget(title);
    column->addWidget(Controls::label(toQt(row.field), "field", card));
    const auto side = [&](const QString& who, const std::string& value, bool kept, const char* name) {
        // Long texts are told apart by how they begin.
        const QString words = who.arg(card->fontMetrics().elidedText(toQt(value).simplified(), Qt::ElideRight, 300));
        auto* button = new QRadioButton(words, card);
        Controls::name(*button, name, words);
        button->setToolTip(toQt(value));
        button->setChecked(kept);
        button->setEnabled(row.open);
        column->addWidget(button);
        return button;
    };
    auto* ours = side(tr("This computer: %1"), row.ours, !row.keptTheirs, "ours");
    auto* theirs = side(tr("The other one: %1"), row.theirs, row.keptTheirs, "theirs");
    if (!row.open) {
        auto* note = Controls::label({}, "caption", card);
        note->setText(Controls::wrapped(
            tr("There is no choice here: a client has this document, or another record depends on it."), *note,
            wordsWidth));
        column->addWidget(note);
    }
    other_.push_back(!row.open ? nullptr : row.keptTheirs ? ours : theirs);
    return card;
}

std::vector<std::size_t> ConflictSheet::otherWay() const {
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < other_.size(); ++i)
        if (other_[i] && other_[i]->isChecked()) chosen.push_back(i);
    return chosen;
}

}  // namespace tamba
