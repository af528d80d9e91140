#pragma once

#include "Tamba/Rows/RecordRows.h"
#include "Tamba/RowsModel.h"

#include <QFrame>

class QLabel;
class QTableView;

namespace tamba {

/// Beside a report: the records that make one of its figures. A double click or Enter opens one on its own screen.
class RecordsPane : public QFrame {
    Q_OBJECT

public:
    explicit RecordsPane(QWidget* parent = nullptr);
    void show(const Library& library, const ReportRecords& records);
    void takeKeys();

signals:
    void documentChosen(const tamba::UUID& id);
    void expenseChosen(const tamba::UUID& id);
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Model = RowsModel<RecordRow>;
    [[nodiscard]] static std::vector<Model::Column> columns();
    void open(int row);

    Model rows_;
    QLabel* title_;
    QLabel* count_;
    QLabel* sum_;
    QTableView* table_;
};

}  // namespace tamba
