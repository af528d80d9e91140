#include "Tamba/Window.h"

#include "CorvexKit/UpdateService.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/FolderActions.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/StatementImport.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/TabOrder.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Model/Changes.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QStackedWidget>
#include <QThread>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {
namespace {

std::vector<std::filesystem::path> localFiles(const QMimeData& data) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) files.push_back(toPath(url.toLocalFile()));
    return files;
}

}  // namespace

Window::Window(AppModel& model, std::unique_ptr<Prompts> prompts, ReceiptQueue::MakeScan scan)
    : Window(
          model,
          [&prompts](Window& window) {
              if (prompts) return std::move(prompts);
              const auto heard = [&window](const QString& title, Printing::Stage stage) {
                  window.showPrinting(title, stage);
              };
              return std::unique_ptr<Prompts>(std::make_unique<DialogPrompts>(window, heard));
          },
          std::move(scan)) {}

Window::Window(AppModel& model, const MakePrompts& makePrompts, ReceiptQueue::MakeScan scan)
    : model_(model), prompts_(makePrompts(*this)) {
    setObjectName(QStringLiteral("window"));
    setWindowTitle(QStringLiteral("Tamba"));
    setAcceptDrops(true);
    setMinimumSize(960, 620);
    receipts_ = new ReceiptQueue(model_, std::move(scan), this);
    statements_ = new StatementImport(model_, *prompts_, this);
    folder_ = new FolderActions(model_, *prompts_, this);

    auto* frame = new QWidget(this);
    auto* columns = new QHBoxLayout(frame);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    sidebar_ = new Sidebar(model_, frame);
    columns->addWidget(sidebar_);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(0);
    pages_ = new QStackedWidget(frame);
    makePages();
    problem_ = new EmptyState(pages_);
    problem_->setObjectName(QStringLiteral("problemScreen"));
    pages_->addWidget(problem_);
    strip_ = new ActivityStrip(frame);
    rows->addWidget(pages_, 1);
    rows->addWidget(strip_);
    columns->addLayout(rows, 1);
    setCentralWidget(frame);
    toast_ = new Toast(frame);
    overlay_ = new DropOverlay(this);
    makeMenus();
    connectReceipts();
    connectStatements();
    connectFolder();
    connectScreens();
    connectOverview();
    connectProjects();
    connectDocuments();
    connectReports();
    // A file dropped on a field is read, too, and no text to be typed there.
    for (QWidget* widget : frame->findChildren<QWidget*>()) widget->setAcceptDrops(false);

    connect(problem_, &EmptyState::actionChosen, this, [this] {
        if (model_.state() == AppModel::State::damaged) return folder_->restore();
        const bool missing = model_.state() == AppModel::State::missing;
        model_.open(model_.folder(), missing ? AppModel::Expect::books : FolderActions::expected(model_.folder()));
    });
    connect(problem_, &EmptyState::thirdChosen, this, [this] { model_.open(model_.folder()); });
    connect(problem_, &EmptyState::otherChosen, folder_, &FolderActions::openOther);
    connect(&model_, &AppModel::refused, this, [this](const QString& sentence) { prompts_->alert(sentence); });
    connect(&model_, &AppModel::noticed, this, [this](const QString& sentence) { toast_->show(sentence); });
    connect(&model_, &AppModel::conflicted, this, &Window::decideConflicts);
    connect(&model_, &AppModel::historyChanged, this, &Window::refreshHistory);
    connect(&model_, &AppModel::opened, this, [this] {
        // Home again, and free to go elsewhere.
        if (model_.folder() == ownFolder_) ownFolder_.clear();
        refreshState();
    });
    // It spoke of other books.
    connect(&model_, &AppModel::opened, toast_, &QWidget::hide);
    connect(&model_, &AppModel::opened, this, &Window::refreshMenus);
    connect(&model_, &AppModel::opened, this, &Window::looksChanged);
    connect(&model_, &AppModel::changed, this, [this](const Library& before, const Library& after) {
        if (before.business.accentHex != after.business.accentHex) emit looksChanged();
        if (before.onboarded != after.onboarded) refreshState();
    });
    refreshHistory();
    refreshState();
}

