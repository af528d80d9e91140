#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/ReceiptQueue.h"
#include "Tamba/Widgets/Sidebar.h"
#include "TambaCore/Documents/Search.h"

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>

class QAction;
class QMenu;
class QStackedWidget;

namespace tamba {

class ActivityStrip;
class BankScreen;
class ClientPages;
class ClientsScreen;
class DocumentActions;
class DropOverlay;
class EmptyState;
class ExpensesScreen;
class FolderActions;
class GuideWindow;
class InvoicesScreen;
class OverviewScreen;
class ProjectsScreen;
class ReportFiles;
class ReportsScreen;
class SearchPalette;
struct OverviewGoal;
class StatementImport;
class Toast;
class UpdateService;

/// The one window: menus, sidebar, screens, activity strip; takes dropped receipts and statements anywhere.
class Window : public QMainWindow {
    Q_OBJECT

public:
    /// `prompts` null: dialogs over this window.
    explicit Window(AppModel& model, std::unique_ptr<Prompts> prompts = nullptr,
                    ReceiptQueue::MakeScan scan = ReceiptQueue::receiptReader());
    /// For prompts that need the window they ask over.
    using MakePrompts = std::function<std::unique_ptr<Prompts>(Window& window)>;
    Window(AppModel& model, const MakePrompts& makePrompts,
           ReceiptQueue::MakeScan scan = ReceiptQueue::receiptReader());
    ~Window() override;

    /// Reads these files and adds them as expenses.
    void addReceipts(const std::vector<std::filesystem::path>& files);
    [[nodiscard]] ReceiptQueue& receipts() { return *receipts_; }
    /// Statements become bank lines, all others expenses.
    void addFiles(const std::vector<std::filesystem::path>& files);
    void comeForward();
    void showScreen(Screen screen);
    void newInvoice();
    void openSample();
    [[nodiscard]] Screen screen() const { return screen_; }
    /// What is shown in place of the screens while the books are new. The window takes it over.
    void setWelcome(QWidget* welcome);
    /// What goes to a printer runs behind the window, which says so.
    void showPrinting(const QString& title, Printing::Stage stage);
    /// Tells of updates, and has them in the settings; looks for them when that is allowed.
    void setUpdates(UpdateService& updates);
    [[nodiscard]] Prompts& prompts() { return *prompts_; }
    /// Where the person's own books are, while the sample books are open.
    void setOwnFolder(const std::filesystem::path& folder) { ownFolder_ = folder; }
    [[nodiscard]] const std::filesystem::path& ownFolder() const {
        return ownFolder_.empty() ? model_.folder() : ownFolder_;
    }

signals:
    /// Palette and accent are to be worked out again.
    void looksChanged();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// What the keys for new, find, delete and print do on a screen.
    struct Page {
        QWidget* widget = nullptr;
        QString newTitle;
        std::function<void()> create, find, remove, print;
    };
    void makePages();
    [[nodiscard]] const Page& page() const { return screens_[static_cast<std::size_t>(screen_)]; }
    // WindowMenus.cpp
    void makeMenus();
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeBankMenu();
    void makeExpenseMenu();
    void makeDocumentMenu();
    void makeClientMenu();
    // WindowHelp.cpp
    void makeHelpMenu();
    /// At the page about what is on the screen.
    void showGuide();
    void recordDemonstration();
    /// Fills a menu with what can be done with a screen's selection, or says what is missing.
    void fillSelectionMenu(QMenu& menu, Screen screen, bool selected, const QString& otherwise,
                           const std::function<void()>& fill);
    void refreshMenus();
    // WindowSearch.cpp
    void makeSearch(QMenu& edit);
    void showRecord(Search::Kind kind, const UUID& id);

    // WindowReports.cpp
    void makeReports();
    void connectReports();
    /// The report that a figure or a date on the overview stands for.
    void showReport(const OverviewGoal& goal);

    // WindowUpdates.cpp
    void tellOfUpdates();

    void connectScreens();
    // WindowOverview.cpp
    void connectOverview();
    void connectProjects();
    void showGoal(const OverviewGoal& goal);

    void connectDocuments();
    void connectReceipts();
    void connectStatements();
    void connectFolder();
    void hideStrip();
    void refreshHistory();
    void refreshState();
    void finished(const ReceiptQueue::Summary& summary);
    void openFolder(const std::filesystem::path& folder);
    void editSettings(SettingsPlace place = SettingsPlace::business, const std::optional<UUID>& item = {});
    void editRecurring();
    void decideConflicts(const MergeReport& report);
    void showRemoved(const QString& what);

    AppModel& model_;
    std::unique_ptr<Prompts> prompts_;
    ReceiptQueue* receipts_;
    StatementImport* statements_;
    std::filesystem::path ownFolder_;
    UpdateService* updates_ = nullptr;
    QString toldOfUpdate_;
    bool fetchingUpdate_ = false;
    bool makingSample_ = false;
    Sidebar* sidebar_;
    QStackedWidget* pages_;
    FolderActions* folder_;
    DocumentActions* documents_;
    OverviewScreen* overview_;
    ExpensesScreen* expenses_;
    InvoicesScreen* invoices_;
    ClientsScreen* clients_;
    ProjectsScreen* projects_;
    ClientPages* clientPages_;
    BankScreen* bank_;
    ReportFiles* reportFiles_ = nullptr;
    ReportsScreen* reports_ = nullptr;
    std::array<Page, std::size(allScreens)> screens_;
    Screen screen_ = Screen::overview;
    EmptyState* problem_;
    QWidget* welcome_ = nullptr;
    ActivityStrip* strip_;
    Toast* toast_;
    DropOverlay* overlay_;
    SearchPalette* search_ = nullptr;
    GuideWindow* guide_ = nullptr;
    QAction* new_ = nullptr;
    QAction* print_ = nullptr;
    QAction* find_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* record_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    std::vector<QAction*> needBooks_;  // only with open books
};

}  // namespace tamba
