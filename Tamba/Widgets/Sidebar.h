#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Rows/ExpenseRows.h"

#include <QWidget>

#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tamba {

class SidebarItem;

/// The left edge of the window: whose books these are, what can be looked at with counts of what waits, and whether all
/// is saved.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(AppModel& model, QWidget* parent = nullptr);
    void setList(ExpenseList list);
    /// The sample books are shown instead of the person's own.
    void setSample(bool sample);

signals:
    void listChosen(tamba::ExpenseList list);
    void settingsChosen();
    void ownBooksChosen();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
    void refreshSaving();

    AppModel& model_;
    QLabel* name_;
    QLabel* place_;
    std::vector<SidebarItem*> items_;
    QPushButton* ownBooks_;
    QPushButton* saving_;
};

}  // namespace tamba
