#pragma once

#include <QStackedWidget>

class QMenu;

namespace tamba {

class ClientsScreen;
class ProjectsScreen;

/// Clients and projects as two tabs of one screen. Takes both over; what the keys for new, find and delete ask for goes
/// to the tab that is shown.
class ClientPages : public QStackedWidget {
    Q_OBJECT

public:
    ClientPages(ClientsScreen& clients, ProjectsScreen& projects, QWidget* parent = nullptr);
    void showClients();
    void showProjects();
    void createNew();
    void focusSearch();
    void deleteSelected();
    void fillMenu(QMenu& menu);

signals:
    /// The other tab is shown: other keys are in force.
    void tabChanged();

private:
    void turnTo(int tab);
    [[nodiscard]] bool isClients() const { return currentIndex() == 0; }
    ClientsScreen& clients_;
    ProjectsScreen& projects_;
};

}  // namespace tamba