Window::~Window() {
    // A cell that is being edited takes what was typed while every screen is still there.
    hide();
    // Threads call back into the window.
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
    delete receipts_;
}

void Window::makePages() {
    documents_ = new DocumentActions(model_, *prompts_, this);
    overview_ = new OverviewScreen(model_, pages_);
    expenses_ = new ExpensesScreen(model_, *prompts_, pages_);
    invoices_ = new InvoicesScreen(model_, *prompts_, *documents_, pages_);
    clients_ = new ClientsScreen(model_, *prompts_, *documents_, pages_);
    projects_ = new ProjectsScreen(model_, *prompts_, pages_);
    clientPages_ = new ClientPages(*clients_, *projects_, pages_);
    bank_ = new BankScreen(model_, *prompts_, pages_);
    const auto page = [this](Screen screen) -> Page& { return screens_[static_cast<std::size_t>(screen)]; };
    page(Screen::overview) = {overview_, tr("&New Invoice"), [this] { documents_->create(DocKind::invoice); }, {}, {},
                              {}};
    page(Screen::expenses) = {expenses_,
                              tr("&New Expense"),
                              [this] { expenses_->newExpense(); },
                              [this] { expenses_->focusSearch(); },
                              [this] { expenses_->deleteSelected(); },
                              {}};
    page(Screen::invoices) = {invoices_,
                              tr("&New Invoice"),
                              [this] { invoices_->newDocument(); },
                              [this] { invoices_->focusSearch(); },
                              [this] { invoices_->deleteSelected(); },
                              [this] { invoices_->printSelected(); }};
    page(Screen::clients) = {clientPages_,
                             tr("&New Client"),
                             [this] { clientPages_->createNew(); },
                             [this] { clientPages_->focusSearch(); },
                             [this] { clientPages_->deleteSelected(); },
                             {}};
    page(Screen::bank) = {bank_,
                          tr("&New Bank Account…"),
                          [this] { bank_->addAccount(); },
                          [this] { bank_->focusSearch(); },
                          [this] { bank_->deleteSelected(); },
                          {}};
    makeReports();
    for (const Page& each : screens_) pages_->addWidget(each.widget);
}

void Window::connectScreens() {
    connect(sidebar_, &Sidebar::screenChosen, this, &Window::showScreen);
    connect(sidebar_, &Sidebar::listChosen, expenses_, &ExpensesScreen::showList);
    connect(expenses_, &ExpensesScreen::listChanged, sidebar_, &Sidebar::setList);
    connect(sidebar_, &Sidebar::settingsChosen, this, [this] { editSettings(); });
    connect(sidebar_, &Sidebar::ownBooksChosen, this, [this] { openFolder(ownFolder_); });
    connect(expenses_, &ExpensesScreen::addReceiptsChosen, this, [this] { addReceipts(prompts_->receiptFiles()); });
    connect(expenses_, &ExpensesScreen::sampleChosen, this, &Window::openSample);
    connect(expenses_, &ExpensesScreen::removed, this, &Window::showRemoved);
    connect(expenses_, &ExpensesScreen::recurringChosen, this, &Window::editRecurring);
    connect(clients_, &ClientsScreen::removed, this, &Window::showRemoved);
    connect(invoices_, &InvoicesScreen::removed, this, &Window::showRemoved);
    connect(bank_, &BankScreen::importChosen, this, [this] { statements_->add(prompts_->statementFiles()); });
    connect(bank_, &BankScreen::matched, this, &Window::showRemoved);
    connect(bank_, &BankScreen::noticed, this, [this](const QString& sentence) { toast_->show(sentence); });
    connect(bank_, &BankScreen::expenseChosen, this, [this](const UUID& id) {
        showScreen(Screen::expenses);
        expenses_->select({id});
    });
    connect(bank_, &BankScreen::documentChosen, documents_, &DocumentActions::documentChosen);
    connect(invoices_, &InvoicesScreen::noticed, this, [this](const QString& sentence) { toast_->show(sentence); });
}

