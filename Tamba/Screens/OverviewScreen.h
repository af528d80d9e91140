#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Rows/OverviewRows.h"

#include <QWidget>

#include <array>
#include <vector>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QVBoxLayout;

namespace tamba {

class BarChart;
class DateTile;
class EmptyState;
class FigureTile;
class ItemTile;

/// What a person sees first: four figures, what needs them, the dates to keep, and twelve months of income against
/// spending. Works its content out once for each value of the books, beside the main thread where those are large.
class OverviewScreen : public QWidget {
    Q_OBJECT

public:
    explicit OverviewScreen(AppModel& model, QWidget* parent = nullptr);
    ~OverviewScreen() override;
    /// What is shown is that of the present books.
    [[nodiscard]] bool isSettled() const { return !running_ && !stale_; }

signals:
    void goalChosen(const tamba::OverviewGoal& goal);
    void reminderChosen(const tamba::UUID& invoice);
    void newInvoiceChosen();
    void addReceiptsChosen();
    void sampleChosen();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeContent();
    void refresh();
    void compute();
    void present(const Overview& overview);
    void showChart(const Overview& overview);
    void arrange();

    AppModel& model_;
    bool stale_ = true;
    bool running_ = false;
    bool again_ = false;  // the books have changed while those before were being looked through
    std::vector<OverviewMonth> months_;
    QLabel* today_;
    QPushButton* addReceipts_;
    QStackedWidget* pages_;
    QScrollArea* scroll_;
    EmptyState* empty_;
    QGridLayout* figuresGrid_;
    std::array<FigureTile*, 4> figures_;
    QLabel* leftOut_;
    QBoxLayout* columns_;
    QVBoxLayout* itemsColumn_;
    std::vector<ItemTile*> items_;
    QWidget* nothing_;
    QWidget* datesPanel_;
    QVBoxLayout* datesColumn_;
    std::vector<DateTile*> dates_;
    BarChart* chart_;
};

}  // namespace tamba
