#include "Tamba/Sheets/ClientSheet.h"

#include "Tamba/Widgets/ClientForm.h"

#include <QPushButton>

namespace tamba {

ClientSheet::ClientSheet(QWidget* parent, const Library& library, const std::string& name)
    : Sheet(parent, Icon::none, tr("New Client"), {}) {
    form_ = new ClientForm(this);
    Client blank = Client::make(name);
    blank.currency = library.home().code;
    form_->show(blank, library.business.defaultDueDays);
    body().addWidget(form_);
    QPushButton* main = addButtons(tr("Add Client"), tr("Cancel"), Main::keeps);
    const auto refresh = [this, main] { main->setEnabled(!client().name.empty()); };
    connect(form_, &ClientForm::typed, main, refresh);
    refresh();
    setFixedWidth(460);
    form_->focusName();
}

Client ClientSheet::client() const { return form_->client(); }

}  // namespace tamba