void Window::connectDocuments() {
    connect(documents_, &DocumentActions::removed, this, &Window::showRemoved);
    connect(documents_, &DocumentActions::noticed, this, [this](const QString& sentence) { toast_->show(sentence); });
    connect(documents_, &DocumentActions::issued, this, [this](const UUID& id, const QString& sentence) {
        using Action = DocumentActions::Action;
        toast_->show(sentence, DocumentActions::title(Action::savePDF),
                     [this, id] { documents_->run(Action::savePDF, id); });
    });
    connect(documents_, &DocumentActions::documentChosen, this, [this](const UUID& id) {
        showScreen(Screen::invoices);
        invoices_->select(id);
    });
}

void Window::showRemoved(const QString& what) {
    toast_->show(what, tr("Undo"), [this] { model_.undo(); });
}

void Window::showScreen(Screen screen) {
    screen_ = screen;
    sidebar_->setScreen(screen);
    refreshState();
    refreshMenus();
    // Keys go to what is shown now.
    page().widget->setFocus();
}

void Window::connectReceipts() {
    connect(receipts_, &ReceiptQueue::progressed, this, [this](const QString& file, int done, int count) {
        strip_->show(file.isEmpty() ? QString() : tr("Reading %1").arg(file), done, count);
        strip_->setCancellable(true);
    });
    connect(receipts_, &ReceiptQueue::finished, this, &Window::finished);
    connect(strip_, &ActivityStrip::cancelled, receipts_, &ReceiptQueue::cancel);
}

void Window::connectStatements() {
    connect(statements_, &StatementImport::workBegan, this, [this](const QString& what) {
        strip_->show(what, 0, 0);
        strip_->setCancellable(true);
    });
    connect(statements_, &StatementImport::workEnded, this, &Window::hideStrip);
    connect(strip_, &ActivityStrip::cancelled, statements_, &StatementImport::cancel);
    connect(statements_, &StatementImport::imported, this, [this](const QString& sentence) {
        toast_->show(sentence, tr("Match the Obvious Ones"), [this] {
            showScreen(Screen::bank);
            bank_->matchObvious();
        });
    });
}

void Window::connectFolder() {
    connect(folder_, &FolderActions::began, this, [this](const QString& what) {
        // Nothing is changed in books that are being copied.
        for (QWidget* part :
             {static_cast<QWidget*>(menuBar()), static_cast<QWidget*>(pages_), static_cast<QWidget*>(sidebar_)})
            part->setEnabled(false);
        strip_->show(what, 0, 0);
        strip_->setCancellable(false);
    });
    connect(folder_, &FolderActions::ended, this, [this] {
        for (QWidget* part :
             {static_cast<QWidget*>(menuBar()), static_cast<QWidget*>(pages_), static_cast<QWidget*>(sidebar_)})
            part->setEnabled(true);
        hideStrip();
    });
    connect(folder_, &FolderActions::chosen, this, [this](const std::filesystem::path& folder) {
        // The person's own from now on, not the sample.
        ownFolder_.clear();
        if (model_.state() == AppModel::State::open && !model_.isNew()) Remembered::setFolder(folder);
        refreshState();
    });
}

void Window::hideStrip() {
    if (!receipts_->isBusy()) strip_->hide();
}

void Window::showPrinting(const QString& title, Printing::Stage stage) {
    const QString what = tr("Printing “%1”").arg(title);
    if (stage == Printing::Stage::running) {
        // Other work has its bar and its way to be stopped.
        if (!strip_->isHidden()) return;
        strip_->show(what, 0, 0);
        return strip_->setCancellable(false);
    }
    if (strip_->what() == what) strip_->hide();
    if (stage == Printing::Stage::printed) return toast_->show(tr("“%1” is printed").arg(title));
    prompts_->alert(tr("“%1” couldn’t be printed.").arg(title));
}

void Window::addFiles(const std::vector<std::filesystem::path>& files) {
    if (files.empty()) return;
    if (model_.state() != AppModel::State::open) return prompts_->alert(model_.problem());
    std::vector<std::filesystem::path> statements, receipts;
    std::partition_copy(files.begin(), files.end(), std::back_inserter(statements), std::back_inserter(receipts),
                        isStatement);
    addReceipts(receipts);
    statements_->add(statements);
}

