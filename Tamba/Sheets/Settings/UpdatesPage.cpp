#include "Tamba/Sheets/Settings/UpdatesPage.h"

#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

namespace tamba {

UpdatesPage::UpdatesPage(UpdateService& updates, bool allowed, QWidget* parent) : SettingsPage(parent) {
    form.setNoteWidth(430);
    form.row(tr("This version"), new QLabel(QCoreApplication::applicationVersion(), this));
    allowed_ = form.check(tr("Look for updates at the start and once a day"), "lookForUpdates", allowed);
    promise_ = form.note(tr(
        "Only the list of updates is asked for. Nothing of your books leaves this computer. An update comes only when "
        "you want it, and is installed when you quit."));
    form.section(tr("The next version"));
    sentence_ = form.note();
    sentence_->setObjectName(QStringLiteral("updateSentence"));
    progress_ = new QProgressBar(this);
    Controls::name(*progress_, "updateProgress", tr("How much of the update is here"));
    progress_->setTextVisible(false);
    form.addRow(QString(), progress_);
    auto* row = new QHBoxLayout;
    const auto button = [&](const QString& words, const char* name, Controls::Kind kind,
                            void (UpdateService::*work)()) {
        auto* made = Controls::button(words, name, kind, this);
        connect(made, &QPushButton::clicked, &updates, work);
        row->addWidget(made);
        return made;
    };
    fetch_ = button(tr("Get This Update"), "fetchUpdate", Controls::Kind::primary, &UpdateService::download);
    look_ = button(tr("Look Now"), "lookNow", Controls::Kind::plain, &UpdateService::check);
    cancel_ = button(tr("Cancel"), "cancelUpdate", Controls::Kind::plain, &UpdateService::cancel);
    row->addStretch(1);
    form.addRow(QString(), row);
    notesTitle_ = form.section(tr("What’s new"));
    notes_ = new QPlainTextEdit(this);
    Controls::name(*notes_, "updateNotes", tr("What’s new"));
    notes_->setReadOnly(true);
    notes_->setMinimumHeight(180);
    form.addRow(notes_);
    connect(&updates, &UpdateService::changed, this, [this, &updates] { show(updates.status()); });
    show(updates.status());
}

void UpdatesPage::show(const UpdateStatus& status) {
    using Stage = UpdateStatus::Stage;
    const Stage stage = status.stage;
    form.setRowVisible(allowed_, stage != Stage::off);
    form.setRowVisible(promise_, stage != Stage::off);
    form.setNote(*sentence_, Translations::shown(toStd(status.sentence)),
                 stage == Stage::failed ? "problem" : "caption");
    form.setRowVisible(progress_, stage == Stage::downloading);
    // A bar of Qt counts in ints.
    constexpr std::uint64_t unit = 1024;
    progress_->setMaximum(static_cast<int>(status.size / unit));
    progress_->setValue(static_cast<int>(status.done / unit));
    fetch_->setVisible(stage == Stage::offered);
    look_->setVisible(stage != Stage::off && stage != Stage::downloading && stage != Stage::ready);
    look_->setEnabled(stage != Stage::checking);
    cancel_->setVisible(stage == Stage::downloading);
    const bool known =
        stage == Stage::offered || stage == Stage::managed || stage == Stage::downloading || stage == Stage::ready;
    const bool notes = known && !status.notes.isEmpty();
    form.setRowVisible(notesTitle_, notes);
    form.setRowVisible(notes_, notes);
    if (notes_->toPlainText() != status.notes) notes_->setPlainText(status.notes);
}

bool UpdatesPage::allowed() const { return allowed_->isChecked(); }

}  // namespace tamba
