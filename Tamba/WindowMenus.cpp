#include "Tamba/DocumentActions.h"
#include "Tamba/FolderActions.h"
#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/StatementImport.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Window.h"

#include <QMenuBar>

#include <algorithm>

namespace tamba {

void Window::makeMenus() {
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    makeExpenseMenu();
    makeDocumentMenu();
    makeClientMenu();
    makeBankMenu();
    makeHelpMenu();
    refreshMenus();
}

void Window::makeFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    const auto add = [&](QMenu* menu, const QString& text, const QKeySequence& keys, auto&& work, bool needsBooks) {
        QAction* action = menu->addAction(text, this, work);
        action->setShortcut(keys);
        if (needsBooks) needBooks_.push_back(action);
        return action;
    };
    new_ = add(file, tr("&New"), QKeySequence::New, [this] { page().create(); }, true);
    QMenu* more = file->addMenu(tr("N&ew Other"));
    needBooks_.push_back(more->menuAction());
    add(more, tr("&Expense"), {}, [this] { showScreen(Screen::expenses), expenses_->newExpense(); }, true);
    add(
        more, tr("&Mileage Trip…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M),
        [this] { showScreen(Screen::expenses), expenses_->newMileageTrip(); }, true);
    add(
        more, tr("&Invoice"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N),
        [this] { documents_->create(DocKind::invoice); }, true);
    add(more, tr("E&stimate"), {}, [this] { documents_->create(DocKind::estimate); }, true);
    add(
        more, tr("&Client"), {},
        [this] { showScreen(Screen::clients), clientPages_->showClients(), clients_->newClient(); }, true);
    add(
        more, tr("&Project"), {},
        [this] { showScreen(Screen::clients), clientPages_->showProjects(), projects_->newProject(); }, true);
    add(file, tr("&Add Receipts…"), QKeySequence::Open, [this] { addReceipts(prompts_->receiptFiles()); }, true);
    add(
        file, tr("&Import Statement…"), QKeySequence(Qt::CTRL | Qt::Key_I),
        [this] { statements_->add(prompts_->statementFiles()); }, true);
    add(file, tr("Re&curring Expenses…"), {}, [this] { editRecurring(); }, true);
    file->addSeparator();
    print_ = add(file, tr("&Print…"), QKeySequence::Print, [this] { page().print(); }, false);
    file->addSeparator();
    add(file, tr("Open &Library Folder…"), {}, [this] { folder_->openOther(); }, false);
    add(file, tr("Show Library &Folder"), {}, [this] { folder_->show(); }, false);
    add(file, tr("&Move Library Folder…"), {}, [this] { folder_->move(); }, true);
    add(file, tr("&Restore a Backup…"), {}, [this] { folder_->restore(); }, false);
    add(file, tr("E&xplore the Sample Books"), {}, [this] { openSample(); }, false);
    file->addSeparator();
    add(file, tr("&Settings…"), QKeySequence(Qt::CTRL | Qt::Key_Comma), [this] { editSettings(); }, true);
    add(file, tr("&Quit"), QKeySequence::Quit, [this] { close(); }, false);
}

void Window::makeEditMenu() {
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    undo_ = edit->addAction(Icons::icon(QStringLiteral("undo"), &Colors::muted), tr("Undo"), &model_, &AppModel::undo);
    undo_->setShortcut(QKeySequence::Undo);
    redo_ = edit->addAction(Icons::icon(QStringLiteral("redo"), &Colors::muted), tr("Redo"), &model_, &AppModel::redo);
    redo_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    edit->addSeparator();
    QAction* copy = edit->addAction(tr("&Copy"), this, [] { ListParts::copySelection(); });
    copy->setShortcut(QKeySequence::Copy);
    needBooks_.push_back(copy);
    delete_ = edit->addAction(tr("&Delete"), this, [this] { page().remove(); });
    delete_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Backspace));
    find_ = edit->addAction(tr("&Find"), this, [this] { page().find(); });
    find_->setShortcut(QKeySequence::Find);
    makeSearch(*edit);
}

void Window::makeViewMenu() {
    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (const Screen screen : allScreens) {
        QAction* action = view->addAction(title(screen), this, [this, screen] { showScreen(screen); });
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(screen))));
        needBooks_.push_back(action);
    }
    QMenu* reports = view->addMenu(tr("&Go to Report"));
    // Those of a business's own tax scheme, which the settings change.
    connect(reports, &QMenu::aboutToShow, this, [this, reports] {
        reports->clear();
        for (const ReportKind kind : reportsFor(model_.library().business))
            reports->addAction(Translations::shown(tamba::title(kind)), this, [this, kind] {
                showScreen(Screen::reports);
                reports_->showReport(kind);
            });
    });
    needBooks_.push_back(reports->menuAction());
    view->addSeparator();
    QAction* check = view->addAction(tr("Expenses to &Check"), this, [this] {
        showScreen(Screen::expenses);
        expenses_->showList(ExpenseList::toCheck);
    });
    QAction* estimates = view->addAction(tr("&Estimates"), this, [this] {
        showScreen(Screen::invoices);
        invoices_->showKind(DocKind::estimate);
    });
    QAction* notes = view->addAction(tr("Credit &Notes"), this, [this] {
        showScreen(Screen::invoices);
        invoices_->showKind(DocKind::creditNote);
    });
    QAction* projects = view->addAction(tr("&Projects"), this, [this] {
        showScreen(Screen::clients);
        clientPages_->showProjects();
    });
    needBooks_.insert(needBooks_.end(), {check, estimates, notes, projects});
}