void Window::addReceipts(const std::vector<std::filesystem::path>& files) { receipts_->add(files); }

void Window::finished(const ReceiptQueue::Summary& summary) {
    strip_->hide();
    const std::size_t count = summary.filed.size();
    QString text = count == 1 ? tr("1 receipt added") : tr("%1 receipts added").arg(count);
    if (summary.cancelled > 0) text += tr(" · %1 cancelled").arg(summary.cancelled);
    // What somebody is at is not taken from under their hands.
    if (count > 0 && (screen_ != Screen::expenses || expenses_->isEditing()))
        toast_->show(text, tr("Show"), [this, ids = summary.filed] {
            showScreen(Screen::expenses);
            expenses_->select(ids);
        });
    else if (count > 0) {
        expenses_->select(summary.filed);
        toast_->show(text);
    } else if (summary.cancelled > 0)
        toast_->show(tr("Cancelled"));
    // Both questions wait for the end, so that they never stop the others.
    if (!summary.failed.empty()) {
        QStringList lines;
        for (const auto& failure : summary.failed)
            lines << toQt(failure.file.filename()) + QStringLiteral(": ") + failure.sentence;
        QString shown = lines.mid(0, 12).join(QLatin1Char('\n'));
        if (lines.size() > 12) shown += tr("\n… and %1 more").arg(lines.size() - 12);
        prompts_->alert(shown);
    }
    if (!summary.held.empty()) {
        QStringList names;
        for (const auto& file : summary.held) names << toQt(file.filename());
        if (prompts_->addAgain(names)) receipts_->add(summary.held, ReceiptQueue::Held::addAgain);
    }
}

void Window::refreshHistory() {
    const QString undo = model_.undoTitle(), redo = model_.redoTitle();
    undo_->setText(undo.isEmpty() ? tr("Undo") : tr("Undo “%1”").arg(undo));
    redo_->setText(redo.isEmpty() ? tr("Redo") : tr("Redo “%1”").arg(redo));
    undo_->setEnabled(!undo.isEmpty());
    redo_->setEnabled(!redo.isEmpty());
}

void Window::refreshState() {
    const AppModel::State state = model_.state();
    const bool welcome = welcome_ && model_.isNew();
    const bool open = state == AppModel::State::open && !welcome;
    for (QAction* action : needBooks_) action->setEnabled(open);
    sidebar_->setVisible(open || state == AppModel::State::closed);
    sidebar_->setSample(!ownFolder_.empty() && model_.folder() != ownFolder_);
    if (state == AppModel::State::damaged) {
        const bool any = !model_.backups().empty();
        problem_->set(QStringLiteral("alert"), tr("These books cannot be read"),
                      model_.problem() + QStringLiteral("\n\n") + tr("The file is left exactly as it is."),
                      any ? tr("Restore a Backup…") : QString(), tr("Open Another Folder…"));
    } else if (state == AppModel::State::locked)
        problem_->set(QStringLiteral("lock"), tr("Already open"), model_.problem(), tr("Try Again"),
                      tr("Open Another Folder…"));
    else if (state == AppModel::State::missing)
        problem_->set(QStringLiteral("folder"), tr("The books are not there"), model_.problem(), tr("Look Again"),
                      tr("Choose Folder…"), tr("Begin New Books Here"));
    if (welcome) {
        pages_->setCurrentWidget(welcome_);
        return welcome_->setFocus();
    }
    pages_->setCurrentWidget(open || state == AppModel::State::closed ? page().widget : problem_);
}

void Window::comeForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void Window::setWelcome(QWidget* welcome) {
    welcome_ = welcome;
    pages_->addWidget(welcome);
    refreshState();
}

void Window::newInvoice() {
    showScreen(Screen::invoices);
    invoices_->showKind(DocKind::invoice);
    invoices_->newDocument();
}

void Window::openFolder(const std::filesystem::path& folder) { model_.open(folder, FolderActions::expected(folder)); }

