#include "Tamba/Sheets/BackupSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/BackupRows.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QListWidget>
#include <QLocale>
#include <QPushButton>

namespace tamba {

BackupSheet::BackupSheet(QWidget* parent, BackupQuestion question)
    : Sheet(
          parent, Icon::none, tr("Restore a Backup"),
          tr("The books go back to how they were then. The present file is kept beside the backups, and receipts stay "
             "where they are.")),
      question_(std::move(question)) {
    list_ = new QListWidget(this);
    Controls::name(*list_, "backups", tr("Backups"));
    const QString kinds[] = {tr("first save of the day"), tr("as opened that day"), tr("before it was replaced")};
    for (const auto& backup : question_.backups)
        list_->addItem(
            tr("%1 · %2 · %3")
                .arg(toQt(Sentences::months(backup.day.formatted("EEEE d MMMM yyyy"))),
                     kinds[static_cast<std::size_t>(backup.kind)],
                     QLocale(QLocale::English)
                         .formattedDataSize(static_cast<qint64>(backup.size), 0, QLocale::DataSizeSIFormat)));
    list_->setMinimumHeight(200);
    list_->setCurrentRow(0);
    body().addWidget(list_);
    if (question_.backups.empty()) list_->addItem(tr("There is no backup in this folder yet."));
    holds_ = new QLabel(this);
    holds_->setObjectName(QStringLiteral("backupHolds"));
    holds_->setFont(Style::textFont(13, QFont::DemiBold));
    holds_->setWordWrap(true);
    changes_ = Controls::label({}, "field", this);
    changes_->setObjectName(QStringLiteral("backupChanges"));
    changes_->setWordWrap(true);
    changes_->setAlignment(Qt::AlignTop);
    // Room for what the longest takes, so that the sheet does not jump.
    changes_->setMinimumHeight(64);
    body().addWidget(holds_);
    body().addWidget(changes_);
    restore_ = addButtons(tr("Restore"), tr("Cancel"));
    connect(list_, &QListWidget::itemDoubleClicked, restore_, &QPushButton::click);
    connect(list_, &QListWidget::currentRowChanged, this, &BackupSheet::refresh);
    setMinimumWidth(520);
    refresh();
}

BackupSheet::Words BackupSheet::wordsFor(const BackupQuestion& question, const std::string& name) {
    Words words;
    try {
        const Library backup = question.read(name);
        words.good = true;
        words.holds = toQt(countsText(backup));
        if (!question.present) return words;
        QStringList changes;
        for (const std::string& text : changesText(*question.present, backup)) changes << toQt(text);
        words.changes =
            changes.isEmpty() ? tr("The same as the books now.") : tr("Against now: %1.").arg(changes.join(tr("; ")));
    } catch (const std::exception& error) {
        words.changes = toQt(std::string_view(error.what()));
    }
    return words;
}

void BackupSheet::refresh() {
    const std::string name = chosen();
    const auto known = words_.find(name);
    const Words now = known == words_.end() ? Words() : known->second;
    holds_->setText(now.holds);
    changes_->setText(now.changes);
    restore_->setEnabled(now.good);
    if (name.empty() || known != words_.end()) return;
    changes_->setText(tr("Reading…"));
    background_.start([this, name, question = question_](const std::atomic<bool>&) {
        return [this, name, words = wordsFor(question, name)] {
            words_.emplace(name, words);
            refresh();
        };
    });
}

std::string BackupSheet::chosen() const {
    const auto row = static_cast<std::size_t>(std::max(0, list_->currentRow()));
    return row < question_.backups.size() ? question_.backups[row].name : std::string();
}

}  // namespace tamba
