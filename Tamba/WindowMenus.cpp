#include "Tamba/DocumentActions.h"
#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/StatementImport.h"
#include "Tamba/Window.h"

#include <QDesktopServices>
#include <QMenuBar>
#include <QUrl>

namespace tamba {

void Window::makeMenus() {
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    documentMenu_ = menuBar()->addMenu(tr("&Invoice"));
    documentMenu_->setObjectName(QStringLiteral("documentMenu"));
    needBooks_.push_back(documentMenu_->menuAction());
    connect(documentMenu_, &QMenu::aboutToShow, this, &Window::fillDocumentMenu);
    makeBankMenu();
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
    add(more, tr("&Client"), {}, [this] { showScreen(Screen::clients), clients_->newClient(); }, true);
    add(file, tr("&Add Receipts…"), QKeySequence::Open, [this] { addReceipts(prompts_->receiptFiles()); }, true);
    add(
        file, tr("&Import Statement…"), QKeySequence(Qt::CTRL | Qt::Key_I),
        [this] { statements_->add(prompts_->statementFiles()); }, true);
    add(file, tr("Re&curring Expenses…"), {}, [this] { editRecurring(); }, true);
    file->addSeparator();
    print_ = add(file, tr("&Print…"), QKeySequence::Print, [this] { page().print(); }, false);
    file->addSeparator();
    add(
        file, tr("Open &Library Folder…"), {},
        [this] {
            if (const auto folder = prompts_->libraryFolder(model_.folder())) openFolder(*folder);
        },
        false);
    add(
        file, tr("Show Library &Folder"), {},
        [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(model_.folder()))); }, false);
    add(file, tr("&Restore a Backup…"), {}, [this] { restoreBackup(); }, false);
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
    QAction* remove = edit->addAction(tr("&Delete"), this, [this] { page().remove(); });
    remove->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Backspace));
    QAction* find = edit->addAction(tr("&Find"), this, [this] { page().find(); });
    find->setShortcut(QKeySequence::Find);
    needBooks_.insert(needBooks_.end(), {remove, find});
    makeSearch(*edit);
}

void Window::makeViewMenu() {
    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (const Screen screen : allScreens) {
        QAction* action = view->addAction(title(screen), this, [this, screen] { showScreen(screen); });
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(screen))));
        needBooks_.push_back(action);
    }
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
    needBooks_.insert(needBooks_.end(), {check, estimates, notes});
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
    bank->addSeparator();
    add(tr("&Add Account…"), &BankScreen::addAccount);
    add(tr("&Change Account…"), &BankScreen::renameAccount);
}

void Window::fillDocumentMenu() {
    documentMenu_->clear();
    const auto id = screen_ == Screen::invoices ? invoices_->selected() : std::nullopt;
    const Document* document = id ? model_.library().document(*id) : nullptr;
    if (!document) {
        documentMenu_->addAction(tr("Select an invoice first"))->setEnabled(false);
        return;
    }
    for (const auto action : DocumentActions::offered(model_.library(), *document, model_.today()))
        documentMenu_->addAction(Icons::icon(DocumentActions::icon(action), &Colors::muted),
                                 DocumentActions::title(action), this, [this, action] { invoices_->run(action); });
}

void Window::refreshMenus() {
    new_->setText(page().newTitle);
    print_->setEnabled(page().print != nullptr && model_.state() == AppModel::State::open);
}

}  // namespace tamba