void Window::makeBankMenu() {
    QMenu* bank = menuBar()->addMenu(tr("&Bank"));
    needBooks_.push_back(bank->menuAction());
    const auto add = [&](const QString& text, void (BankScreen::*work)()) {
        QAction* action = bank->addAction(text, this, [this, work] {
            showScreen(Screen::bank);
            (bank_->*work)();
        });
        needBooks_.push_back(action);
        return action;
    };
    add(tr("&Match the Obvious Ones"), &BankScreen::matchObvious)->setShortcut(QKeySequence(Qt::Key_F5));
    QMenu* line = bank->addMenu(tr("Selected &Line"));
    connect(line, &QMenu::aboutToShow, this, [this, line] {
        fillSelectionMenu(*line, Screen::bank, true, tr("Select a bank line first"),
                          [this, line] { bank_->fillMenu(*line); });
    });
    bank->addSeparator();
    add(tr("&Add Account…"), &BankScreen::addAccount);
    add(tr("&Change Account…"), &BankScreen::renameAccount);
}

void Window::makeExpenseMenu() {
    QMenu* menu = menuBar()->addMenu(tr("E&xpense"));
    menu->setObjectName(QStringLiteral("expenseMenu"));
    needBooks_.push_back(menu->menuAction());
    // The shortcut works without the menu, which is filled anew for what is selected.
    auto* right = new QAction(tr("Looks &Right"), this);
    right->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    connect(right, &QAction::triggered, this, [this] {
        if (screen_ == Screen::expenses) expenses_->looksRight();
    });
    addAction(right);
    needBooks_.push_back(right);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, right] {
        fillSelectionMenu(*menu, Screen::expenses, !expenses_->selected().empty(), tr("Select an expense first"),
                          [this, menu] { expenses_->fillMenu(*menu); });
        for (QAction* action : menu->actions())
            if (action->text() == tr("Looks Right")) action->setShortcut(right->shortcut());
    });
}

void Window::makeClientMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Client"));
    menu->setObjectName(QStringLiteral("clientMenu"));
    needBooks_.push_back(menu->menuAction());
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        fillSelectionMenu(*menu, Screen::clients, true, tr("Select a client or a project first"),
                          [this, menu] { clientPages_->fillMenu(*menu); });
    });
}

void Window::fillSelectionMenu(QMenu& menu, Screen screen, bool selected, const QString& otherwise,
                               const std::function<void()>& fill) {
    menu.clear();
    if (screen_ == screen && selected) fill();
    if (menu.isEmpty()) menu.addAction(otherwise)->setEnabled(false);
}

void Window::makeDocumentMenu() {
    using Action = DocumentActions::Action;
    QMenu* menu = menuBar()->addMenu(tr("&Invoice"));
    menu->setObjectName(QStringLiteral("documentMenu"));
    needBooks_.push_back(menu->menuAction());
    const auto offered = [this] {
        const auto id = screen_ == Screen::invoices ? invoices_->selected() : std::nullopt;
        const Document* document = id ? model_.library().document(*id) : nullptr;
        return document ? DocumentActions::offered(model_.library(), *document, model_.today()) : std::vector<Action>();
    };
    const std::pair<Action, QKeySequence> keys[] = {{Action::issue, Qt::CTRL | Qt::Key_Return},
                                                    {Action::send, Qt::CTRL | Qt::SHIFT | Qt::Key_S},
                                                    {Action::recordPayment, Qt::CTRL | Qt::Key_R},
                                                    {Action::remind, Qt::CTRL | Qt::SHIFT | Qt::Key_R},
                                                    {Action::credit, {}},
                                                    {Action::accept, {}},
                                                    {Action::decline, {}},
                                                    {Action::convert, {}},
                                                    {Action::duplicate, Qt::CTRL | Qt::Key_D},
                                                    {Action::savePDF, QKeySequence::Save},
                                                    {Action::print, {}},
                                                    {Action::voidDocument, {}},
                                                    {Action::deleteDraft, {}}};
    for (const auto& [action, shortcut] : keys) {
        QAction* entry = menu->addAction(Icons::icon(DocumentActions::icon(action), &Colors::muted),
                                         DocumentActions::title(action), this, [this, offered, action = action] {
                                             const auto actions = offered();
                                             if (std::find(actions.begin(), actions.end(), action) != actions.end())
                                                 invoices_->run(action);
                                         });
        entry->setShortcut(shortcut);
        entry->setData(static_cast<int>(action));
    }
    QAction* none = menu->addAction(tr("Select an invoice first"));
    none->setEnabled(false);
    connect(menu, &QMenu::aboutToShow, this, [menu, none, offered] {
        const auto actions = offered();
        for (QAction* entry : menu->actions())
            entry->setVisible(entry == none ? actions.empty()
                                            : std::find(actions.begin(), actions.end(),
                                                        static_cast<Action>(entry->data().toInt())) != actions.end());
    });
    // Only what is visible answers to its keys.
    connect(menu, &QMenu::aboutToHide, this, [menu] {
        for (QAction* entry : menu->actions()) entry->setVisible(true);
    });
}

void Window::refreshMenus() {
    new_->setText(page().newTitle);
    const bool open = model_.state() == AppModel::State::open;
    print_->setEnabled(open && page().print);
    find_->setEnabled(open && page().find);
    delete_->setEnabled(open && page().remove);
}

}  // namespace tamba
