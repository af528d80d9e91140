#include "Tamba/QtText.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "Tamba/Window.h"

#include <QMenuBar>
#include <QPointer>

namespace tamba {
namespace {

struct Commands {
    std::vector<SearchCommand> texts;
    std::vector<QPointer<QAction>> actions;
};

void collect(Commands& commands, const QList<QAction*>& actions, const QString& where, const QAction* except) {
    for (QAction* action : actions) {
        if (action->isSeparator() || !action->isEnabled() || !action->isVisible() || action == except) continue;
        const QString text = action->text().remove(QLatin1Char('&'));
        if (const QMenu* menu = action->menu()) {
            collect(commands, menu->actions(), where.isEmpty() ? text : where + QStringLiteral(" · ") + text, except);
            continue;
        }
        commands.texts.push_back(
            {toStd(text), toStd(where), toStd(action->shortcut().toString(QKeySequence::NativeText))});
        commands.actions.emplace_back(action);
    }
}

}  // namespace

void Window::makeSearch(QMenu& edit) {
    search_ = new SearchPalette(model_, this);
    QAction* action = edit.addAction(tr("Find &Anything…"));
    action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    needBooks_.push_back(action);
    connect(action, &QAction::triggered, this, [this, action] {
        Commands commands;
        // Menus about what is selected say what it is when they open.
        const QList<QMenu*> menus = menuBar()->findChildren<QMenu*>();
        for (QMenu* menu : menus) emit menu->aboutToShow();
        collect(commands, menuBar()->actions(), {}, action);
        for (QMenu* menu : menus) emit menu->aboutToHide();
        search_->open(std::move(commands.texts), [actions = std::move(commands.actions)](std::size_t which) {
            if (QAction* chosen = actions.at(which)) chosen->trigger();
        });
    });
    connect(search_, &SearchPalette::chosen, this, &Window::showRecord);
}

void Window::showRecord(Search::Kind kind, const UUID& id) {
    switch (kind) {
        case Search::Kind::expense:
            showScreen(Screen::expenses);
            return expenses_->select({id});
        case Search::Kind::client:
            showScreen(Screen::clients);
            clientPages_->showClients();
            return clients_->select(id);
        case Search::Kind::project:
            showScreen(Screen::clients);
            clientPages_->showProjects();
            return projects_->select(id);
        case Search::Kind::item:
            return editSettings(SettingsPlace::items, id);
        case Search::Kind::bankLine:
            showScreen(Screen::bank);
            return bank_->select(id);
        default:
            showScreen(Screen::invoices);
            return invoices_->select(id);
    }
}

}  // namespace tamba
