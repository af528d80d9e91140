#include "Tamba/Screens/InvoicesScreen.h"

namespace tamba {

InvoicesScreen::InvoicesScreen(AppModel& model, Prompts& prompts, DocumentActions& actions, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), actions_(actions) {
    setObjectName(QStringLiteral("invoicesScreen"));
    (void)model_, (void)prompts_, (void)actions_;
}

void InvoicesScreen::select(const UUID&) {}
std::optional<UUID> InvoicesScreen::selected() const { return {}; }
void InvoicesScreen::showKind(DocKind) {}
void InvoicesScreen::newDocument() {}
void InvoicesScreen::focusSearch() { setFocus(Qt::ShortcutFocusReason); }
void InvoicesScreen::deleteSelected() {}
void InvoicesScreen::printSelected() {}
bool InvoicesScreen::isEditing() const { return false; }

}  // namespace tamba
