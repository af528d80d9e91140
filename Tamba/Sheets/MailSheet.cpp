#include "Tamba/Sheets/MailSheet.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tamba {

MailSheet::MailSheet(QWidget* parent, const Library& library, const Document& document, Mail kind, Day today,
                     bool hasProgram)
    : Sheet(parent, Icon::none,
            (kind == Mail::reminder ? tr("Remind About %1") : tr("Send %1")).arg(toQt(document.displayNumber())), {}),
      library_(library),
      document_(document),
      today_(today) {
    auto* form = new Form(*this);
    to_ = form->line(tr("To"), "mailTo");
    to_->setPlaceholderText(tr("name@example.com"));
    tones_ = form->combo(tr("Tone"), "mailTone");
    for (const auto tone : {Reminders::Tone::friendly, Reminders::Tone::firm, Reminders::Tone::final})
        tones_->addItem(Translations::shown(Reminders::title(tone)), static_cast<int>(tone));
    form->setRowVisible(tones_, kind == Mail::reminder);
    subject_ = form->line(tr("Subject"), "mailSubject");
    words_ = form->text(tr("Text"), "mailText", 14);
    auto* attached = new QWidget(this);
    auto* row = new QHBoxLayout(attached);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    auto* glyph = new QLabel(attached);
    glyph->setPixmap(
        Icons::icon(QStringLiteral("file-pdf"), &Colors::muted).pixmap(QSize(17, 17), devicePixelRatioF()));
    auto* name = new QLabel(attached);
    name->setObjectName(QStringLiteral("mailAttachment"));
    row->addWidget(glyph);
    row->addWidget(name, 1);
    form->row(tr("Attached"), attached);
    body().addLayout(form);
    addButtons(hasProgram ? tr("Open in Mail Program") : tr("Save E-mail…"), tr("Cancel"));
    setFixedWidth(640);

    if (kind == Mail::reminder) {
        tone_ = Reminders::tone(document);
        tones_->setCurrentIndex(tones_->findData(static_cast<int>(tone_)));
        show(Reminders::reminder(library_, document_, today_, tone_));
    } else {
        show(Reminders::sending(library_, document_, today_));
    }
    name->setText(toQt(draft_.attachmentName));
    connect(tones_, &QComboBox::activated, this,
            [this] { speak(static_cast<Reminders::Tone>(tones_->currentData().toInt())); });
    if (to_->text().isEmpty())
        to_->setFocus();
    else
        words_->setFocus();
}

void MailSheet::show(const Reminders::Draft& draft) {
    draft_ = draft;
    to_->setText(toQt(draft.to));
    subject_->setText(toQt(draft.subject));
    subject_->setCursorPosition(0);
    words_->setPlainText(toQt(draft.body));
}

void MailSheet::speak(Reminders::Tone tone) {
    if (tone == tone_) return;
    const Reminders::Draft present = draft();
    written_[tone_] = present;
    tone_ = tone;
    const auto before = written_.find(tone);
    Reminders::Draft next =
        before != written_.end() ? before->second : Reminders::reminder(library_, document_, today_, tone);
    next.to = present.to;
    show(next);
}

Reminders::Draft MailSheet::draft() const {
    Reminders::Draft draft = draft_;
    draft.to = toStd(to_->text().trimmed());
    draft.subject = toStd(subject_->text().trimmed());
    draft.body = toStd(words_->toPlainText());
    return draft;
}

}  // namespace tamba
