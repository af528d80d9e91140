#include "Tamba/Screens/OverviewScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/OverviewParts.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QThread>
#include <QVBoxLayout>

#include <memory>

namespace tamba {
namespace {

/// Below this the panels stand under each other and the figures two by two.
constexpr int sideBySide = 1000;

struct Panel {
    QFrame* frame;
    QVBoxLayout* column;
};

Panel makePanel(const QString& title, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("card"));
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(1, 14, 1, 10);
    column->setSpacing(0);
    auto* label = new QLabel(title, frame);
    label->setFont(Style::titleFont(14));
    label->setContentsMargins(16, 0, 16, 8);
    column->addWidget(label);
    return {frame, column};
}

/// As many tiles as there are things to show, each filled anew; those left over wait hidden.
template <class Tile, class Item, class Make>
void fill(std::vector<Tile*>& tiles, const std::vector<Item>& items, Make&& make) {
    while (tiles.size() < items.size()) tiles.push_back(make());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        if (i < items.size()) tiles[i]->set(items[i]);
        tiles[i]->setVisible(i < items.size());
    }
}

}  // namespace

OverviewScreen::OverviewScreen(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    setObjectName(QStringLiteral("overviewScreen"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeHeader());
    pages_ = new QStackedWidget(this);
    scroll_ = new QScrollArea(pages_);
    scroll_->setWidgetResizable(true);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(makeContent());
    empty_ = new EmptyState(pages_);
    empty_->set(QStringLiteral("books"), tr("Your books begin here"),
                tr("Drop receipts or a bank statement anywhere on this window, or write an invoice. What you are owed, "
                   "what you earn and which dates come up is then told here."),
                tr("New Invoice"), tr("Explore the Sample Books"));
    pages_->addWidget(scroll_);
    pages_->addWidget(empty_);
    rows->addWidget(pages_, 1);
    connect(empty_, &EmptyState::actionChosen, this, &OverviewScreen::newInvoiceChosen);
    connect(empty_, &EmptyState::otherChosen, this, &OverviewScreen::sampleChosen);
    connect(&model_, &AppModel::changed, this, &OverviewScreen::refresh);
    connect(&model_, &AppModel::opened, this, &OverviewScreen::refresh);
    connect(&model_, &AppModel::dayChanged, this, &OverviewScreen::refresh);
}

OverviewScreen::~OverviewScreen() {
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

QWidget* OverviewScreen::makeHeader() {
    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("screenHeader"));
    frame->setFixedHeight(64);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(20, 0, 16, 0);
    row->setSpacing(8);
    row->addWidget(Controls::label(tr("Overview"), "title", frame));
    today_ = Controls::label({}, "field", frame);
    today_->setContentsMargins(8, 4, 0, 0);
    row->addWidget(today_);
    row->addStretch(1);
    addReceipts_ = Controls::button(tr("Add Receipts…"), "overviewReceipts", Controls::Kind::plain, frame);
    auto* invoice = Controls::button(tr("New Invoice"), "overviewInvoice", Controls::Kind::primary, frame);
    invoice->setToolTip(tr("New invoice (Ctrl+N)"));
    row->addWidget(addReceipts_);
    row->addWidget(invoice);
    connect(addReceipts_, &QPushButton::clicked, this, &OverviewScreen::addReceiptsChosen);
    connect(invoice, &QPushButton::clicked, this, &OverviewScreen::newInvoiceChosen);
    return frame;
}

QWidget* OverviewScreen::makeContent() {
    auto* content = new QWidget;
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(20, 18, 20, 20);
    rows->setSpacing(16);
    figuresGrid_ = new QGridLayout;
    figuresGrid_->setSpacing(12);
    static constexpr const char* names[] = {"figureOwed", "figureOverdue", "figureIncome", "figureProfit"};
    for (std::size_t i = 0; i < figures_.size(); ++i) {
        figures_[i] = new FigureTile(content);
        figures_[i]->setObjectName(QString::fromLatin1(names[i]));
        connect(figures_[i], &QAbstractButton::clicked, this,
                [this, tile = figures_[i]] { emit goalChosen(tile->goal()); });
    }
    rows->addLayout(figuresGrid_);
    leftOut_ = Controls::label({}, "caption", content);
    rows->addWidget(leftOut_);

    columns_ = new QBoxLayout(QBoxLayout::LeftToRight);
    columns_->setSpacing(16);
    const Panel needs = makePanel(tr("Needs you"), content);
    itemsColumn_ = needs.column;
    auto* nothing = Controls::label(tr("Nothing waits for you."), "field", needs.frame);
    nothing->setContentsMargins(16, 6, 16, 10);
    nothing_ = nothing;
    itemsColumn_->addWidget(nothing_);
    auto* side = new QVBoxLayout;
    side->setSpacing(16);
    const Panel months = makePanel(tr("Twelve months"), content);
    chart_ = new BarChart(months.frame);
    Controls::name(*chart_, "overviewMonths", tr("Income and spending of the last twelve months"));
    chart_->setMinimumHeight(210);
    auto* inset = new QHBoxLayout;
    inset->setContentsMargins(14, 0, 14, 4);
    inset->addWidget(chart_);
    months.column->addLayout(inset);
    const Panel dates = makePanel(tr("Coming up"), content);
    datesPanel_ = dates.frame;
    datesColumn_ = dates.column;
    side->addWidget(months.frame);
    side->addWidget(dates.frame);
    side->addStretch(1);
    auto* main = new QVBoxLayout;
    main->addWidget(needs.frame);
    main->addStretch(1);
    columns_->addLayout(main, 11);
    columns_->addLayout(side, 10);
    rows->addLayout(columns_);
    rows->addStretch(1);
    connect(chart_, &BarChart::chosen, this, [this](int group) {
        if (group < 0 || group >= std::ssize(months_)) return;
        const Period days = Period::month(months_[static_cast<std::size_t>(group)].month);
        emit goalChosen({.place = OverviewGoal::Place::profitAndLoss, .days = days});
    });
    return content;
}

void OverviewScreen::refresh() {
    stale_ = true;
    if (!isVisible()) return;
    const Library& library = model_.library();
    if (isQuick(library) && !running_) return present(overview(library, model_.today()));
    if (running_) {
        again_ = true;
        return;
    }
    compute();
}

void OverviewScreen::compute() {
    running_ = true;
    again_ = false;
    auto* thread = QThread::create([this, library = model_.library(), today = model_.today()] {
        auto result = std::make_shared<const Overview>(overview(library, today));
        QMetaObject::invokeMethod(
            this,
            [this, result] {
                running_ = false;
                again_ ? compute() : present(*result);
            },
            Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void OverviewScreen::present(const Overview& overview) {
    stale_ = false;
    today_->setText(toQt(Sentences::months(model_.today().formatted("EEEE, d MMMM yyyy"))));
    pages_->setCurrentWidget(overview.empty ? static_cast<QWidget*>(empty_) : scroll_);
    addReceipts_->setVisible(!overview.empty);
    if (overview.empty) return;
    for (std::size_t i = 0; i < figures_.size(); ++i) figures_[i]->set(overview.figures[i]);
    leftOut_->setText(toQt(overview.leftOut));
    leftOut_->setVisible(!overview.leftOut.empty());
    fill(items_, overview.items, [this] {
        auto* tile = new ItemTile(itemsColumn_->parentWidget());
        itemsColumn_->addWidget(tile);
        connect(tile, &QAbstractButton::clicked, this, [this, tile] { emit goalChosen(tile->goal()); });
        connect(tile, &ItemTile::remindChosen, this, &OverviewScreen::reminderChosen);
        return tile;
    });
    nothing_->setVisible(overview.items.empty());
    fill(dates_, overview.dates, [this] {
        auto* tile = new DateTile(datesPanel_);
        datesColumn_->addWidget(tile);
        connect(tile, &QAbstractButton::clicked, this, [this, tile] { emit goalChosen(tile->goal()); });
        return tile;
    });
    datesPanel_->setVisible(!overview.dates.empty());
    showChart(overview);
}

void OverviewScreen::showChart(const Overview& overview) {
    months_ = overview.months;
    std::vector<BarChart::Group> groups;
    for (const OverviewMonth& month : months_)
        groups.push_back({toQt(Sentences::months(month.month.formatted("MMM"))),
                          toQt(Sentences::months(month.month.formatted("MMMM yyyy"))),
                          {month.income, month.spent}});
    chart_->set({{tr("Income"), &Colors::accent}, {tr("Spending"), &Colors::faint}}, std::move(groups),
                model_.library().home());
}

void OverviewScreen::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    arrange();
    if (stale_) refresh();
}

void OverviewScreen::resizeEvent(QResizeEvent*) { arrange(); }

void OverviewScreen::arrange() {
    const bool wide = width() >= sideBySide;
    columns_->setDirection(wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    for (std::size_t i = 0; i < figures_.size(); ++i) {
        const int at = static_cast<int>(i);
        figuresGrid_->addWidget(figures_[i], wide ? 0 : at / 2, wide ? at : at % 2);
    }
    today_->setVisible(width() >= 620);
}

}  // namespace tamba