void Window::openSample() {
    if (makingSample_) return;
    if (ownFolder_.empty()) ownFolder_ = model_.folder();
    std::filesystem::path folder = ownFolder_;
    folder += " Sample Books";
    if (Files::exists(folder / "tamba.json")) return openFolder(folder);
    makingSample_ = true;
    strip_->show(tr("Making the sample books"), 0, 0);
    strip_->setCancellable(false);
    // A thread of its own: rendering the receipts takes a while.
    auto* thread = QThread::create([folder, today = model_.today(), this] {
        QString problem;
        try {
            Fixtures::write(LibraryStore(folder), today);
        } catch (const std::exception& error) {
            problem = toQt(std::string_view(error.what()));
        }
        QMetaObject::invokeMethod(
            this,
            [this, folder, problem] {
                makingSample_ = false;
                strip_->hide();
                if (problem.isEmpty()) return openFolder(folder);
                prompts_->alert(problem);
            },
            Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void Window::editSettings(SettingsPlace place, const std::optional<UUID>& item) {
    const Library before = model_.library();
    const SettingsContext context{
        model_.folder(), model_.store().logo(before.business), Remembered::appearance(), place, item,
        updates_,        Remembered::looksForUpdates()};
    const auto edit = prompts_->settings(before, context, model_.today());
    if (!edit) return;
    model_.perform(tr("Change Settings"), [&, store = model_.store()](Library now, Day) {
        // What came from elsewhere while the settings were open stays.
        Library after = now == before ? edit->library : merge(before, edit->library, now).library;
        if (edit->logo) after.business.logoFile = store.importLogo(*edit->logo);
        return after;
    });
    if (edit->appearance && *edit->appearance != context.appearance) {
        Remembered::setAppearance(*edit->appearance);
        emit looksChanged();
    }
    if (updates_ && edit->lookForUpdates) {
        Remembered::setLooksForUpdates(*edit->lookForUpdates);
        updates_->setAllowed(*edit->lookForUpdates);
    }
    folder_->run(edit->wish);
}

void Window::decideConflicts(const MergeReport& report) {
    const auto otherWay = prompts_->conflicts(report);
    if (otherWay.empty()) return;
    model_.perform(tr("Choose Between Changes"),
                   [&](Library library, Day) { return decided(std::move(library), report, otherWay); });
}

void Window::editRecurring() {
    const auto edit = prompts_->recurring(model_.library());
    if (!edit) return;
    model_.perform(tr("Change Recurring Expenses"), [&](Library library, Day today) {
        for (const UUID& id : edit->paused) library = Recurring::setPaused(std::move(library), id, true, today);
        for (const UUID& id : edit->resumed) library = Recurring::setPaused(std::move(library), id, false, today);
        for (const UUID& id : edit->removed) library = Recurring::remove(std::move(library), id);
        return library;
    });
}

void Window::closeEvent(QCloseEvent* event) {
    if (folder_->isMoving()) return event->ignore();
    if (model_.saveNow() || prompts_->confirm(tr("Quit without saving?"), model_.saveProblem(), tr("Quit Anyway")))
        return event->accept();
    event->ignore();
}

void Window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sidebar_->setNarrow(width() < 1120);
    overlay_->setGeometry(rect());
}

void Window::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        model_.saveNow();
        model_.lookAtDay();
    }
    QMainWindow::changeEvent(event);
}

bool Window::focusNextPrevChild(bool next) { return TabOrder::move(*this, next); }

void Window::dragEnterEvent(QDragEnterEvent* event) {
    const auto files = localFiles(*event->mimeData());
    // A document dragged out of a list is no receipt.
    if (files.empty() || event->source() || model_.state() != AppModel::State::open) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const auto statements = std::count_if(files.begin(), files.end(), isStatement);
    overlay_->show(static_cast<int>(std::ssize(files) - statements), static_cast<int>(statements));
}

void Window::dragLeaveEvent(QDragLeaveEvent*) { overlay_->hide(); }

void Window::dropEvent(QDropEvent* event) {
    overlay_->hide();
    const auto files = localFiles(*event->mimeData());
    if (files.empty() || model_.state() != AppModel::State::open) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    addFiles(files);
}

}  // namespace tamba
