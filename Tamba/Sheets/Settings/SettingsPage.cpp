#include "Tamba/Sheets/Settings/SettingsPage.h"

#include "Tamba/Widgets/Form.h"

namespace tamba {

SettingsPage::SettingsPage(QWidget* parent) : QWidget(parent), form(*new Form(*this, 128)) {
    setLayout(&form);
    form.setNoteWidth(400);
}

}  // namespace tamba
