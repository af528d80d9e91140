#include "Tamba/Screens/ClientPages.h"

#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Widgets/Controls.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QTabBar>

namespace tamba {

ClientPages::ClientPages(ClientsScreen& clients, ProjectsScreen& projects, QWidget* parent)
    : QStackedWidget(parent), clients_(clients), projects_(projects) {
    setObjectName(QStringLiteral("clientPages"));
    addWidget(&clients_);
    addWidget(&projects_);
    int own = 0;
    for (QHBoxLayout* head : {&clients_.head(), &projects_.head()}) {
        auto* tabs = new QTabBar(widget(own));
        Controls::name(*tabs, own == 0 ? "clientTabs" : "projectTabs", tr("Clients or projects"));
        tabs->ensurePolished();  // else the tabs are measured with another font than they are drawn with
        tabs->setDrawBase(false);
        tabs->setExpanding(false);
        tabs->setElideMode(Qt::ElideNone);
        tabs->setUsesScrollButtons(false);
        tabs->addTab(tr("Clients"));
        tabs->addTab(tr("Projects"));
        tabs->setCurrentIndex(own);
        head->insertWidget(0, tabs, 0, Qt::AlignLeft);
        // Each tab bar belongs to one page and always shows that.
        connect(tabs, &QTabBar::currentChanged, this, [this, tabs, own](int chosen) {
            if (chosen == own) return;
            turnTo(chosen);
            const QSignalBlocker quiet(tabs);
            tabs->setCurrentIndex(own);
        });
        ++own;
    }
    turnTo(0);
}

void ClientPages::turnTo(int tab) {
    setCurrentIndex(tab);
    setFocusProxy(currentWidget());
    if (isVisible()) currentWidget()->setFocus();
    emit tabChanged();
}

void ClientPages::showClients() { turnTo(0); }

void ClientPages::showProjects() { turnTo(1); }

void ClientPages::createNew() { isClients() ? clients_.newClient() : projects_.newProject(); }

void ClientPages::focusSearch() { isClients() ? clients_.focusSearch() : projects_.focusSearch(); }

void ClientPages::fillMenu(QMenu& menu) { isClients() ? clients_.fillMenu(menu) : projects_.fillMenu(menu); }

void ClientPages::deleteSelected() { isClients() ? clients_.deleteSelected() : projects_.deleteSelected(); }

}  // namespace tamba
