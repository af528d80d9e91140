#include "Tamba/Sheets/Settings/ComputerPages.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace tamba {

AppearancePage::AppearancePage(const Remembered::Appearance& appearance, QWidget* parent) : SettingsPage(parent) {
    using Remembered::Appearance;
    looks_ = form.combo(tr("Windows"), "looks");
    looks_->addItem(tr("Like the desktop"), static_cast<int>(Appearance::Looks::system));
    looks_->addItem(tr("Light"), static_cast<int>(Appearance::Looks::light));
    looks_->addItem(tr("Dark"), static_cast<int>(Appearance::Looks::dark));
    looks_->setCurrentIndex(static_cast<int>(appearance.looks));
    form.note(
        tr("The accent is the business’s colour, on the page “Invoices”. Where it would be hard to read, texts are set "
           "in a darker or lighter shade of it."));
    language_ = form.combo(tr("Language"), "language");
    language_->addItem(tr("Like the desktop"), static_cast<int>(Appearance::Language::system));
    // Each in its own words, for whoever cannot read the present one.
    language_->addItem(QStringLiteral("English"), static_cast<int>(Appearance::Language::english));
    language_->addItem(QStringLiteral("हिन्दी"), static_cast<int>(Appearance::Language::hindi));
    language_->setCurrentIndex(static_cast<int>(appearance.language));
    form.note(tr("From the next start. Invoices stay in English."));
    form.note(tr("Both belong to this computer, not to the books."));
}

Remembered::Appearance AppearancePage::appearance() const {
    using Remembered::Appearance;
    return {static_cast<Appearance::Looks>(looks_->currentData().toInt()),
            static_cast<Appearance::Language>(language_->currentData().toInt())};
}

FolderPage::FolderPage(const std::filesystem::path& folder, QWidget* parent) : SettingsPage(parent) {
    auto* place = new QLabel(this);
    place->setObjectName(QStringLiteral("folderPath"));
    place->setText(place->fontMetrics().elidedText(toQt(folder), Qt::ElideMiddle, 430));
    place->setToolTip(toQt(folder));
    place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form.row(tr("Folder"), place);
    const auto button = [this](const QString& words, const char* name) {
        auto* made = Controls::button(words, name, Controls::Kind::plain, this);
        auto* row = new QHBoxLayout;
        row->addWidget(made);
        row->addStretch(1);
        form.addRow(QString(), row);
        return made;
    };
    auto* show = button(tr("Show in the File Manager"), "showFolder");
    connect(show, &QPushButton::clicked, this,
            [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(folder))); });
    form.note(
        tr("Everything is in this folder: books, receipts, invoices, backups. Copy it, and you have copied all."));
    const auto wish = [&](const QString& words, const char* name, FolderWish meant, const QString& note) {
        auto* made = button(words, name);
        connect(made, &QPushButton::clicked, this, [this, meant] { emit wished(meant); });
        wishes_.push_back(made);
        form.note(note);
    };
    form.section(tr("Elsewhere"));
    wish(tr("Move the Books…"), "moveFolder", FolderWish::move,
         tr("Copies the folder, compares every file, and goes on there. You are asked about the old folder."));
    wish(tr("Open Other Books…"), "openFolder", FolderWish::openOther,
         tr("Another business, or the same on a disk that other computers use, too."));
    form.section(tr("Backups"));
    wish(tr("Restore a Backup…"), "restoreBackup", FolderWish::restore,
         tr("One is kept of each of the last fourteen days of work, as the day began and as it was first saved."));
}

void FolderPage::setWishesEnabled(bool enabled) {
    for (QPushButton* button : wishes_) button->setEnabled(enabled);
}

}  // namespace tamba
