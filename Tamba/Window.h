#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/ReceiptQueue.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QStackedWidget;

namespace tamba {

class ActivityStrip;
class DropOverlay;
class EmptyState;
class ExpensesScreen;
class Sidebar;
class Toast;

/// The one window: menus, sidebar, screen, activity strip; takes dropped receipts anywhere.
class Window : public QMainWindow {
    Q_OBJECT

public:
    /// `prompts` null: dialogs over this window.
    explicit Window(AppModel& model, std::unique_ptr<Prompts> prompts = nullptr,
                    ReceiptQueue::MakeScan scan = ReceiptQueue::receiptReader());
    ~Window() override;

    /// Reads these files and adds them as expenses.
    void addReceipts(const std::vector<std::filesystem::path>& files);
    [[nodiscard]] ReceiptQueue& receipts() { return *receipts_; }
    /// Where the person's own books are, while the sample books are open.
    void setOwnFolder(const std::filesystem::path& folder) { ownFolder_ = folder; }

signals:
    /// Palette and accent are to be worked out again.
    void looksChanged();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeMenus();
    void makeEditMenu();
    void connectReceipts();
    void refreshHistory();
    void refreshState();
    void finished(const ReceiptQueue::Summary& summary);
    void openFolder(const std::filesystem::path& folder);
    void openSample();
    void restoreBackup();
    void editSettings();

    AppModel& model_;
    std::unique_ptr<Prompts> prompts_;
    ReceiptQueue* receipts_;
    std::filesystem::path ownFolder_;
    Sidebar* sidebar_;
    QStackedWidget* pages_;
    ExpensesScreen* expenses_;
    EmptyState* problem_;
    ActivityStrip* strip_;
    Toast* toast_;
    DropOverlay* overlay_;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    std::vector<QAction*> needBooks_;  // only with open books
};

}  // namespace tamba
