#include "Tamba/Sheets/BackupSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"

#include <QListWidget>
#include <QLocale>
#include <QPushButton>

namespace tamba {

BackupSheet::BackupSheet(QWidget* parent, std::vector<LibrarySession::Backup> backups)
    : Sheet(
          parent, Icon::none, tr("Restore a Backup"),
          tr("The books go back to how they were then. The present file is kept beside the backups, and receipts stay "
             "where they are.")),
      backups_(std::move(backups)) {
    list_ = new QListWidget(this);
    Controls::name(*list_, "backups", tr("Backups"));
    for (const auto& backup : backups_)
        list_->addItem(
            tr("%1 · %2 · %3")
                .arg(toQt(backup.day.formatted("EEEE d MMMM yyyy")),
                     backup.asOpened ? tr("as opened that day") : tr("first save of the day"),
                     QLocale(QLocale::English)
                         .formattedDataSize(static_cast<qint64>(backup.size), 0, QLocale::DataSizeSIFormat)));
    list_->setMinimumHeight(240);
    list_->setCurrentRow(0);
    body().addWidget(list_);
    if (backups_.empty()) list_->addItem(tr("There is no backup in this folder yet."));
    addButtons(tr("Restore"), tr("Cancel"))->setEnabled(!backups_.empty());
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    setMinimumWidth(500);
}

std::string BackupSheet::chosen() const {
    const auto row = static_cast<std::size_t>(std::max(0, list_->currentRow()));
    return row < backups_.size() ? backups_[row].name : std::string();
}

}  // namespace tamba
