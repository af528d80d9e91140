#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Background.h"
#include "Tamba/Rows/OverviewRows.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tamba {

class SidebarItem;

/// The screens in the sidebar's order, which is also that of Ctrl+1, Ctrl+2 and so on.
enum class Screen { overview, expenses, invoices, clients, bank, reports };
inline constexpr Screen allScreens[] = {Screen::overview, Screen::expenses, Screen::invoices,
                                        Screen::clients,  Screen::bank,     Screen::reports};
[[nodiscard]] QString title(Screen screen);

/// The left edge of the window: whose books these are, what can be looked at with counts of what waits, and whether all
/// is saved.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(AppModel& model, QWidget* parent = nullptr);
    void setScreen(Screen screen);
    void setList(ExpenseList list);
    /// The sample books are shown instead of the person's own.
    void setSample(bool sample);
    /// Glyphs alone, where the room is needed for what they lead to; the words are in the tips.
    void setNarrow(bool narrow);

signals:
    void screenChosen(tamba::Screen screen);
    void listChosen(tamba::ExpenseList list);
    void settingsChosen();
    void ownBooksChosen();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SidebarItem* addItem(const char* icon, const QString& text, const char* name, bool nested);
    void addLists();
    void recount();
    void refresh();
    void check();
    void refreshSaving();

    AppModel& model_;
    bool narrow_ = false;
    QHBoxLayout* head_;
    QLabel* name_;
    QLabel* place_;
    QVBoxLayout* items_;
    std::vector<SidebarItem*> screens_;  // in the order of `allScreens`
    std::vector<SidebarItem*> lists_;
    Screen screen_ = Screen::overview;
    ExpenseList list_ = ExpenseList::all;
    Waiting waits_;
    QPushButton* ownBooks_;
    SidebarItem* settings_;
    QPushButton* saving_;
    Background background_;  // counts large books
};

}  // namespace tamba
