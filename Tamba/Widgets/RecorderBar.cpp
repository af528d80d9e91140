#include "Tamba/Widgets/RecorderBar.h"

#include "Tamba/Widgets/Controls.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>

namespace tamba {

RecorderBar::RecorderBar(QWidget* window) : QWidget(window, Qt::Tool) {
    setObjectName(QStringLiteral("recorderBar"));
    setProperty("notFilmed", true);
    setWindowTitle(tr("Recording"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 10, 14, 10);
    row->setSpacing(8);
    time_ = Controls::label({}, "title", this);
    time_->setObjectName(QStringLiteral("recorderTime"));
    caption_ = new QLineEdit(this);
    Controls::name(*caption_, "recorderCaption", tr("Caption"));
    caption_->setPlaceholderText(tr("A caption; Return shows it"));
    caption_->setMinimumWidth(320);
    auto* cancel = Controls::button(tr("Cancel"), "recorderCancel", Controls::Kind::plain, this);
    auto* stop = Controls::button(tr("Stop and Keep"), "recorderStop", Controls::Kind::primary, this);
    for (QWidget* each : {static_cast<QWidget*>(time_), static_cast<QWidget*>(caption_), static_cast<QWidget*>(cancel),
                          static_cast<QWidget*>(stop)})
        row->addWidget(each);
    connect(caption_, &QLineEdit::returnPressed, this, [this] {
        emit captionChanged(caption_->text());
        caption_->selectAll();
    });
    connect(stop, &QPushButton::clicked, this, &RecorderBar::stopped);
    connect(cancel, &QPushButton::clicked, this, &RecorderBar::cancelled);
    setSeconds(0);
}

void RecorderBar::setSeconds(int seconds) {
    time_->setText(QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0')));
}

void RecorderBar::setFinishing() {
    time_->setText(tr("Finishing"));
    caption_->setEnabled(false);
    findChild<QPushButton*>(QStringLiteral("recorderStop"))->setEnabled(false);
}

void RecorderBar::closeEvent(QCloseEvent* event) {
    // Its frame’s button keeps what was filmed, as quitting does, which this must not hold up.
    event->accept();
    emit stopped();
}

}  // namespace tamba
